// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// A value that is dragged. The handle follows the value; moving it only asks for another one.
Item {
    id: slider

    property string title
    property string valueText
    property real minimum: 0
    property real maximum: 1
    property real step: 0.1
    property real value: 0
    readonly property real origin: Math.max(minimum, Math.min(0, maximum))

    signal moved(real target)

    function position(number) {
        return (track.width - handle.width) * (number - minimum) / (maximum - minimum)
    }

    implicitHeight: 56

    Text {
        text: slider.title
        font.pixelSize: Theme.captionSize
        color: Theme.inkSoft
    }
    Text {
        objectName: "valueText"
        anchors.right: parent.right
        text: slider.valueText
        font.pixelSize: Theme.captionSize
        font.weight: Font.Medium
        color: Theme.ink
    }
    Item {
        id: track
        y: 24
        width: parent.width
        height: 28

        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width
            height: 4
            radius: 2
            color: Theme.benchLine
        }
        Rectangle {
            readonly property real from: slider.position(slider.origin) + handle.width / 2
            readonly property real to: handle.x + handle.width / 2
            anchors.verticalCenter: parent.verticalCenter
            x: Math.min(from, to)
            width: Math.abs(to - from)
            height: 4
            color: Theme.accent
        }
        Rectangle {
            id: handle
            anchors.verticalCenter: parent.verticalCenter
            x: Math.round(slider.position(slider.value))
            width: 24
            height: 24
            radius: 12
            color: Theme.benchKey
            border.width: 2
            border.color: area.pressed ? Theme.accent : Theme.inkSoft
        }
        MouseArea {
            id: area
            anchors.fill: parent
            preventStealing: true
            function ask(x) {
                var part = (x - handle.width / 2) / (track.width - handle.width)
                var target = slider.minimum + Math.max(0, Math.min(1, part)) * (slider.maximum - slider.minimum)
                slider.moved(Math.round(target / slider.step) / Math.round(1 / slider.step))
            }
            onPressed: ask(mouse.x)
            onPositionChanged: ask(mouse.x)
        }
    }
}
