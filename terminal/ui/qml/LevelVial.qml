// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// A round level whose bubble can be dragged.
Rectangle {
    id: vial

    readonly property real reach: (width - bubble.width) / 2 - 3

    radius: width / 2
    color: Theme.display
    border.width: 3
    border.color: Theme.inkSoft

    Rectangle {
        anchors.centerIn: parent
        width: 2 * (bench.levelRing * vial.reach) + bubble.width
        height: width
        radius: width / 2
        color: "transparent"
        border.width: 2
        border.color: bench.level ? Theme.good : Theme.error
    }
    Rectangle {
        id: bubble
        objectName: "bubble"
        x: (vial.width - width) / 2 + bench.levelX * vial.reach
        y: (vial.height - height) / 2 + bench.levelY * vial.reach
        width: 22
        height: 22
        radius: 11
        color: bench.level ? Theme.good : Theme.error
        border.width: 1
        border.color: Theme.display
    }
    MouseArea {
        anchors.fill: parent
        preventStealing: true
        function ask(x, y) {
            bench.moveBubble((x - vial.width / 2) / vial.reach, (y - vial.height / 2) / vial.reach)
        }
        onPressed: ask(mouse.x, mouse.y)
        onPositionChanged: ask(mouse.x, mouse.y)
    }
}
