// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// What a person does to the scale with their hands, and what the terminal makes of it, on pages under a row of tabs. It
// stands beside the terminal and is no part of it.
Rectangle {
    id: panel

    readonly property int margin: 16
    readonly property int content: width - 2 * margin

    color: Theme.bench

    Rectangle {
        width: parent.width
        height: Theme.statusHeight
        color: Theme.benchLine

        Row {
            id: tabs
            readonly property int tabWidth: (panel.width - (faultsKey.visible ? faultsKey.width : 0)) / 4

            height: parent.height

            BenchTab {
                page: "scale"
                text: qsTr("Scale")
                icon: "weight"
                width: tabs.tabWidth
            }
            BenchTab {
                page: "units"
                text: qsTr("Units")
                icon: "ruler"
                width: tabs.tabWidth
            }
            BenchTab {
                page: "transfer"
                text: qsTr("Transfer")
                icon: "transfer"
                width: tabs.tabWidth
            }
            BenchTab {
                page: "printer"
                text: qsTr("Printer")
                icon: "print"
                width: tabs.tabWidth
            }
        }
        BenchKey {
            id: faultsKey
            objectName: "faultsKey"
            visible: bench.pluginFaults.length > 0
            anchors.right: parent.right
            width: 56
            height: parent.height
            radius: 0
            ground: Theme.error
            groundPressed: Theme.errorLit
            foreground: "white"
            text: "! " + bench.pluginFaults.length
            onClicked: faults.visible = true
        }
    }

    BenchScalePage {
        objectName: "benchScalePage"
        visible: bench.page === "scale"
        y: Theme.statusHeight
        width: parent.width
        height: parent.height - y
    }
    BenchUnitsPage {
        objectName: "benchUnitsPage"
        visible: bench.page === "units"
        y: Theme.statusHeight
        width: parent.width
        height: parent.height - y
    }
    BenchTransferPage {
        objectName: "benchTransferPage"
        visible: bench.page === "transfer"
        y: Theme.statusHeight
        width: parent.width
        height: parent.height - y
    }
    BenchPrinterPage {
        objectName: "benchPrinterPage"
        visible: bench.page === "printer"
        y: Theme.statusHeight
        width: parent.width
        height: parent.height - y
    }

    Rectangle {
        id: faults
        objectName: "benchFaults"
        visible: false
        anchors.fill: parent
        color: Theme.display
        readonly property int count: bench.pluginFaults.length
        onCountChanged: if (count === 0) visible = false

        MouseArea {
            anchors.fill: parent
        }
        FaultList {
            width: parent.width
            anchors.top: parent.top
            anchors.bottom: closeKey.top
            margin: panel.margin
            title: qsTr("Plug-in faults")
            faults: bench.pluginFaults
        }
        BenchKey {
            id: closeKey
            objectName: "closeFaults"
            anchors.bottom: parent.bottom
            anchors.bottomMargin: panel.margin
            x: panel.margin
            width: panel.content
            ground: Theme.field
            text: qsTr("Close")
            onClicked: faults.visible = false
        }
    }
}
