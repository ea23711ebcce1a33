// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// What runs, on which scale, in which state, and when.
Rectangle {
    id: line

    signal applicationsRequested()

    color: Theme.frame

    Rectangle {
        objectName: "applicationKey"
        width: Math.max(160, Math.min(400, name.implicitWidth + 96))
        height: parent.height
        color: selector.pressed ? Theme.keyPressed : "transparent"

        Image {
            id: picture
            x: 20
            anchors.verticalCenter: parent.verticalCenter
            width: 28
            height: 28
            sourceSize: Qt.size(28, 28)
            source: instrument.activePluginIcon
            fillMode: Image.PreserveAspectFit
        }
        Icon {
            visible: picture.status !== Image.Ready
            x: 20
            anchors.verticalCenter: parent.verticalCenter
            name: "application"
            size: 28
            strokeWidth: 1.6
            color: Theme.onFrameSoft
        }
        Text {
            id: name
            objectName: "applicationName"
            anchors.left: parent.left
            anchors.leftMargin: 60
            anchors.right: chevron.left
            anchors.rightMargin: Theme.unit
            anchors.verticalCenter: parent.verticalCenter
            text: instrument.pluginActive ? instrument.activePluginName : qsTr("No application")
            elide: Text.ElideRight
            font.pixelSize: Theme.titleSize
            font.weight: Font.Medium
            color: instrument.pluginActive ? Theme.onFrame : Theme.onFrameSoft
        }
        Icon {
            id: chevron
            visible: selector.enabled
            anchors.right: parent.right
            anchors.rightMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            name: "chevron"
            size: 20
            color: Theme.onFrameSoft
        }
        MouseArea {
            id: selector
            objectName: "applicationSelector"
            anchors.fill: parent
            anchors.bottomMargin: -Theme.unit
            enabled: instrument.plugins.length > 0
            onClicked: line.applicationsRequested()
        }
    }

    Row {
        anchors.right: languageKey.left
        anchors.rightMargin: 12
        height: parent.height
        spacing: 28

        Text {
            objectName: "statusText"
            visible: text.length > 0
            width: Math.min(implicitWidth, 160)
            anchors.verticalCenter: parent.verticalCenter
            text: instrument.statusText
            elide: Text.ElideRight
            font.pixelSize: Theme.bodySize
            color: Theme.onFrameSoft
        }
        Row {
            anchors.verticalCenter: parent.verticalCenter
            spacing: 10
            visible: instrument.sourceText.length > 0

            Rectangle {
                anchors.verticalCenter: parent.verticalCenter
                width: 10
                height: 10
                radius: 5
                color: instrument.sourceOk ? Theme.goodLit : Theme.errorLit
            }
            Text {
                objectName: "sourceText"
                width: Math.min(implicitWidth, 240)
                text: instrument.sourceText
                elide: Text.ElideRight
                font.pixelSize: Theme.bodySize
                color: instrument.sourceOk ? Theme.onFrame : Theme.errorLit
            }
        }
        Icon {
            objectName: "levelIcon"
            anchors.verticalCenter: parent.verticalCenter
            name: instrument.levelOk ? "level" : "tilt"
            size: 26
            color: instrument.levelOk ? Theme.onFrameSoft : Theme.attention
        }
        Text {
            objectName: "dateTime"
            visible: text.length > 0
            anchors.verticalCenter: parent.verticalCenter
            text: instrument.dateTimeText
            font.pixelSize: Theme.bodySize
            color: Theme.onFrame
        }
    }

    Rectangle {
        id: languageKey
        anchors.right: parent.right
        width: 64
        height: parent.height
        color: language.pressed ? Theme.keyPressed : "transparent"

        Rectangle {
            width: 1
            height: 24
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.frameLine
        }
        Text {
            anchors.centerIn: parent
            text: instrument.language.toUpperCase()
            font.pixelSize: Theme.bodySize
            font.weight: Font.Medium
            color: Theme.onFrame
        }
        MouseArea {
            id: language
            objectName: "languageKey"
            anchors.fill: parent
            anchors.bottomMargin: -Theme.unit
            onClicked: instrument.languageSelected(instrument.language === "en" ? "de" : "en")
        }
    }
}
