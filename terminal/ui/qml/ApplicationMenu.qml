// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// The list from which the person chooses the application, and below it the key of the protocol menu. It lies over the application area, so that no part of the
// weight is hidden: a weight with its first figures covered is a wrong weight. A tap elsewhere closes it.
Item {
    id: menu

    function open() { visible = true }

    visible: false

    MouseArea {
        anchors.fill: parent
        onClicked: menu.visible = false
    }
    Rectangle {
        y: Theme.statusHeight + Theme.displayHeight
        width: parent.width
        height: Math.min(Theme.applicationHeight,
                         Math.ceil(applications.count / list.columns) * list.cellHeight + protocolKey.height + 2 * Theme.unit)
        color: Theme.frame

        Flickable {
            id: list
            objectName: "applicationList"
            readonly property int columns: 3
            readonly property int cellWidth: Math.floor(width / columns)
            readonly property int cellHeight: 64 + Theme.unit
            anchors.fill: parent
            anchors.leftMargin: Theme.unit
            anchors.topMargin: Theme.unit
            anchors.bottomMargin: protocolKey.height + Theme.unit
            contentHeight: grid.height
            flickableDirection: Flickable.VerticalFlick
            clip: true
            boundsBehavior: Flickable.StopAtBounds

            // As in ShortList: no GridView.
            Grid {
                id: grid
                columns: list.columns
                spacing: Theme.unit

                Repeater {
                    id: applications
                    model: instrument.plugins

                    ApplicationKey {
                        objectName: "application:" + modelData.id
                        width: list.cellWidth - Theme.unit
                        height: list.cellHeight - Theme.unit
                        ground: Theme.key
                        radius: Theme.radius
                        picture: modelData.icon
                        text: modelData.name
                        fontWeight: modelData.active ? Font.Medium : Font.Normal
                        onClicked: {
                            menu.visible = false
                            instrument.pluginSelected(index)
                        }

                        Rectangle {
                            visible: modelData.active
                            y: 16
                            width: 4
                            height: parent.height - 32
                            radius: 2
                            color: Theme.accentLit
                        }
                    }
                }
            }
        }
        ScrollMark {
            target: list
        }

        Rectangle {
            id: protocolKey
            objectName: "protocolKey"
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            anchors.margins: Theme.unit
            height: 56
            radius: Theme.radius
            color: protocolArea.pressed ? Theme.keyPressed : "transparent"
            border.color: Theme.frameLine

            Icon {
                x: 20
                anchors.verticalCenter: parent.verticalCenter
                name: "print"
                size: 28
                color: Theme.frameInk
            }
            Text {
                x: 60
                anchors.verticalCenter: parent.verticalCenter
                text: qsTr("Protocol…")
                font.pixelSize: Theme.titleSize
                color: Theme.frameInk
            }
            MouseArea {
                id: protocolArea
                anchors.fill: parent
                onClicked: {
                    menu.visible = false
                    instrument.protocol.open = true
                }
            }
        }
    }
}
