// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// A small mark beside the value: NET, PT, coarse range, calculated.
Rectangle {
    id: tag

    property string text
    property string icon
    property bool filled: false

    implicitWidth: Math.max(32, content.width + 20)
    implicitHeight: 32
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
            size: 18
            strokeWidth: 3
            color: tag.filled ? Theme.display : Theme.inkSoft
        }
        Text {
            visible: text.length > 0
            text: tag.text
            font.pixelSize: Theme.bodySize
            font.weight: Font.Bold
            color: tag.filled ? Theme.display : Theme.inkSoft
        }
    }
}
