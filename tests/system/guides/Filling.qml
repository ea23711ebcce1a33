// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15

Item {
    Text {
        x: 24
        y: 24
        text: qsTr("Target: %1 g").arg(filling.target)
        font.pixelSize: 36
    }
    Text {
        x: 24
        y: 96
        text: filling.progress
        font.pixelSize: 24
    }
}
