// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15

// Shown in the terminal's application area, below the main display. The view model is there as "weighing".
Item {
    id: screen

    readonly property var stateTexts: [
        qsTr("Ready"),
        qsTr("Waiting for a stable weight…"),
        qsTr("Printed"),
        qsTr("Not printed: below the minimum weight"),
        qsTr("Not printed: no valid weight")
    ]

    Column {
        anchors.verticalCenter: parent.verticalCenter
        anchors.left: parent.left
        anchors.leftMargin: 24
        spacing: 8

        Text { text: qsTr("Last print"); font.pixelSize: 18 }
        Text { text: weighing.lastTransfer === "" ? "–" : weighing.lastTransfer; font.pixelSize: 40 }
        Text { text: screen.stateTexts[weighing.printState]; font.pixelSize: 18 }
    }
}
