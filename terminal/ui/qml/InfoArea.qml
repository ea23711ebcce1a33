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
    ShortList {
        id: list
        anchors.fill: parent
        anchors.topMargin: Theme.unit
        anchors.bottomMargin: Theme.unit
        anchors.leftMargin: 16
        anchors.rightMargin: 8
        model: area.items

        delegate: Item {
            id: row
            readonly property QtObject info: modelData
            readonly property int lineHeight: 3 * Theme.unit
            // A line, a value with an icon, or a value with a title that can be hidden.
            readonly property bool isLine: info ? info.itemGroupTitle !== undefined : false
            readonly property bool isIcon: info ? info.image !== undefined : false
            readonly property bool shown: isLine || isIcon || (info ? info.isVisible === true : false)

            readonly property string group: isLine ? info.itemGroupTitle : ""
            // A line tells that its title is another one by the signal of its group.
            readonly property string title: isLine ? (info.itemGroupTitle, info.itemValueTitle)
                                          : info && info.info !== undefined ? info.info : ""
            readonly property string amount: isLine ? info.itemValue : info && info.value !== undefined ? info.value : ""
            readonly property string unit: info && info.unit !== undefined ? info.unit : ""
            readonly property string image: isIcon ? info.image : ""
            readonly property bool bold: isLine && info.isGroupTitleBold
            readonly property bool rightAligned: isLine ? info.isItemValueRightAligned : !isIcon
            readonly property bool invalid: isLine && info.isItemValueInvalid

            readonly property bool hasGroup: group.length > 0
            readonly property bool hasValue: shown
                                             && row.title.length + amount.length + unit.length + image.length > 0

            objectName: "infoLine:" + index
            width: list.width
            // A group stands off from the lines before it.
            readonly property int gap: hasGroup && index > 0 ? Theme.unit : 0
            height: gap + (hasGroup ? lineHeight : 0) + (hasValue ? lineHeight : 0)

            Text {
                objectName: "infoGroup"
                visible: row.hasGroup
                y: row.gap
                width: parent.width - 16
                height: row.lineHeight
                verticalAlignment: Text.AlignVCenter
                text: row.group
                elide: Text.ElideRight
                font.pixelSize: Theme.bodySize
                font.weight: row.bold ? Font.Bold : Font.Normal
                color: Theme.ink
            }
            Item {
                visible: row.hasValue
                y: row.gap + (row.hasGroup ? row.lineHeight : 0)
                width: parent.width - 16
                height: row.lineHeight

                Image {
                    id: picture
                    objectName: "infoImage"
                    visible: row.image.length > 0
                    width: visible ? 22 : 0
                    height: 22
                    anchors.verticalCenter: parent.verticalCenter
                    sourceSize: Qt.size(22, 22)
                    source: row.image.charAt(0) === ":" ? "qrc" + row.image : row.image
                    fillMode: Image.PreserveAspectFit
                }
                Text {
                    id: title
                    objectName: "infoTitle"
                    anchors.left: picture.right
                    width: Math.min(implicitWidth, parent.width * 0.6)
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    text: row.title
                    elide: Text.ElideRight
                    font.pixelSize: Theme.bodySize
                    color: Theme.inkSoft
                }
                Icon {
                    objectName: "infoInvalid"
                    visible: row.invalid
                    x: row.rightAligned ? value.x + value.width - value.contentWidth - width - 6
                                        : value.x - width - 6
                    anchors.verticalCenter: parent.verticalCenter
                    name: "warning"
                    size: 18
                    color: Theme.error
                }
                Text {
                    id: value
                    objectName: "infoValue"
                    readonly property int iconSpace: row.invalid ? 24 : 0
                    anchors.left: title.right
                    anchors.leftMargin: (title.text.length > 0 || picture.visible ? 12 : 0) + iconSpace
                    anchors.right: parent.right
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    horizontalAlignment: row.rightAligned ? Text.AlignRight : Text.AlignLeft
                    text: row.unit.length > 0 ? row.amount + " " + row.unit : row.amount
                    elide: Text.ElideRight
                    font.pixelSize: Theme.bodySize
                    font.weight: Font.Medium
                    color: row.invalid ? Theme.error : Theme.ink
                }
            }
        }
    }
    ScrollMark {
        target: list
    }
}
