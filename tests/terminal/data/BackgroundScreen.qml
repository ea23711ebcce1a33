// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15

// A screen that is still loading when it has been created: a nested screen is loaded in the background.
Item {
    Loader {
        objectName: "background"
        anchors.fill: parent
        asynchronous: true
        sourceComponent: Rectangle {
            color: "#00FF00"
        }
    }
}
