// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// The screen of the active plug-in, and the info lines to its right.
Rectangle {
    id: area

    // Why the screen could not be loaded; empty when it was, or when there is none.
    property string screenErrors
    readonly property bool infoShown: instrument.infoItems.length > 0
    readonly property int bandHeight: workflow.running && workflow.band ? 72 : 0
    readonly property bool faulty: screenErrors.length > 0
    readonly property bool faultsShown: !instrument.pluginActive && bench.pluginFaults.length > 0

    color: Theme.field

    Item {
        objectName: "pluginArea"
        y: area.bandHeight
        width: parent.width - (area.infoShown ? Theme.infoWidth : 0)
        height: parent.height - area.bandHeight
        clip: true
    }

    // In place of a screen: why there is none.
    Column {
        objectName: "noApplication"
        visible: !area.faulty && !instrument.pluginActive && !area.faultsShown
        anchors.centerIn: parent
        spacing: Theme.unit

        Text {
            objectName: "noApplicationTitle"
            anchors.horizontalCenter: parent.horizontalCenter
            text: instrument.plugins.length > 0 ? qsTr("No application is running")
                                                : qsTr("No application is loaded")
            font.pixelSize: Theme.titleSize
            font.weight: Font.Medium
            color: Theme.inkSoft
        }
        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            text: instrument.plugins.length > 0
                  ? qsTr("The terminal weighs on its own. Choose an application at the top left.")
                  : qsTr("The terminal weighs on its own. Start it with --plugin PATH to run an application.")
            font.pixelSize: Theme.bodySize
            color: Theme.inkSoft
        }
    }
    FaultList {
        objectName: "screenFault"
        visible: area.faulty
        width: parent.width - (area.infoShown ? Theme.infoWidth : 0)
        height: parent.height
        title: qsTr("The application's screen cannot be shown")
        faults: area.faulty ? [area.screenErrors] : []
    }
    FaultList {
        objectName: "pluginFaults"
        visible: !area.faulty && area.faultsShown
        anchors.fill: parent
        title: qsTr("No application is loaded")
        faults: area.faultsShown ? bench.pluginFaults : []
    }

    WorkflowPanel {
        objectName: "workflowPanel"
        visible: workflow.running
        width: parent.width - (area.infoShown ? Theme.infoWidth : 0)
        height: band ? area.bandHeight : parent.height
    }

    InfoArea {
        objectName: "infoArea"
        visible: area.infoShown
        anchors.right: parent.right
        width: Theme.infoWidth
        height: parent.height
        items: instrument.infoItems
    }
}
