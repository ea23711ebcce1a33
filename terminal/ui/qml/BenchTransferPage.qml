// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// The automatic transfer: why it fires, and why it does not.
Item {
    id: page

    readonly property int margin: 16
    readonly property int content: width - 2 * margin
}
