// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15

// Shown in the terminal's application area, below the main display; the host gives it its size. The view model is there
// as "weighing".
Item {
    id: screen

    // By the view model's PrintState.
    readonly property var stateTexts: [
        qsTr("Ready to print"),
        qsTr("Waiting for a stable weight…"),
        qsTr("Printed"),
        qsTr("Not printed: below the minimum weight"),
        qsTr("Not printed: no valid weight")
    ]
    readonly property var stateColors: ["#8E9A9D", "#F4B63C", "#1E8E50", "#B3261E", "#B3261E"]

    component Field: Column {
        property alias title: titleText.text
        property alias value: valueText.text

        spacing: 4

        Text {
            id: titleText
            color: "#49565B"
            font.pixelSize: 15
        }
        Text {
            id: valueText
            color: "#11191C"
            font.pixelSize: 36
        }
    }

    Row {
        x: 24
        y: 32
        spacing: 56

        Field {
            title: qsTr("Last print")
            value: weighing.lastTransfer === "" ? "–" : weighing.lastTransfer
        }
        Field {
            title: qsTr("Minimum weight")
            value: weighing.minimumWeight === "" ? qsTr("none") : weighing.minimumWeight
        }
    }

    component State: Row {
        property alias color: mark.color
        property alias text: stateText.text

        spacing: 12

        Rectangle {
            id: mark
            anchors.verticalCenter: parent.verticalCenter
            width: 12
            height: 12
            radius: 6
        }
        Text {
            id: stateText
            color: "#11191C"
            font.pixelSize: 18
        }
    }

    Column {
        x: 24
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 42
        spacing: 8

        State {
            visible: weighing.automaticRefused
            color: "#B3261E"
            text: qsTr("Automatic is off: its threshold does not suit this scale")
        }
        State {
            color: screen.stateColors[weighing.printState]
            text: screen.stateTexts[weighing.printState]
        }
    }
}
