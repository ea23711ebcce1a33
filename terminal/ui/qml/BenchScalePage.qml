// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// The scale itself: what lies on it, its load cell, its level and its calibration.
Item {
    id: page

    readonly property int margin: 16
    readonly property int content: width - 2 * margin

    // Grams as they are engraved on a weight: 500 mg, 20 g, 2 kg.
    function engraved(grams) {
        if (grams < 0.9995)
            return Number((grams * 1000).toPrecision(6)) + " mg"
        if (grams < 999.5)
            return Number(grams.toPrecision(6)) + " g"
        return Number((grams / 1000).toPrecision(6)) + " kg"
    }
    function decimals() {
        return bench.readability > 0 ? Math.max(0, Math.min(6, Math.ceil(-Math.log(bench.readability) / Math.LN10 - 1e-9)))
                                     : 2
    }
    function signed(number, places) {
        return (number > 0 ? "+" : number < 0 ? "\u2212" : "") + Math.abs(number).toFixed(places)
    }

    // Load and weights.
    Item {
        id: loadRow
        x: page.margin
        y: 12
        width: page.content
        height: 44
        visible: bench.available

        Text {
            text: qsTr("On the scale")
            font.pixelSize: Theme.captionSize
            color: Theme.inkSoft
        }
        Text {
            objectName: "benchLoad"
            anchors.bottom: parent.bottom
            width: parent.width - clearKey.width - Theme.unit
            text: (bench.load < 0 ? "\u2212" : "") + Math.abs(bench.load).toFixed(page.decimals()) + " g"
            elide: Text.ElideRight
            font.pixelSize: Theme.titleSize
            font.weight: Font.Medium
            color: Theme.ink
        }
        BenchKey {
            id: clearKey
            objectName: "clearKey"
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            width: implicitWidth
            text: qsTr("Clear")
            enabled: bench.load !== 0
            onClicked: bench.clear()
        }
    }
    Grid {
        objectName: "weights"
        x: page.margin
        y: loadRow.y + loadRow.height + 12
        visible: bench.available
        columns: 2
        spacing: Theme.unit

        Repeater {
            model: bench.weights.slice(0, 8)

            Rectangle {
                width: (page.content - Theme.unit) / 2
                height: 40
                radius: Theme.radius
                color: Theme.benchKey

                BenchKey {
                    objectName: "takeOff:" + modelData
                    width: 44
                    height: parent.height
                    text: "\u2212"
                    textSize: Theme.titleSize
                    onClicked: bench.takeOff(modelData)
                }
                Text {
                    anchors.centerIn: parent
                    text: page.engraved(modelData)
                    font.pixelSize: Theme.bodySize
                    color: Theme.ink
                }
                BenchKey {
                    objectName: "putOn:" + modelData
                    anchors.right: parent.right
                    width: 44
                    height: parent.height
                    text: "+"
                    textSize: Theme.titleSize
                    onClicked: bench.putOn(modelData)
                }
            }
        }
    }
    Column {
        objectName: "notSimulated"
        visible: !bench.available
        x: page.margin
        y: 24
        width: page.content
        spacing: 12

        Icon {
            name: "weight"
            size: 40
            strokeWidth: 1.6
            color: Theme.inkSoft
        }
        Text {
            width: parent.width
            text: qsTr("The scale is not simulated")
            wrapMode: Text.WordWrap
            font.pixelSize: Theme.bodySize
            font.weight: Font.Medium
            color: Theme.ink
        }
        Text {
            width: parent.width
            text: qsTr("Weights, noise, drift and the cable can be changed on the simulated scale only. "
                       + "Level and calibration can be tried with every source.")
            wrapMode: Text.WordWrap
            lineHeight: 1.15
            font.pixelSize: Theme.captionSize
            color: Theme.inkSoft
        }
    }

    // The load cell.
    Row {
        x: page.margin
        y: 268
        spacing: Theme.unit * 2
        enabled: bench.available
        opacity: enabled ? 1 : 0.4

        BenchSlider {
            objectName: "noise"
            width: (page.content - parent.spacing) / 2
            title: qsTr("Noise")
            valueText: value.toFixed(1) + " d"
            minimum: 0
            maximum: bench.maximumNoise
            step: 0.1
            value: bench.noise
            onMoved: bench.noise = target
        }
        BenchSlider {
            objectName: "drift"
            width: (page.content - parent.spacing) / 2
            title: qsTr("Drift")
            valueText: page.signed(value, 1) + " g/min"
            minimum: -bench.maximumDrift
            maximum: bench.maximumDrift
            step: 0.1
            value: bench.drift
            onMoved: bench.drift = target
        }
    }

    Rectangle {
        x: page.margin
        y: 336
        width: page.content
        height: 1
        color: Theme.benchLine
    }

    // The level.
    LevelVial {
        id: vial
        objectName: "vial"
        x: page.margin
        y: 352
        width: 96
        height: 96
    }
    Text {
        x: 128
        y: 356
        text: bench.level ? qsTr("Scale is level") : qsTr("Scale is tilted")
        font.pixelSize: Theme.bodySize
        font.weight: Font.Medium
        color: Theme.ink
    }
    Text {
        x: 128
        y: 380
        text: qsTr("Drag the bubble")
        font.pixelSize: Theme.captionSize
        color: Theme.inkSoft
    }
    BenchKey {
        objectName: "levelKey"
        x: 128
        y: 408
        width: page.width - x - page.margin
        text: bench.level ? qsTr("Tilt") : qsTr("Level")
        onClicked: bench.level = !bench.level
    }

    Rectangle {
        x: page.margin
        y: 464
        width: page.content
        height: 1
        color: Theme.benchLine
    }
    BenchSwitch {
        objectName: "connected"
        x: page.margin
        y: 468
        width: page.content
        title: qsTr("Load cell connected")
        enabled: bench.available
        checked: bench.connected
        onToggled: bench.connected = !bench.connected
    }
    BenchSwitch {
        objectName: "calibrationDue"
        x: page.margin
        y: 504
        width: page.content
        title: qsTr("Calibration due")
        checked: bench.calibrationDue
        onToggled: bench.calibrationDue = !bench.calibrationDue
    }
}
