// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15

// Shown in the terminal's application area, below the main display; the host gives it its size. The view model is there
// as "density". The results stand in the info lines beside it.
Item {
    id: screen

    readonly property color ink: "#11191C"
    readonly property color inkSoft: "#49565B"
    readonly property color line: "#8E9A9D"
    readonly property color accent: "#0B6B7A"

    component Key: Rectangle {
        id: key
        property alias text: keyText.text
        signal pressed()

        width: 60
        height: 60
        radius: 8
        color: !enabled ? "transparent" : keyArea.pressed ? screen.line : "#FFFFFF"
        border.width: 1
        border.color: screen.line

        Text {
            id: keyText
            anchors.centerIn: parent
            width: parent.width - 8
            horizontalAlignment: Text.AlignHCenter
            elide: Text.ElideRight
            font.pixelSize: text.length > 1 ? 18 : 26
            color: key.enabled ? screen.ink : screen.line
        }
        MouseArea {
            id: keyArea
            anchors.fill: parent
            onClicked: key.pressed()
        }
    }

    // The values; a tap selects one, a second tap opens the number pad.
    Row {
        objectName: "values"
        visible: !density.editing
        x: 24
        y: 12
        spacing: 8

        Repeater {
            model: density.fields.length
            Rectangle {
                objectName: "field" + index
                readonly property var field: density.fields[index]
                readonly property bool chosen: index === density.selected
                width: (screen.width - 48 - 4 * 8) / 5
                height: 104
                radius: 8
                color: chosen ? "#FFFFFF" : "transparent"
                border.width: chosen ? 3 : 1
                border.color: chosen ? screen.accent : screen.line

                Column {
                    anchors.centerIn: parent
                    width: parent.width - 12
                    spacing: 2
                    Text {
                        width: parent.width
                        horizontalAlignment: Text.AlignHCenter
                        text: field.title
                        elide: Text.ElideRight
                        font.pixelSize: 15
                        color: screen.inkSoft
                    }
                    Text {
                        width: parent.width
                        horizontalAlignment: Text.AlignHCenter
                        text: field.text
                        font.pixelSize: 26
                        color: screen.ink
                    }
                    Text {
                        width: parent.width
                        horizontalAlignment: Text.AlignHCenter
                        text: field.unit
                        font.pixelSize: 15
                        color: screen.inkSoft
                    }
                }
                MouseArea {
                    anchors.fill: parent
                    onClicked: parent.chosen ? density.openEntry() : density.select(index)
                }
            }
        }
    }

    Row {
        visible: !density.editing
        x: 24
        y: screen.height - 72
        spacing: 8

        Key {
            objectName: "decrease"
            text: "−"
            onPressed: density.step(-1)
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            width: 176
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            text: density.rangeText
            font.pixelSize: 15
            color: screen.inkSoft
        }
        Key {
            objectName: "increase"
            text: "+"
            onPressed: density.step(1)
        }
        Item {
            width: 8
            height: 1
        }
        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            width: 12
            height: 12
            radius: 6
            // By the view model's Kind.
            color: ["#8E9A9D", "#F4B63C", "#1E8E50", "#B3261E"][density.stateKind]
        }
        Text {
            objectName: "message"
            anchors.verticalCenter: parent.verticalCenter
            width: screen.width - 24 - 60 - 176 - 60 - 12 - 8 - 5 * 8 - 24
            text: density.stateText
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            maximumLineCount: 3
            elide: Text.ElideRight
            lineHeight: 20
            lineHeightMode: Text.FixedHeight
            font.pixelSize: 18
            color: screen.ink
        }
    }

    Item {
        id: pad
        objectName: "pad"

        readonly property bool wrong: density.entry !== "" && !density.entryAcceptable

        visible: density.editing
        x: 24
        width: screen.width - 48
        height: screen.height

        Column {
            y: 8
            width: pad.width - entry.width - 2 * cancel.width - 3 * 8
            height: 60
            Text {
                width: parent.width
                text: density.fields[density.selected].title
                elide: Text.ElideRight
                font.pixelSize: 22
                color: screen.ink
            }
            Text {
                objectName: "range"
                width: parent.width
                text: pad.wrong ? qsTr("Only %1").arg(density.rangeText) : density.rangeText
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
            width: 208
            height: 60
            radius: 8
            color: "#FFFFFF"
            border.width: 3
            border.color: pad.wrong ? "#B3261E" : screen.accent

            Text {
                id: entryUnit
                anchors.right: parent.right
                anchors.rightMargin: 12
                anchors.baseline: entryText.baseline
                text: density.fields[density.selected].unit
                font.pixelSize: 15
                color: screen.inkSoft
            }
            Text {
                id: entryText
                objectName: "entry"
                anchors.right: entryUnit.left
                anchors.rightMargin: 8
                anchors.verticalCenter: parent.verticalCenter
                text: density.entry !== "" ? density.entry : density.fields[density.selected].text
                font.pixelSize: 26
                color: density.entry !== "" ? screen.ink : screen.line
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
            onPressed: density.cancelEntry()
        }
        Key {
            id: accept
            objectName: "accept"
            anchors.right: parent.right
            y: 8
            width: 104
            text: qsTr("OK")
            enabled: density.entryAcceptable
            onPressed: density.acceptEntry()
        }
        Grid {
            y: 74
            columns: 6
            spacing: 6
            Repeater {
                model: ["1", "2", "3", "4", "5", "<", "6", "7", "8", "9", "0", "."]
                Key {
                    objectName: "key" + modelData
                    width: (pad.width - 5 * 6) / 6
                    text: modelData === "<" ? qsTr("Delete") : modelData
                    onPressed: density.type(modelData)
                }
            }
        }
    }
}
