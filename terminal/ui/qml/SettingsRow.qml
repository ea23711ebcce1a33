// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// A setting: its text, its value, and what a tap does to it.
Rectangle {
    id: row

    property string kind
    property string text
    property string valueText
    property string unit
    property bool checked: false
    property bool changeable: true
    property bool hasHelp: false
    readonly property color ink: changeable ? Theme.ink : Theme.inkFaint

    signal pressed()
    signal helpRequested()

    implicitHeight: 72
    color: area.pressed && changeable ? Theme.line : Theme.display

    Rectangle {
        y: parent.height - 1
        width: parent.width
        height: 1
        color: Theme.line
    }
    Text {
        objectName: "settingText"
        anchors.left: parent.left
        anchors.leftMargin: Theme.margin
        anchors.right: values.left
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        text: row.text
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        maximumLineCount: 2
        elide: Text.ElideRight
        font.pixelSize: Theme.titleSize
        color: row.ink
    }
    Row {
        id: values
        anchors.right: mark.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.unit

        Text {
            objectName: "settingValue"
            anchors.baseline: unitText.baseline
            width: Math.min(implicitWidth, 440)
            text: row.kind === "bool" ? "" : row.valueText
            textFormat: Text.PlainText
            elide: Text.ElideRight
            font.pixelSize: Theme.titleSize
            font.weight: Font.Medium
            color: row.changeable ? Theme.accent : Theme.inkFaint
        }
        Text {
            id: unitText
            objectName: "settingUnit"
            text: row.unit
            textFormat: Text.PlainText
            font.pixelSize: Theme.titleSize
            color: row.changeable ? Theme.inkSoft : Theme.inkFaint
        }
    }
    Item {
        id: mark
        anchors.right: help.left
        width: 64
        height: parent.height

        // A yes/no.
        Rectangle {
            objectName: "settingSwitch"
            readonly property bool on: row.checked
            visible: row.kind === "bool"
            anchors.centerIn: parent
            width: 64
            height: 36
            radius: 18
            opacity: row.changeable ? 1 : 0.4
            color: row.checked ? Theme.accent : Theme.inkFaint

            Rectangle {
                x: row.checked ? parent.width - width - 4 : 4
                y: 4
                width: 28
                height: 28
                radius: 14
                color: "white"
            }
        }
        Icon {
            visible: row.kind !== "bool" && row.changeable
            anchors.right: parent.right
            anchors.rightMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            name: "next"
            size: 26
            color: row.kind === "menu" || row.kind === "command" ? Theme.ink : Theme.inkFaint
        }
    }
    MouseArea {
        id: area
        anchors.left: parent.left
        anchors.right: help.left
        height: parent.height
        onClicked: if (row.changeable) row.pressed()
    }
    Item {
        id: help
        anchors.right: parent.right
        width: 80
        height: parent.height

        Icon {
            visible: row.hasHelp
            anchors.centerIn: parent
            name: "info"
            size: 30
            color: Theme.accent
        }
        MouseArea {
            objectName: "settingHelp"
            visible: row.hasHelp
            anchors.fill: parent
            onClicked: row.helpRequested()
        }
    }
}
