// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// The info lines that the application or the terminal publishes.
Rectangle {
    id: area

    property var items: []

    color: Theme.display

    Rectangle {
        width: 1
        height: parent.height
        color: Theme.line
    }
    ListView {
        id: list
        anchors.fill: parent
        anchors.topMargin: Theme.unit
        anchors.bottomMargin: Theme.unit
        anchors.leftMargin: 16
        anchors.rightMargin: 8
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: area.items

        delegate: Item {
            id: row
            readonly property QtObject info: modelData
            readonly property int lineHeight: 3 * Theme.unit
            readonly property bool hasGroup: info ? info.itemGroupTitle.length > 0 : false
            readonly property bool hasValue: info ? info.itemValueTitle.length + info.itemValue.length > 0 : false

            width: list.width
            // A group stands off from the lines before it.
            readonly property int gap: hasGroup && index > 0 ? Theme.unit : 0
            height: gap + (hasGroup ? lineHeight : 0) + (hasValue ? lineHeight : 0)

            Text {
                visible: row.hasGroup
                y: row.gap
                width: parent.width - 16
                height: row.lineHeight
                verticalAlignment: Text.AlignVCenter
                text: row.info ? row.info.itemGroupTitle : ""
                elide: Text.ElideRight
                font.pixelSize: Theme.bodySize
                font.weight: row.info && row.info.isGroupTitleBold ? Font.Bold : Font.Normal
                color: Theme.ink
            }
            Item {
                visible: row.hasValue
                y: row.gap + (row.hasGroup ? row.lineHeight : 0)
                width: parent.width - 16
                height: row.lineHeight

                Text {
                    id: title
                    width: Math.min(implicitWidth, parent.width * 0.6)
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    text: row.info ? row.info.itemValueTitle : ""
                    elide: Text.ElideRight
                    font.pixelSize: Theme.bodySize
                    color: Theme.inkSoft
                }
                Icon {
                    readonly property bool atRight: row.info ? row.info.isItemValueRightAligned : false
                    visible: row.info ? row.info.isItemValueInvalid : false
                    x: atRight ? value.x + value.width - value.contentWidth - width - 6 : value.x - width - 6
                    anchors.verticalCenter: parent.verticalCenter
                    name: "warning"
                    size: 18
                    color: Theme.error
                }
                Text {
                    id: value
                    readonly property int iconSpace: row.info && row.info.isItemValueInvalid ? 24 : 0
                    anchors.left: title.right
                    anchors.leftMargin: (title.text.length > 0 ? 12 : 0) + iconSpace
                    anchors.right: parent.right
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    horizontalAlignment: row.info && row.info.isItemValueRightAligned ? Text.AlignRight
                                                                                      : Text.AlignLeft
                    text: row.info ? row.info.itemValue : ""
                    elide: Text.ElideRight
                    font.pixelSize: Theme.bodySize
                    font.weight: Font.Medium
                    color: row.info && row.info.isItemValueInvalid ? Theme.error : Theme.ink
                }
            }
        }
    }
    ScrollMark {
        target: list
    }
}
