// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// The terminal's screen, and beside it the bench.
Rectangle {
    id: main

    property bool benchVisible: true
    property bool animationsEnabled: true
    // Why the screen of the active plug-in could not be loaded.
    property alias screenErrors: application.screenErrors

    width: Theme.screenWidth + (benchVisible ? Theme.benchWidth : 0)
    height: Theme.screenHeight
    color: Theme.frame

    Binding {
        target: Theme
        property: "animations"
        value: main.animationsEnabled
    }

    Item {
        id: screen
        objectName: "screen"
        width: Theme.screenWidth
        height: Theme.screenHeight
        clip: true

        StatusLine {
            id: status
            width: parent.width
            height: Theme.statusHeight
            onApplicationsRequested: menu.open()
        }
        MainDisplay {
            id: display
            objectName: "mainDisplay"
            y: Theme.statusHeight
            width: parent.width
            height: Theme.displayHeight
        }
        ApplicationArea {
            id: application
            y: Theme.statusHeight + Theme.displayHeight
            width: parent.width
            height: Theme.applicationHeight
        }
        Rectangle {
            y: application.y
            width: parent.width
            height: 1
            color: Theme.line
        }
        ActionBar {
            objectName: "actionBar"
            y: Theme.screenHeight - Theme.actionBarHeight
            width: parent.width
            height: Theme.actionBarHeight
        }
        ProtocolMenu {
            objectName: "protocolMenu"
            anchors.fill: parent
        }
        Loader {
            objectName: "settingsLoader"
            readonly property bool wanted: instrument.settings ? instrument.settings.open : false
            y: Theme.statusHeight
            width: parent.width
            height: Theme.screenHeight - Theme.statusHeight
            active: wanted
            focus: true
            sourceComponent: SettingsScreen {
                objectName: "settingsScreen"
                settings: instrument.settings
            }
        }
        NoticeBar {
            objectName: "notice"
            x: 16
            y: Theme.screenHeight - Theme.actionBarHeight - height - 12
            width: parent.width - 32
        }
        ApplicationMenu {
            id: menu
            objectName: "applicationMenu"
            anchors.fill: parent
        }
    }

    Bench {
        objectName: "bench"
        visible: main.benchVisible
        x: Theme.screenWidth
        width: Theme.benchWidth
        height: Theme.screenHeight
    }
}
