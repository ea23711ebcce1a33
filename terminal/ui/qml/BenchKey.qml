// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// A key on the bench.
Rectangle {
    id: key

    property string text
    property int textSize: Theme.bodySize
    property color ground: Theme.benchKey
    property color groundPressed: Theme.benchKeyPressed
    property color foreground: Theme.ink

    signal clicked()

    implicitWidth: label.implicitWidth + 32
    implicitHeight: 40
    radius: Theme.radius
    color: area.pressed ? groundPressed : ground

    Text {
        id: label
        anchors.centerIn: parent
        width: Math.min(implicitWidth, parent.width - 8)
        text: key.text
        elide: Text.ElideRight
        font.pixelSize: key.textSize
        font.weight: Font.Medium
        color: key.enabled ? key.foreground : Theme.inkFaint
    }
    MouseArea {
        id: area
        anchors.fill: parent
        onClicked: key.clicked()
    }
}
