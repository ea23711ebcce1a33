// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// A key that goes on to the next of several choices.
Rectangle {
    id: key

    signal clicked()

    width: 64
    height: 64
    anchors.verticalCenter: parent.verticalCenter
    radius: Theme.radius
    color: area.pressed ? Theme.keyPressed : Theme.key

    Icon {
        anchors.centerIn: parent
        name: "next"
        size: 28
        color: Theme.frameInk
    }
    MouseArea {
        id: area
        anchors.fill: parent
        onClicked: key.clicked()
    }
}
