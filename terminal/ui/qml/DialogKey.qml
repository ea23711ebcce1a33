// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// A key of a dialog, with a text or an icon.
Rectangle {
    id: key

    property string text
    property string icon
    // Whether it is what the dialog is about: it stands out.
    property bool main: false
    property int textSize: Theme.titleSize
    readonly property color ink: !enabled ? Theme.inkFaint : main ? "white" : Theme.ink

    signal clicked()

    implicitWidth: Math.max(120, label.implicitWidth + 32)
    implicitHeight: 64
    radius: Theme.radius
    border.width: main ? 0 : 1
    border.color: Theme.line
    color: !enabled ? Theme.field
         : main ? (area.pressed ? Qt.darker(Theme.accent, 1.2) : Theme.accent)
                : (area.pressed ? Theme.line : "white")

    Icon {
        visible: key.icon.length > 0
        anchors.centerIn: parent
        name: key.icon
        size: 28
        color: key.ink
    }
    Text {
        id: label
        anchors.centerIn: parent
        width: Math.min(implicitWidth, parent.width - 16)
        text: key.text
        textFormat: Text.PlainText
        elide: Text.ElideRight
        font.pixelSize: key.textSize
        font.weight: Font.Medium
        color: key.ink
    }
    MouseArea {
        id: area
        anchors.fill: parent
        onClicked: key.clicked()
    }
}
