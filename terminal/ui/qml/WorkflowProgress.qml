// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// The steps of a workflow as a row of marks, those that are done filled; the first that is not is the one at work.
Row {
    id: row

    // An object with the properties of Progressbar; null for none.
    property QtObject progress: null
    // Not its count of steps, which changes before the marks are there.
    readonly property int count: progress && progress.isVisible ? progress.model.length : 0

    spacing: 4

    Repeater {
        model: row.count

        Rectangle {
            readonly property QtObject mark: row.progress ? row.progress.model[index] : null
            readonly property bool done: mark ? mark.isDone : false
            readonly property bool atWork: !done && (index === 0 || row.progress.model[index - 1].isDone)
            objectName: "mark"
            width: (row.width - (row.count - 1) * row.spacing) / row.count
            height: row.height
            radius: height / 2
            color: done ? Theme.accent : atWork ? Theme.accentLit : Theme.line
        }
    }
}
