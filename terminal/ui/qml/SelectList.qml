// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// A list from which one entry is chosen: objects with the properties of SelectListItem. A protected entry bears a
// lock; whether it can be chosen is up to whoever shows the list. Which entry is the selected one the program says.
ListView {
    id: list

    // In the order in which they are shown.
    property var items: []
    property bool protectedChoosable: true

    signal chosen(int index)

    clip: true
    boundsBehavior: Flickable.StopAtBounds
    model: items

    // The selected entry is in sight from the start.
    Component.onCompleted: {
        for (var i = 0; i < items.length; ++i) {
            if (items[i] && items[i].selected)
                positionViewAtIndex(i, ListView.Contain)
        }
    }

    delegate: Rectangle {
        id: row
        objectName: "selectListRow:" + index
        readonly property QtObject entry: modelData
        readonly property bool selected: entry ? entry.selected : false
        readonly property bool isProtected: entry ? entry.isProtected : false
        readonly property bool choosable: !isProtected || list.protectedChoosable

        width: list.width
        height: information.visible ? 72 : 64
        color: area.pressed && choosable ? Theme.line : selected ? "#D8E9EA" : "transparent"

        Rectangle {
            y: parent.height - 1
            width: parent.width
            height: 1
            color: Theme.line
        }
        Icon {
            objectName: "selectListMark"
            visible: row.selected
            x: 12
            anchors.verticalCenter: parent.verticalCenter
            name: "check"
            size: 26
            strokeWidth: 2.6
            color: Theme.accent
        }
        Column {
            anchors.left: parent.left
            anchors.leftMargin: 52
            anchors.right: date.left
            anchors.rightMargin: 12
            anchors.verticalCenter: parent.verticalCenter

            Text {
                objectName: "selectListName"
                width: parent.width
                text: row.entry ? row.entry.name : ""
                textFormat: Text.PlainText
                elide: Text.ElideRight
                font.pixelSize: Theme.titleSize
                font.weight: row.selected ? Font.Medium : Font.Normal
                color: row.choosable ? Theme.ink : Theme.inkFaint
            }
            Text {
                id: information
                objectName: "selectListInformation"
                visible: text.length > 0
                width: parent.width
                text: row.entry ? row.entry.additionalInformation : ""
                textFormat: Text.PlainText
                elide: Text.ElideRight
                font.pixelSize: Theme.captionSize
                color: Theme.inkSoft
            }
        }
        Text {
            id: date
            objectName: "selectListDate"
            anchors.right: lock.visible ? lock.left : parent.right
            anchors.rightMargin: 16
            anchors.verticalCenter: parent.verticalCenter
            text: row.entry ? row.entry.date : ""
            textFormat: Text.PlainText
            font.pixelSize: Theme.bodySize
            color: Theme.inkSoft
        }
        Icon {
            id: lock
            objectName: "selectListLock"
            visible: row.isProtected
            anchors.right: parent.right
            anchors.rightMargin: 16
            anchors.verticalCenter: parent.verticalCenter
            name: "lock"
            size: 24
            color: Theme.inkSoft
        }
        MouseArea {
            id: area
            anchors.fill: parent
            onClicked: if (row.choosable) list.chosen(index)
        }
    }
}
