// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// Texts that say what went wrong, to be read in full: they wrap and scroll.
Item {
    id: panel

    property string title
    property var faults: []
    property int margin: Theme.margin

    Icon {
        id: mark
        x: panel.margin
        y: 16
        name: "warning"
        size: 28
        color: Theme.error
    }
    Text {
        id: heading
        anchors.left: mark.right
        anchors.leftMargin: 12
        anchors.right: parent.right
        anchors.rightMargin: panel.margin
        anchors.verticalCenter: mark.verticalCenter
        text: panel.title
        elide: Text.ElideRight
        font.pixelSize: Theme.titleSize
        font.weight: Font.Medium
        color: Theme.error
    }
    ShortList {
        id: list
        anchors.top: mark.bottom
        anchors.topMargin: 12
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.unit
        anchors.left: parent.left
        anchors.leftMargin: panel.margin
        anchors.right: parent.right
        anchors.rightMargin: panel.margin
        spacing: 12
        model: panel.faults

        delegate: Text {
            width: list.width - 12
            text: modelData
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            font.pixelSize: Theme.captionSize
            lineHeight: 1.2
            color: Theme.ink
        }
    }
    ScrollMark {
        target: list
    }
}
