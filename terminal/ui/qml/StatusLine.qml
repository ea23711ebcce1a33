// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// What runs, on which scale, in which state, and when.
Rectangle {
    id: line

    signal applicationsRequested()

    color: Theme.frame

    ApplicationKey {
        objectName: "applicationKey"
        width: Math.min(naturalWidth, state.x - 16)
        height: parent.height
        space: 36
        reachBelow: Theme.unit
        picture: instrument.activePluginIcon
        text: instrument.pluginActive ? instrument.activePluginName : qsTr("No application")
        textColor: instrument.pluginActive ? Theme.frameInk : Theme.frameInkSoft
        fontWeight: Font.Medium
        onClicked: line.applicationsRequested()

        Icon {
            anchors.right: parent.right
            anchors.rightMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            name: "chevron"
            size: 20
            color: Theme.frameInkSoft
        }
    }

    Row {
        id: state
        anchors.right: settingsKey.left
        anchors.rightMargin: 12
        height: parent.height
        spacing: 28

        // Print-outs that have failed stay in sight until they are repeated, whatever application runs.
        Rectangle {
            objectName: "repeatPrints"
            visible: instrument.failedPrints > 0
            anchors.verticalCenter: parent.verticalCenter
            width: 12 + printMark.width + 8 + repeatText.width + 14
            height: 40
            radius: Theme.radius
            color: repeatArea.pressed ? Theme.keyPressed : Theme.attention

            Icon {
                id: printMark
                x: 12
                anchors.verticalCenter: parent.verticalCenter
                name: "print"
                size: 24
                color: Theme.ink
            }
            Text {
                id: repeatText
                objectName: "repeatPrintsText"
                anchors.left: printMark.right
                anchors.leftMargin: 8
                anchors.verticalCenter: parent.verticalCenter
                text: qsTr("Repeat (%1)").arg(instrument.failedPrints)
                font.pixelSize: Theme.bodySize
                font.weight: Font.Medium
                color: Theme.ink
            }
            MouseArea {
                id: repeatArea
                anchors.fill: parent
                anchors.margins: -Theme.unit
                onClicked: instrument.repeatPrintsPressed()
            }
        }
        Text {
            id: status
            objectName: "statusText"
            // What was done last gives way to what is to be done.
            visible: text.length > 0 && instrument.failedPrints === 0
            // Room for the longest weight that is sent.
            width: Math.min(implicitWidth, 270)
            anchors.verticalCenter: parent.verticalCenter
            text: instrument.statusText
            elide: Text.ElideRight
            font.pixelSize: Theme.bodySize
            color: Theme.frameInkSoft
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
                width: Math.min(implicitWidth, Math.max(160, 400 - Math.max(160, status.visible ? status.width : 0)))
                text: instrument.sourceText
                elide: Text.ElideRight
                font.pixelSize: Theme.bodySize
                color: instrument.sourceOk ? Theme.frameInk : Theme.errorLit
            }
        }
        Row {
            anchors.verticalCenter: parent.verticalCenter
            spacing: 6
            visible: instrument.sicsClients >= 0

            Icon {
                anchors.verticalCenter: parent.verticalCenter
                name: "computer"
                size: 24
                color: sicsClients.color
            }
            Text {
                id: sicsClients
                objectName: "sicsClients"
                anchors.verticalCenter: parent.verticalCenter
                text: instrument.sicsClients
                font.pixelSize: Theme.bodySize
                color: instrument.sicsClients > 0 ? Theme.frameInk : Theme.frameInkSoft
            }
        }
        Icon {
            objectName: "levelIcon"
            anchors.verticalCenter: parent.verticalCenter
            name: instrument.levelOk ? "level" : "tilt"
            size: 26
            color: instrument.levelOk ? Theme.frameInkSoft : Theme.attention
        }
        Text {
            objectName: "dateTime"
            visible: text.length > 0
            anchors.verticalCenter: parent.verticalCenter
            text: instrument.dateTimeText
            font.pixelSize: Theme.bodySize
            color: Theme.frameInk
        }
    }

    Rectangle {
        id: settingsKey
        objectName: "settingsKey"
        visible: instrument.settings ? instrument.settings.available : false
        anchors.right: languageKey.left
        width: visible ? 64 : 0
        height: parent.height
        color: settingsArea.pressed ? Theme.keyPressed : "transparent"

        Rectangle {
            width: 1
            height: 24
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.frameLine
        }
        Icon {
            anchors.centerIn: parent
            name: "gear"
            size: 28
            strokeWidth: 1.8
            color: instrument.settings && instrument.settings.open ? Theme.accentLit : Theme.frameInk
        }
        MouseArea {
            id: settingsArea
            anchors.fill: parent
            anchors.bottomMargin: -Theme.unit
            onClicked: instrument.settings.open ? instrument.settings.closeScreen()
                                                : instrument.settings.openScreen()
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
            color: Theme.frameInk
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
