// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// A number on the bench that goes up and down by keys.
Item {
    id: control

    property string title
    property string valueText
    property bool lowest: false
    property bool highest: false

    signal stepped(bool up)

    implicitHeight: 40
    opacity: enabled ? 1 : 0.4

    Text {
        anchors.left: parent.left
        anchors.right: minus.left
        anchors.rightMargin: Theme.unit
        anchors.verticalCenter: parent.verticalCenter
        text: control.title
        elide: Text.ElideRight
        font.pixelSize: Theme.bodySize
        color: Theme.ink
    }
    BenchKey {
        id: minus
        objectName: "less"
        anchors.right: value.left
        width: 44
        height: parent.height
        text: "\u2212"
        textSize: Theme.titleSize
        enabled: !control.lowest
        onClicked: control.stepped(false)
    }
    Text {
        id: value
        anchors.right: plus.left
        width: 60
        height: parent.height
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        text: control.valueText
        font.pixelSize: Theme.bodySize
        font.weight: Font.Medium
        color: Theme.ink
    }
    BenchKey {
        id: plus
        objectName: "more"
        anchors.right: parent.right
        width: 44
        height: parent.height
        text: "+"
        textSize: Theme.titleSize
        enabled: !control.highest
        onClicked: control.stepped(true)
    }
}
