// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// The printer: what it has printed, and its faults.
Item {
    id: page

    readonly property int margin: 16
    readonly property int content: width - 2 * margin
}
