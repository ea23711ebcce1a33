// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// A small mark beside the value: NET, PT, coarse range, calculated.
Rectangle {
    id: tag

    property string text
    property string icon
    property bool filled: false

    implicitWidth: content.width + 20
    implicitHeight: 28
    radius: 4
    color: filled ? Theme.ink : "transparent"
    border.width: filled ? 0 : 2
    border.color: Theme.inkSoft

    Row {
        id: content
        anchors.centerIn: parent
        spacing: 6

        Icon {
            visible: tag.icon.length > 0
            anchors.verticalCenter: parent.verticalCenter
            name: tag.icon
            size: 14
            strokeWidth: 3
            color: tag.filled ? Theme.display : Theme.inkSoft
        }
        Text {
            text: tag.text
            font.pixelSize: Theme.captionSize
            font.weight: Font.Bold
            color: tag.filled ? Theme.display : Theme.inkSoft
        }
    }
}
