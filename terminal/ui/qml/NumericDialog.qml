// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// Asks for a number: its keys, the range, and why an entry was refused. The first digit replaces the value that was
// there. The keyboard works too.
Rectangle {
    id: dialog

    property string title
    // What is there at first, with a decimal point.
    property string value
    property string unit
    // The range in words; empty for none.
    property string range
    // Why the entry was refused; empty when it was not.
    property string error
    property int decimals: 0
    property bool signed: false
    // What is entered.
    property string text: ""
    // Whether the next digit begins a new number.
    property bool fresh: true

    signal entered(string text)
    signal cancelled()
    signal edited()

    readonly property int maximumLength: 12

    onValueChanged: begin()
    Component.onCompleted: {
        begin()
        forceActiveFocus()
    }

    function begin() {
        text = value
        fresh = true
    }

    function change(changed) {
        fresh = false
        text = changed
        edited()
    }

    function digit(figure) {
        var before = fresh ? "" : text
        var point = before.indexOf(".")
        if (before.length >= maximumLength || (point >= 0 && before.length - point > decimals))
            return
        if (before === "0" || before === "-0")
            before = before.slice(0, -1)
        change(before + figure)
    }

    function point() {
        var before = fresh ? "" : text
        if (decimals === 0 || before.indexOf(".") >= 0)
            return
        change((before === "" || before === "-" ? before + "0" : before) + ".")
    }

    function erase() {
        change(fresh ? "" : text.slice(0, -1))
    }

    function clear() {
        change("")
    }

    function changeSign() {
        if (signed)
            change(text.charAt(0) === "-" ? text.slice(1) : "-" + text)
    }

    function enter() {
        if (text.length > 0)
            entered(text)
    }

    implicitWidth: 760
    implicitHeight: 408
    radius: Theme.radius
    color: Theme.display
    focus: true

    Keys.onPressed: {
        event.accepted = true
        if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter)
            enter()
        else if (event.key === Qt.Key_Escape)
            cancelled()
        else if (event.key === Qt.Key_Backspace)
            erase()
        else if (event.key === Qt.Key_Delete)
            clear()
        else if (event.text === "." || event.text === ",")
            point()
        else if (event.text === "-")
            changeSign()
        else if (event.text.length === 1 && event.text >= "0" && event.text <= "9")
            digit(event.text)
        else
            event.accepted = false
    }

    // Keeps taps from reaching what is beneath.
    MouseArea {
        anchors.fill: parent
    }

    Item {
        id: entry
        x: Theme.margin
        y: Theme.margin
        width: 312
        height: parent.height - 2 * Theme.margin

        Text {
            id: heading
            objectName: "numericTitle"
            width: parent.width
            text: dialog.title
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            maximumLineCount: 2
            elide: Text.ElideRight
            font.pixelSize: Theme.titleSize
            font.weight: Font.Medium
            color: Theme.ink
        }
        Rectangle {
            id: field
            anchors.top: heading.bottom
            anchors.topMargin: 16
            width: parent.width
            height: 72
            radius: Theme.radius
            color: "white"
            border.width: 2
            border.color: dialog.error.length > 0 ? Theme.error : Theme.accent

            Text {
                objectName: "numericText"
                anchors.left: parent.left
                anchors.leftMargin: 12
                anchors.right: unit.left
                anchors.rightMargin: unit.text.length > 0 ? 10 : 0
                anchors.verticalCenter: parent.verticalCenter
                horizontalAlignment: Text.AlignRight
                text: dialog.text
                elide: Text.ElideLeft
                font.pixelSize: Theme.smallDisplaySize
                font.weight: Font.Medium
                color: dialog.fresh ? Theme.inkSoft : Theme.ink
            }
            Text {
                id: unit
                objectName: "numericUnit"
                anchors.right: parent.right
                anchors.rightMargin: 16
                anchors.verticalCenter: parent.verticalCenter
                text: dialog.unit
                textFormat: Text.PlainText
                font.pixelSize: Theme.titleSize
                color: Theme.inkSoft
            }
        }
        Text {
            id: rangeText
            objectName: "numericRange"
            visible: dialog.range.length > 0
            anchors.top: field.bottom
            anchors.topMargin: 10
            width: parent.width
            text: dialog.unit.length > 0 ? dialog.range + " " + dialog.unit : dialog.range
            textFormat: Text.PlainText
            horizontalAlignment: Text.AlignRight
            elide: Text.ElideRight
            font.pixelSize: Theme.bodySize
            color: Theme.inkSoft
        }
        Text {
            objectName: "numericError"
            visible: dialog.error.length > 0
            anchors.top: rangeText.visible ? rangeText.bottom : field.bottom
            anchors.topMargin: 10
            anchors.bottom: cancel.top
            anchors.bottomMargin: 8
            width: parent.width
            text: dialog.error
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            elide: Text.ElideRight
            font.pixelSize: Theme.bodySize
            font.weight: Font.Medium
            color: Theme.error
        }
        DialogKey {
            id: cancel
            objectName: "numericCancel"
            anchors.bottom: parent.bottom
            width: parent.width
            height: 72
            text: qsTr("Cancel")
            onClicked: dialog.cancelled()
        }
    }

    Grid {
        id: keys
        anchors.right: parent.right
        anchors.rightMargin: Theme.margin
        y: Theme.margin
        columns: 4
        spacing: Theme.unit
        readonly property int keyWidth: 90
        readonly property int keyHeight: 84

        Repeater {
            model: ["7", "8", "9", "erase", "4", "5", "6", "clear", "1", "2", "3", "sign", "point", "0"]

            DialogKey {
                objectName: "numericKey:" + modelData
                readonly property bool figure: modelData.length === 1
                width: keys.keyWidth
                height: keys.keyHeight
                textSize: figure || modelData === "sign" || modelData === "point" ? 30 : Theme.titleSize
                icon: modelData === "erase" ? "backspace" : ""
                text: figure ? modelData
                    : modelData === "clear" ? "C"
                    : modelData === "sign" ? "±"
                    : modelData === "point" ? "." : ""
                enabled: modelData === "sign" ? dialog.signed : modelData === "point" ? dialog.decimals > 0 : true
                onClicked: {
                    if (figure)
                        dialog.digit(modelData)
                    else if (modelData === "erase")
                        dialog.erase()
                    else if (modelData === "clear")
                        dialog.clear()
                    else if (modelData === "sign")
                        dialog.changeSign()
                    else
                        dialog.point()
                }
            }
        }
    }
    DialogKey {
        objectName: "numericEnter"
        anchors.right: keys.right
        anchors.bottom: keys.bottom
        width: 2 * keys.keyWidth + keys.spacing
        height: keys.keyHeight
        main: true
        enabled: dialog.text.length > 0
        text: qsTr("OK")
        onClicked: dialog.enter()
    }
}
