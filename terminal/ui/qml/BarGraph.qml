// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// Use of the weighing range, in per cent.
Item {
    id: graph

    property int value: 0
    readonly property bool exceeded: value > 100

    implicitHeight: 16

    Rectangle {
        id: track
        width: parent.width
        height: 8
        radius: 2
        color: Theme.line

        Rectangle {
            width: parent.width * Math.max(0, Math.min(100, graph.value)) / 100
            height: parent.height
            radius: 2
            color: graph.exceeded ? Theme.error : Theme.accent
        }
    }
    Repeater {
        model: 5
        Rectangle {
            x: Math.min(Math.round(graph.width * index / 4), graph.width - width)
            y: 11
            width: 2
            height: index % 2 ? 3 : 5
            color: Theme.inkFaint
        }
    }
}
