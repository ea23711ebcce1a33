// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// A key of the action bar.
Rectangle {
    id: key

    property string text
    property string icon
    property bool toggle: false
    property int toggleIndex: 0
    property int maxToggleIndex: 0
    readonly property bool on: toggle && toggleIndex > 0

    signal pressed()

    implicitWidth: 120
    implicitHeight: 80
    radius: Theme.radius
    color: !enabled ? Theme.keyDisabled : area.pressed ? Theme.keyPressed : Theme.key

    Icon {
        id: picture
        visible: key.icon.length > 0
        anchors.horizontalCenter: parent.horizontalCenter
        y: 12
        name: key.icon
        size: 28
        color: key.enabled ? Theme.frameInk : Theme.frameInkFaint
    }
    Text {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: 6
        anchors.top: key.icon.length > 0 ? picture.bottom : parent.top
        anchors.bottom: parent.bottom
        anchors.topMargin: key.icon.length > 0 ? 0 : key.toggle ? 4 : Theme.unit
        anchors.bottomMargin: key.toggle ? 20 : Theme.unit
        text: key.text
        textFormat: Text.PlainText
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.Wrap
        maximumLineCount: key.toggle || key.icon.length > 0 ? 2 : 3
        elide: Text.ElideRight
        font.pixelSize: Theme.bodySize
        font.weight: Font.Medium
        color: key.enabled ? Theme.frameInk : Theme.frameInkFaint
    }

    // The state of a toggle key: a lamp for on and off, otherwise one pip per state.
    Row {
        visible: key.toggle
        anchors.horizontalCenter: parent.horizontalCenter
        y: parent.height - 16
        spacing: 6

        Repeater {
            model: !key.toggle ? 0 : key.maxToggleIndex > 1 ? Math.min(key.maxToggleIndex + 1, 8) : 1
            Rectangle {
                readonly property bool lit: key.maxToggleIndex > 1 ? index === key.toggleIndex : key.on
                width: key.maxToggleIndex > 1 ? 8 : 40
                height: key.maxToggleIndex > 1 ? 8 : 6
                radius: height / 2
                color: lit ? (key.enabled ? Theme.accentLit : Theme.frameInkFaint) : Theme.frame
            }
        }
    }

    MouseArea {
        id: area
        anchors.fill: parent
        onClicked: key.pressed()
    }
}
