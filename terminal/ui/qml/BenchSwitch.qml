// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// A switch that shows a state; touching it only asks for the other one.
Item {
    id: control

    property string title
    property bool checked: false

    signal toggled()

    implicitHeight: 36
    opacity: enabled ? 1 : 0.4

    Text {
        anchors.left: parent.left
        anchors.right: slot.left
        anchors.rightMargin: Theme.unit
        anchors.verticalCenter: parent.verticalCenter
        text: control.title
        elide: Text.ElideRight
        font.pixelSize: Theme.bodySize
        color: Theme.ink
    }
    Rectangle {
        id: slot
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        width: 48
        height: 28
        radius: 14
        color: control.checked ? Theme.accent : Theme.benchLine

        Rectangle {
            x: control.checked ? parent.width - width - 3 : 3
            y: 3
            width: 22
            height: 22
            radius: 11
            color: "white"
        }
    }
    MouseArea {
        anchors.fill: parent
        onClicked: control.toggled()
    }
}
