// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// The list from which the person chooses the application. A tap beside it closes it.
Item {
    id: menu

    function open() { visible = true }

    visible: false

    MouseArea {
        anchors.fill: parent
        onClicked: menu.visible = false
    }
    Rectangle {
        width: 400
        height: list.height + 2 * Theme.unit
        color: Theme.frame

        ListView {
            id: list
            objectName: "applicationList"
            y: Theme.unit
            width: parent.width
            height: Math.min(contentHeight, 6 * 64)
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            model: instrument.plugins

            delegate: Rectangle {
                width: list.width
                height: 64
                color: choice.pressed ? Theme.keyPressed : modelData.active ? Theme.key : "transparent"

                Rectangle {
                    visible: modelData.active
                    width: 4
                    height: parent.height
                    color: Theme.accentLit
                }
                Image {
                    id: picture
                    x: 20
                    anchors.verticalCenter: parent.verticalCenter
                    width: 28
                    height: 28
                    sourceSize: Qt.size(28, 28)
                    source: modelData.icon
                    fillMode: Image.PreserveAspectFit
                }
                Icon {
                    visible: picture.status !== Image.Ready
                    x: 20
                    anchors.verticalCenter: parent.verticalCenter
                    name: "application"
                    size: 28
                    strokeWidth: 1.6
                    color: Theme.onFrameSoft
                }
                Text {
                    anchors.left: parent.left
                    anchors.leftMargin: 60
                    anchors.right: parent.right
                    anchors.rightMargin: 16
                    anchors.verticalCenter: parent.verticalCenter
                    text: modelData.name
                    elide: Text.ElideRight
                    font.pixelSize: Theme.titleSize
                    color: Theme.onFrame
                }
                MouseArea {
                    id: choice
                    anchors.fill: parent
                    onClicked: {
                        menu.visible = false
                        instrument.pluginSelected(index)
                    }
                }
            }
        }
    }
}
