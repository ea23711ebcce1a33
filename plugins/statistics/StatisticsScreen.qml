// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15

// Shown in the terminal's application area, below the main display; the host gives it its size. The view model is there
// as "statistics". The figures stand in the info lines beside it.
Item {
    id: screen

    readonly property color ink: "#11191C"
    readonly property color inkSoft: "#49565B"
    readonly property color line: "#8E9A9D"
    readonly property color accent: "#0B6B7A"

    component Key: Rectangle {
        id: key
        property alias text: keyText.text
        signal pressed()

        width: 60
        height: 60
        radius: 8
        color: !enabled ? "transparent" : keyArea.pressed ? screen.line : "#FFFFFF"
        border.width: 1
        border.color: screen.line

        Text {
            id: keyText
            anchors.centerIn: parent
            width: parent.width - 8
            horizontalAlignment: Text.AlignHCenter
            elide: Text.ElideRight
            font.pixelSize: text.length > 1 ? 18 : 36
            color: key.enabled ? screen.ink : screen.line
        }
        MouseArea {
            id: keyArea
            anchors.fill: parent
            onClicked: key.pressed()
        }
    }

    Item {
        id: plot
        objectName: "plot"

        readonly property int count: statistics.points.length
        // A few weighings stand at the left, so that the next ones have a place.
        readonly property real slot: width / Math.max(count, 12)

        x: 104
        y: 12
        width: screen.width - x - 64
        height: 96
        visible: count > 0

        Rectangle {
            objectName: "band"
            visible: statistics.bandTop >= 0
            y: plot.height * statistics.bandTop
            width: plot.width
            height: Math.max(1, plot.height * (statistics.bandBottom - statistics.bandTop))
            color: screen.accent
            opacity: 0.15
        }
        Repeater {
            model: statistics.ticks
            Item {
                y: Math.round(plot.height * modelData.height)
                width: plot.width
                Rectangle {
                    width: parent.width
                    height: 1
                    color: screen.line
                    opacity: 0.5
                }
                Text {
                    anchors.right: parent.left
                    anchors.rightMargin: 8
                    anchors.verticalCenter: parent.top
                    text: modelData.text
                    font.pixelSize: 15
                    color: screen.inkSoft
                }
            }
        }
        Rectangle {
            width: 1
            height: plot.height
            color: screen.line
        }
        Rectangle {
            objectName: "mean"
            y: Math.round(plot.height * statistics.mean) - 1
            width: plot.width
            height: 2
            color: screen.accent
        }
        Repeater {
            model: statistics.points
            Rectangle {
                readonly property bool newest: index === plot.count - 1
                readonly property int size: newest ? 10 : plot.count > 30 ? 6 : 8
                x: Math.round(plot.slot * (index + 0.5) - size / 2)
                y: Math.round(plot.height * modelData - size / 2)
                width: size
                height: size
                radius: size / 2
                color: newest ? screen.accent : screen.ink
            }
        }
        Text {
            x: plot.width + 8
            y: Math.round(plot.height * statistics.mean - height / 2)
            text: qsTr("Mean")
            font.pixelSize: 15
            color: screen.accent
        }
        Repeater {
            // Where there is room beside the mean.
            model: statistics.bandTop >= 0 && plot.height * (statistics.mean - statistics.bandTop) > 16
                   ? [{ height: statistics.bandTop, text: "+1 s" }, { height: statistics.bandBottom, text: "−1 s" }] : []
            Text {
                x: plot.width + 8
                y: Math.round(plot.height * modelData.height - height / 2)
                text: modelData.text
                font.pixelSize: 15
                color: screen.inkSoft
            }
        }
        Repeater {
            model: plot.count > 1 ? [0, plot.count - 1] : [0]
            Text {
                objectName: "number"
                // Clear of the unit at the left.
                x: Math.max(0, Math.round(plot.slot * (modelData + 0.5) - width / 2))
                y: plot.height + 8
                text: statistics.firstNumber + modelData
                font.pixelSize: 15
                color: screen.inkSoft
            }
        }
        Text {
            objectName: "unit"
            anchors.right: parent.left
            anchors.rightMargin: 8
            y: plot.height + 8
            text: statistics.unit
            font.pixelSize: 15
            color: screen.inkSoft
        }
    }
    Text {
        visible: !plot.visible
        anchors.horizontalCenter: parent.horizontalCenter
        y: 48
        text: qsTr("No weighings yet")
        font.pixelSize: 22
        color: screen.inkSoft
    }

    Row {
        objectName: "threshold"
        x: 24
        y: screen.height - 68
        enabled: statistics.automatic
        opacity: enabled ? 1 : 0.5

        Key {
            objectName: "decrease"
            text: "−"
            enabled: statistics.canDecrease
            onPressed: statistics.thresholdStepRequested(-1)
        }
        Column {
            anchors.verticalCenter: parent.verticalCenter
            width: 112
            Text {
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                text: qsTr("Load change")
                font.pixelSize: 15
                color: screen.inkSoft
            }
            Text {
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                text: statistics.threshold
                font.pixelSize: 22
                color: screen.ink
            }
        }
        Key {
            objectName: "increase"
            text: "+"
            enabled: statistics.canIncrease
            onPressed: statistics.thresholdStepRequested(1)
        }
    }

    Row {
        objectName: "message"
        visible: !statistics.confirming
        x: 280
        y: screen.height - 68
        height: 60
        spacing: 12

        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            width: 12
            height: 12
            radius: 6
            // By the view model's Kind.
            color: ["#8E9A9D", "#F4B63C", "#1E8E50", "#B3261E"][statistics.stateKind]
        }
        Text {
            objectName: "messageText"
            anchors.verticalCenter: parent.verticalCenter
            width: screen.width - 280 - 24 - 24
            text: statistics.stateText
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            maximumLineCount: 3
            elide: Text.ElideRight
            lineHeight: 20
            lineHeightMode: Text.FixedHeight
            font.pixelSize: 18
            color: screen.ink
        }
    }

    Row {
        objectName: "question"
        visible: statistics.confirming
        x: 280
        y: screen.height - 68
        spacing: 8

        Text {
            anchors.verticalCenter: parent.verticalCenter
            width: screen.width - 280 - 24 - 2 * (keep.width + 8)
            text: qsTr("Clear all weighings (%1)?").arg(statistics.count)
            wrapMode: Text.Wrap
            maximumLineCount: 2
            elide: Text.ElideRight
            font.pixelSize: 18
            color: screen.ink
        }
        Key {
            id: keep
            objectName: "keep"
            width: 96
            text: qsTr("Keep")
            onPressed: statistics.clearAnswered(false)
        }
        Key {
            objectName: "clear"
            width: 96
            text: qsTr("Clear")
            onPressed: statistics.clearAnswered(true)
        }
    }
}
