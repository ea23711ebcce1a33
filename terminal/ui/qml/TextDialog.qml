// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// Asks for a line of text, which is typed on a keyboard.
Rectangle {
    id: dialog

    property string title
    // What is there at first.
    property string value
    // Why the entry was refused; empty when it was not.
    property string error
    property int maximumLength: 80
    property alias text: input.text

    signal entered(string text)
    signal cancelled()
    signal edited()

    onValueChanged: input.text = value
    Component.onCompleted: {
        input.text = value
        input.selectAll()
        input.forceActiveFocus()
    }

    implicitWidth: 640
    implicitHeight: 272
    radius: Theme.radius
    color: Theme.display

    MouseArea {
        anchors.fill: parent
    }
    Text {
        id: heading
        objectName: "textTitle"
        x: Theme.margin
        y: Theme.margin
        width: parent.width - 2 * Theme.margin
        text: dialog.title
        textFormat: Text.PlainText
        elide: Text.ElideRight
        font.pixelSize: Theme.titleSize
        font.weight: Font.Medium
        color: Theme.ink
    }
    Rectangle {
        id: field
        x: Theme.margin
        anchors.top: heading.bottom
        anchors.topMargin: 16
        width: heading.width
        height: 64
        radius: Theme.radius
        color: "white"
        border.width: 2
        border.color: dialog.error.length > 0 ? Theme.error : Theme.accent

        TextInput {
            id: input
            objectName: "textInput"
            anchors.fill: parent
            anchors.leftMargin: 16
            anchors.rightMargin: 16
            verticalAlignment: TextInput.AlignVCenter
            clip: true
            maximumLength: dialog.maximumLength
            font.pixelSize: Theme.titleSize
            color: Theme.ink
            selectionColor: Theme.accent
            selectedTextColor: "white"
            // It does not blink, so that every picture of it is the same.
            cursorDelegate: Rectangle {
                width: 2
                color: Theme.accent
            }
            onTextEdited: dialog.edited()
            onAccepted: dialog.entered(text)
            Keys.onEscapePressed: dialog.cancelled()
        }
    }
    Text {
        objectName: "textError"
        x: Theme.margin
        anchors.top: field.bottom
        anchors.topMargin: 8
        width: heading.width
        text: dialog.error
        textFormat: Text.PlainText
        elide: Text.ElideRight
        font.pixelSize: Theme.bodySize
        font.weight: Font.Medium
        color: Theme.error
    }
    Row {
        anchors.right: parent.right
        anchors.rightMargin: Theme.margin
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.margin
        spacing: Theme.unit

        DialogKey {
            objectName: "textCancel"
            width: 160
            text: qsTr("Cancel")
            onClicked: dialog.cancelled()
        }
        DialogKey {
            objectName: "textEnter"
            width: 160
            main: true
            text: qsTr("OK")
            onClicked: dialog.entered(input.text)
        }
    }
}
