// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// A warning of the scale, such as levelling required.
Rectangle {
    id: chip

    property string text
    property string icon: "warning"
    property real maximumWidth: 400

    width: Math.min(implicitWidth, maximumWidth)
    implicitWidth: label.implicitWidth + 24 + 8 + 12 + 16
    implicitHeight: 36
    radius: Theme.radius
    color: Theme.attention

    Icon {
        id: mark
        x: 12
        anchors.verticalCenter: parent.verticalCenter
        name: chip.icon
        size: 24
        color: Theme.ink
    }
    Text {
        id: label
        anchors.left: mark.right
        anchors.leftMargin: 8
        anchors.right: parent.right
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        text: chip.text
        elide: Text.ElideRight
        font.pixelSize: Theme.bodySize
        font.weight: Font.Medium
        color: Theme.ink
    }
}
