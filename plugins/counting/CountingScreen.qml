// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15

// Shown in the terminal's application area, below the main display; the host gives it its size. The view model is there
// as "counting". Piece weight and reference stand in the info lines beside it.
Item {
    id: screen

    readonly property color ink: "#11191C"
    readonly property color inkSoft: "#49565B"
    readonly property color line: "#8E9A9D"
    readonly property color accent: "#0B6B7A"
    // By the view model's Kind.
    readonly property var kindColors: ["#8E9A9D", "#F4B63C", "#1E8E50", "#B3261E"]

    component Key: Rectangle {
        id: key
        property alias text: keyText.text
        property bool chosen: false
        signal pressed()

        width: 60
        height: 60
        radius: 8
        color: !enabled ? "transparent" : keyArea.pressed ? screen.line : "#FFFFFF"
        border.width: chosen ? 3 : 1
        border.color: chosen ? screen.accent : screen.line

        Text {
            id: keyText
            anchors.centerIn: parent
            width: parent.width - 8
            horizontalAlignment: Text.AlignHCenter
            elide: Text.ElideRight
            font.pixelSize: text.length > 3 ? 18 : 22
            color: key.enabled ? screen.ink : screen.line
        }
        MouseArea {
            id: keyArea
            anchors.fill: parent
            onClicked: key.pressed()
        }
    }

    // A value with its title; a tap opens the number pad.
    component Field: Rectangle {
        id: field
        property int setting
        property bool chosen: false

        objectName: "field" + setting
        height: 60
        radius: 8
        color: fieldArea.pressed ? screen.line : "#FFFFFF"
        border.width: chosen ? 3 : 1
        border.color: chosen ? screen.accent : screen.line

        Text {
            x: 12
            y: 7
            width: parent.width - 24
            text: counting.fields[field.setting].title
            elide: Text.ElideRight
            font.pixelSize: 15
            color: screen.inkSoft
        }
        Text {
            x: 12
            y: 26
            width: parent.width - 24
            horizontalAlignment: Text.AlignRight
            text: counting.fields[field.setting].text
            font.pixelSize: 22
            color: screen.ink
        }
        MouseArea {
            id: fieldArea
            anchors.fill: parent
            onClicked: counting.openEntry(field.setting)
        }
    }

    Item {
        id: values
        objectName: "values"
        visible: !counting.editing
        x: 24
        width: screen.width - 48
        height: screen.height

        Row {
            id: presets
            y: 8
            spacing: 8
            Repeater {
                model: counting.presets
                Key {
                    objectName: "preset" + modelData
                    width: 72
                    text: modelData
                    chosen: counting.parts === modelData
                    onPressed: counting.chooseParts(modelData)
                }
            }
        }
        Field {
            anchors.left: presets.right
            anchors.leftMargin: 8
            anchors.right: parent.right
            y: 8
            setting: 0
            chosen: counting.presets.indexOf(counting.parts) < 0
        }

        Field {
            id: target
            y: 76
            width: 192
            setting: 1
        }
        Field {
            id: tolerance
            anchors.left: target.right
            anchors.leftMargin: 8
            y: 76
            width: 152
            setting: 2
        }
        Rectangle {
            objectName: "check"
            anchors.left: tolerance.right
            anchors.leftMargin: 8
            anchors.right: parent.right
            y: 76
            height: 60
            radius: 8
            visible: counting.checkText !== ""
            color: screen.kindColors[counting.checkKind]

            Text {
                objectName: "checkText"
                anchors.centerIn: parent
                width: parent.width - 24
                horizontalAlignment: Text.AlignHCenter
                text: counting.checkText
                elide: Text.ElideRight
                font.pixelSize: 26
                // Dark on amber, white on green and red.
                color: counting.checkKind === 1 ? screen.ink : "#FFFFFF"
            }
        }

        Rectangle {
            anchors.verticalCenter: message.verticalCenter
            width: 12
            height: 12
            radius: 6
            color: screen.kindColors[counting.stateKind]
        }
        Text {
            id: message
            objectName: "message"
            x: 24
            y: 140
            width: parent.width - 24
            height: 64
            verticalAlignment: Text.AlignVCenter
            text: counting.stateText
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            maximumLineCount: 3
            elide: Text.ElideRight
            lineHeight: 21
            lineHeightMode: Text.FixedHeight
            font.pixelSize: 18
            color: screen.ink
        }
    }

    Item {
        id: pad
        objectName: "pad"

        readonly property bool wrong: counting.entry !== "" && !counting.entryAcceptable

        visible: counting.editing
        x: 24
        width: screen.width - 48
        height: screen.height

        Column {
            y: 8
            width: entry.x - 8
            Text {
                width: parent.width
                text: counting.fields[counting.selected].title
                elide: Text.ElideRight
                font.pixelSize: 22
                color: screen.ink
            }
            Text {
                objectName: "range"
                width: parent.width
                text: pad.wrong ? qsTr("Only %1").arg(counting.rangeText) : counting.rangeText
                elide: Text.ElideRight
                font.pixelSize: 15
                color: pad.wrong ? "#B3261E" : screen.inkSoft
            }
        }
        Rectangle {
            id: entry
            anchors.right: cancel.left
            anchors.rightMargin: 8
            y: 8
            width: 176
            height: 60
            radius: 8
            color: "#FFFFFF"
            border.width: 3
            border.color: pad.wrong ? "#B3261E" : screen.accent

            Text {
                objectName: "entry"
                anchors.right: parent.right
                anchors.rightMargin: 12
                anchors.verticalCenter: parent.verticalCenter
                text: counting.entry !== "" ? counting.entry : counting.fields[counting.selected].text
                font.pixelSize: 26
                color: counting.entry !== "" ? screen.ink : screen.line
            }
        }
        Key {
            id: cancel
            objectName: "cancel"
            anchors.right: accept.left
            anchors.rightMargin: 8
            y: 8
            width: 104
            text: qsTr("Cancel")
            onPressed: counting.cancelEntry()
        }
        Key {
            id: accept
            objectName: "accept"
            anchors.right: parent.right
            y: 8
            width: 104
            text: qsTr("OK")
            enabled: counting.entryAcceptable
            onPressed: counting.acceptEntry()
        }
        Grid {
            y: 76
            columns: 6
            spacing: 6
            Repeater {
                model: ["1", "2", "3", "4", "5", "<", "6", "7", "8", "9", "0"]
                Key {
                    objectName: "key" + modelData
                    width: (pad.width - 5 * 6) / 6
                    text: modelData === "<" ? qsTr("Delete") : modelData
                    onPressed: counting.type(modelData)
                }
            }
        }
    }
}
