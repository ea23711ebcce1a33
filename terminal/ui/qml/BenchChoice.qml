// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// One of several keys on the bench, of which one is chosen.
BenchKey {
    property bool chosen: false

    implicitHeight: 40
    ground: chosen ? Theme.accent : Theme.benchKey
    foreground: chosen ? "white" : Theme.ink
}
