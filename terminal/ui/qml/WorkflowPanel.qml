// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// The step of the workflow that the application runs: what is to be done, what is waited for, what came of it.
Rectangle {
    id: panel

    readonly property bool band: workflow.band
    readonly property bool faulty: workflow.fault.length > 0
    // What is waited for; in the band the second line of the screen stands in its place, if there is one.
    readonly property string stateText: faulty ? workflow.fault
                                      : band && line(1).length > 0 ? line(1) : workflow.waiting
    readonly property bool resultsShown: !band && (result1.shown || result2.shown)
    function line(number) {
        return workflow.lines.length > number ? workflow.lines[number] : ""
    }

    color: Theme.field

    WorkflowProgress {
        objectName: "workflowProgress"
        x: Theme.margin
        y: 12
        width: parent.width - 2 * Theme.margin
        height: 6
        progress: workflow.progress
    }

    Image {
        id: picture
        objectName: "workflowImage"
        visible: !panel.band && status === Image.Ready
        x: Theme.margin
        y: 36
        width: 152
        height: 152
        fillMode: Image.PreserveAspectFit
        sourceSize.width: width
        sourceSize.height: height
        source: workflow.image
    }
    // The light of the step.
    Rectangle {
        objectName: "workflowAuxiliary"
        visible: workflow.auxiliaryOn
        x: words.x - 18
        y: words.y + 8
        width: 10
        height: 10
        radius: 5
        color: Theme.attention
    }

    Column {
        id: words
        x: Theme.margin + (picture.visible ? picture.width + Theme.margin : 0) + (workflow.auxiliaryOn ? 18 : 0)
        y: 32
        width: parent.width - x - Theme.margin - (panel.resultsShown ? results.width + Theme.margin : 0)
               - (panel.band && panel.stateText.length > 0 ? stateRow.width + Theme.margin : 0)
        spacing: panel.band ? 0 : 4

        Text {
            visible: !panel.band && text.length > 0
            width: parent.width
            text: workflow.title
            textFormat: Text.PlainText
            elide: Text.ElideRight
            font.pixelSize: Theme.captionSize
            font.weight: Font.Bold
            color: Theme.accent
        }
        Text {
            objectName: "workflowLine1"
            width: parent.width
            text: panel.line(0)
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            maximumLineCount: panel.band ? 1 : 2
            elide: Text.ElideRight
            font.pixelSize: panel.band ? Theme.titleSize : 28
            font.weight: Font.Medium
            color: Theme.ink
        }
        Text {
            objectName: "workflowLine2"
            visible: !panel.band && text.length > 0
            width: parent.width
            text: panel.line(1)
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            maximumLineCount: 2
            elide: Text.ElideRight
            font.pixelSize: Theme.bodySize
            color: Theme.inkSoft
        }
        Text {
            objectName: "workflowLine3"
            visible: !panel.band && text.length > 0
            width: parent.width
            text: panel.line(2)
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            maximumLineCount: 2
            elide: Text.ElideRight
            font.pixelSize: Theme.bodySize
            color: Theme.inkSoft
        }
    }

    // What is waited for, or what went wrong.
    Row {
        id: stateRow
        anchors.right: panel.band ? parent.right : undefined
        anchors.rightMargin: Theme.margin
        x: panel.band ? 0 : words.x
        y: panel.band ? 34 : parent.height - height - 14
        spacing: 8

        Icon {
            visible: panel.faulty
            anchors.verticalCenter: parent.verticalCenter
            name: "warning"
            size: 20
            color: Theme.error
        }
        Rectangle {
            visible: !panel.faulty && panel.stateText.length > 0
            anchors.verticalCenter: parent.verticalCenter
            width: 10
            height: 10
            radius: 5
            color: Theme.accentLit
        }
        Text {
            objectName: "workflowState"
            width: Math.min(implicitWidth, panel.band ? panel.width / 2 : words.width - 28)
            text: panel.stateText
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            maximumLineCount: panel.band ? 1 : 2
            elide: Text.ElideRight
            font.pixelSize: Theme.bodySize
            color: panel.faulty ? Theme.error : Theme.inkSoft
        }
    }

    Column {
        id: results
        visible: panel.resultsShown
        anchors.right: parent.right
        anchors.rightMargin: Theme.margin
        y: 32
        width: 256
        spacing: Theme.unit

        WorkflowResult {
            id: result1
            objectName: "workflowResult1"
            width: parent.width
            result: panel.band ? null : workflow.result1
        }
        WorkflowResult {
            id: result2
            objectName: "workflowResult2"
            width: parent.width
            result: panel.band ? null : workflow.result2
        }
    }
}
