// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15

// Stands in for the screen of a plug-in: binds to the published object "standIn" and fills the application area.
Item {
    id: screen

    Column {
        x: 24
        y: 20
        spacing: 8

        Text {
            objectName: "title"
            text: standIn.title
            font.pixelSize: 22
            font.weight: Font.Medium
            color: "#11191C"
        }
        Text {
            text: qsTr("Put the goods on the scale and press Record.")
            font.pixelSize: 18
            color: "#49565B"
        }
        Row {
            topPadding: 16
            spacing: 32

            Repeater {
                model: standIn.figures
                Column {
                    spacing: 2
                    Text {
                        text: modelData.title
                        font.pixelSize: 15
                        color: "#49565B"
                    }
                    Text {
                        text: modelData.value
                        font.pixelSize: 36
                        color: "#11191C"
                    }
                }
            }
        }
    }
    MouseArea {
        objectName: "leave"
        anchors.fill: parent
        onClicked: standIn.leave()
    }
}
