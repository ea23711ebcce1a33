// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15

// Rows below each other, which scroll when there are too many. For lists that are replaced as a whole: a ListView keeps
// connections of each list it has had.
Flickable {
    property alias model: repeater.model
    property alias delegate: repeater.delegate
    property alias spacing: column.spacing

    contentHeight: column.height
    flickableDirection: Flickable.VerticalFlick
    clip: true
    boundsBehavior: Flickable.StopAtBounds

    Column {
        id: column

        Repeater {
            id: repeater
        }
    }
}
