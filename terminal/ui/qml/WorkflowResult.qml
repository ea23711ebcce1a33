// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// A result of a workflow step: what it is, and its value with the unit.
Rectangle {
    id: field

    // An object with the properties of InfoValueUnit; null for none.
    property QtObject result: null

    readonly property bool shown: result ? result.isVisible : false

    visible: shown
    height: 76
    radius: Theme.radius
    color: Theme.display
    border.width: 1
    border.color: Theme.line

    Text {
        x: 12
        y: 8
        width: parent.width - 24
        text: field.result ? field.result.info : ""
        textFormat: Text.PlainText
        elide: Text.ElideRight
        font.pixelSize: Theme.captionSize
        color: Theme.inkSoft
    }
    Text {
        anchors.right: unit.left
        anchors.rightMargin: unit.text.length > 0 ? 8 : 0
        anchors.left: parent.left
        anchors.leftMargin: 12
        anchors.baseline: parent.bottom
        anchors.baselineOffset: -14
        text: field.result ? field.result.value : ""
        textFormat: Text.PlainText
        horizontalAlignment: Text.AlignRight
        elide: Text.ElideLeft
        font.family: Theme.displayFamily
        font.pixelSize: 32
        font.weight: Font.Medium
        color: Theme.ink
    }
    Text {
        id: unit
        anchors.right: parent.right
        anchors.rightMargin: 12
        anchors.baseline: parent.bottom
        anchors.baselineOffset: -14
        text: field.result ? field.result.unit : ""
        textFormat: Text.PlainText
        font.pixelSize: Theme.titleSize
        color: Theme.inkSoft
    }
}
