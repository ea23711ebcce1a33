// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// What the protocol of the application prints, and when. It lies over the application area and the action bar, so that
// the weight stays in sight. A tap elsewhere closes it.
Item {
    id: menu

    readonly property QtObject protocol: instrument.protocol

    visible: protocol.open
    onVisibleChanged: nameDialog.active = false

    MouseArea {
        anchors.fill: parent
        onClicked: menu.protocol.open = false
    }

    Rectangle {
        id: page
        y: Theme.statusHeight + Theme.displayHeight
        width: parent.width
        height: parent.height - y
        color: Theme.field

        // Keeps taps from reaching what is beneath.
        MouseArea {
            anchors.fill: parent
        }

        ListView {
            id: list
            objectName: "protocolItems"
            anchors.left: parent.left
            anchors.right: side.left
            anchors.top: parent.top
            anchors.bottom: parent.bottom
            anchors.leftMargin: Theme.margin
            anchors.rightMargin: Theme.margin
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            model: menu.protocol

            section.property: "section"
            section.delegate: Item {
                width: list.width
                height: 36

                Text {
                    anchors.left: parent.left
                    anchors.right: parent.right
                    anchors.bottom: parent.bottom
                    anchors.bottomMargin: 4
                    text: section
                    textFormat: Text.PlainText
                    elide: Text.ElideRight
                    font.pixelSize: Theme.captionSize
                    font.weight: Font.Medium
                    color: Theme.inkSoft
                }
            }

            delegate: Rectangle {
                objectName: "protocolItem:" + model.uid
                width: list.width
                height: Math.max(44, name.implicitHeight + 16)
                color: area.pressed ? Theme.line : "transparent"

                Rectangle {
                    width: parent.width
                    height: 1
                    color: Theme.line
                }
                Rectangle {
                    id: box
                    x: 4
                    anchors.verticalCenter: parent.verticalCenter
                    width: 26
                    height: 26
                    radius: 4
                    color: model.chosen ? Theme.accent : Theme.display
                    border.width: model.chosen ? 0 : 2
                    border.color: Theme.inkFaint

                    Text {
                        visible: model.chosen
                        anchors.centerIn: parent
                        text: "✓"
                        font.pixelSize: 20
                        font.weight: Font.Bold
                        color: "white"
                    }
                }
                Text {
                    id: name
                    anchors.left: box.right
                    anchors.leftMargin: 16
                    anchors.right: model.uid === "terminal.user" ? operatorKey.left : parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    text: model.name
                    textFormat: Text.PlainText
                    wrapMode: Text.Wrap
                    font.pixelSize: Theme.bodySize
                    color: Theme.ink
                }
                MouseArea {
                    id: area
                    anchors.fill: parent
                    onClicked: menu.protocol.itemToggled(model.uid, !model.chosen)
                }
                Rectangle {
                    id: operatorKey
                    objectName: model.uid === "terminal.user" ? "operatorKey" : ""
                    visible: model.uid === "terminal.user"
                    anchors.right: parent.right
                    anchors.rightMargin: 4
                    anchors.verticalCenter: parent.verticalCenter
                    width: Math.min(parent.width / 2, operatorText.implicitWidth + 32)
                    height: 38
                    radius: Theme.radius
                    color: operatorArea.pressed ? Theme.line : Theme.display
                    border.width: 1
                    border.color: Theme.inkFaint

                    Text {
                        id: operatorText
                        objectName: "operatorName"
                        anchors.fill: parent
                        anchors.leftMargin: 16
                        anchors.rightMargin: 16
                        verticalAlignment: Text.AlignVCenter
                        horizontalAlignment: Text.AlignHCenter
                        text: menu.protocol.operatorName.length > 0 ? menu.protocol.operatorName
                                                                    : qsTr("Enter name…")
                        textFormat: Text.PlainText
                        elide: Text.ElideRight
                        font.pixelSize: Theme.bodySize
                        color: menu.protocol.operatorName.length > 0 ? Theme.ink : Theme.inkSoft
                    }
                    MouseArea {
                        id: operatorArea
                        anchors.fill: parent
                        onClicked: nameDialog.active = true
                    }
                }
            }
        }
        ScrollMark {
            target: list
        }
        Text {
            visible: list.count === 0
            anchors.centerIn: list
            text: qsTr("There is nothing to print in this part.")
            font.pixelSize: Theme.bodySize
            color: Theme.inkSoft
        }

        Rectangle {
            id: side
            anchors.right: parent.right
            width: 400
            height: parent.height
            color: Theme.frame

            Column {
                anchors.left: parent.left
                anchors.right: parent.right
                anchors.top: parent.top
                anchors.margins: Theme.unit
                spacing: 4

                Repeater {
                    model: [
                        {name: "kind", title: qsTr("Kind of protocol"), value: menu.protocol.kind},
                        {name: "part", title: qsTr("Part of the print-out"), value: menu.protocol.part},
                        {name: "trigger", title: qsTr("Started by"), value: menu.protocol.trigger}
                    ]

                    Item {
                        width: parent.width
                        height: 70

                        function step(by) {
                            if (modelData.name === "kind")
                                menu.protocol.kindStepped(by)
                            else if (modelData.name === "part")
                                menu.protocol.partStepped(by)
                            else
                                menu.protocol.triggerStepped(by)
                        }

                        StepKey {
                            objectName: "previous:" + modelData.name
                            anchors.left: parent.left
                            rotation: 180
                            onClicked: parent.step(-1)
                        }
                        Column {
                            anchors.left: parent.left
                            anchors.right: parent.right
                            anchors.leftMargin: 72
                            anchors.rightMargin: 72
                            anchors.verticalCenter: parent.verticalCenter
                            spacing: 2

                            Text {
                                width: parent.width
                                horizontalAlignment: Text.AlignHCenter
                                text: modelData.title
                                elide: Text.ElideRight
                                font.pixelSize: Theme.captionSize
                                color: Theme.frameInkSoft
                            }
                            Text {
                                objectName: "selected:" + modelData.name
                                width: parent.width
                                horizontalAlignment: Text.AlignHCenter
                                text: modelData.value
                                textFormat: Text.PlainText
                                wrapMode: Text.Wrap
                                maximumLineCount: 2
                                elide: Text.ElideRight
                                font.pixelSize: Theme.bodySize
                                font.weight: Font.Medium
                                color: Theme.frameInk
                            }
                        }
                        StepKey {
                            objectName: "next:" + modelData.name
                            anchors.right: parent.right
                            onClicked: parent.step(1)
                        }
                    }
                }
            }

            Text {
                anchors.left: parent.left
                anchors.leftMargin: 16
                anchors.right: done.left
                anchors.rightMargin: Theme.unit
                anchors.verticalCenter: done.verticalCenter
                text: qsTr("%1 of %2 chosen").arg(menu.protocol.chosenCount).arg(menu.protocol.count)
                wrapMode: Text.Wrap
                font.pixelSize: Theme.bodySize
                color: Theme.frameInkSoft
            }
            Rectangle {
                id: done
                objectName: "protocolDone"
                anchors.right: parent.right
                anchors.bottom: parent.bottom
                anchors.margins: Theme.unit
                width: 160
                height: 56
                radius: Theme.radius
                color: doneArea.pressed ? Theme.keyPressed : Theme.key

                Text {
                    anchors.centerIn: parent
                    text: qsTr("Done")
                    font.pixelSize: Theme.bodySize
                    font.weight: Font.Medium
                    color: Theme.frameInk
                }
                MouseArea {
                    id: doneArea
                    anchors.fill: parent
                    onClicked: menu.protocol.open = false
                }
            }
        }
    }

    Loader {
        id: nameDialog
        // The weight stays in sight.
        anchors.fill: page
        active: false
        sourceComponent: Rectangle {
            color: "#80000000"

            // Keeps taps from reaching what is beneath.
            MouseArea {
                anchors.fill: parent
            }
            TextDialog {
                objectName: "operatorDialog"
                anchors.centerIn: parent
                width: implicitWidth
                height: implicitHeight
                title: qsTr("Operator")
                value: menu.protocol.operatorName
                maximumLength: 60
                onEntered: {
                    menu.protocol.operatorEntered(text)
                    nameDialog.active = false
                }
                onCancelled: nameDialog.active = false
            }
        }
    }
}
