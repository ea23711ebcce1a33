// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// The automatic transfer: why it fires, and why it does not.
Item {
    id: page

    readonly property int margin: 16
    readonly property int content: width - 2 * margin
    readonly property QtObject transfer: bench.transfer
    readonly property bool off: transfer.mode === "off" || transfer.mode === ""
    readonly property bool percent: transfer.mode.indexOf("percent") === 0
    readonly property bool fixed: transfer.mode.indexOf("-fixed") > 0
    readonly property bool runs: transfer.state >= 0
    readonly property bool hasBand: runs && !isNaN(transfer.reference)

    function grams(value) {
        return isNaN(value) ? "\u2013" : (value < 0 ? "\u2212" : "") + Math.abs(value).toFixed(transfer.decimals) + " g"
    }
    function choose(kind, isFixed) {
        if (kind === "off") {
            transfer.settingsRequested("off", transfer.threshold, transfer.minimumLoad)
            return
        }
        var threshold = transfer.threshold
        if (page.off || (kind === "percent") !== page.percent || threshold <= 0)
            threshold = 10
        transfer.settingsRequested(kind + (isFixed ? "-fixed" : ""), threshold, transfer.minimumLoad)
    }

    Text {
        x: page.margin
        y: 12
        text: qsTr("Transfer at a change of load")
        font.pixelSize: Theme.captionSize
        color: Theme.inkSoft
    }
    Row {
        x: page.margin
        y: 36
        spacing: Theme.unit

        BenchChoice {
            objectName: "transferOff"
            width: (page.content - 2 * Theme.unit) / 3
            text: qsTr("Off")
            textSize: 16
            chosen: page.off
            onClicked: page.choose("off", false)
        }
        BenchChoice {
            objectName: "transferAbsolute"
            width: (page.content - 2 * Theme.unit) / 3
            text: qsTr("Grams")
            textSize: 16
            chosen: !page.off && !page.percent
            onClicked: page.choose("absolute", page.fixed)
        }
        BenchChoice {
            objectName: "transferPercent"
            width: (page.content - 2 * Theme.unit) / 3
            text: qsTr("Percent")
            textSize: 16
            chosen: page.percent
            onClicked: page.choose("percent", page.fixed)
        }
    }
    BenchSwitch {
        objectName: "transferFixed"
        x: page.margin
        y: 82
        width: page.content
        title: qsTr("Band stays at the first load")
        enabled: !page.off
        checked: page.fixed
        onToggled: page.choose(page.percent ? "percent" : "absolute", !page.fixed)
    }
    BenchStepper {
        objectName: "transferThreshold"
        x: page.margin
        y: 122
        width: page.content
        title: qsTr("Threshold")
        enabled: !page.off
        valueText: page.off ? "\u2013" : Number(page.transfer.threshold.toPrecision(6)) + (page.percent ? " %" : " g")
        onStepped: page.transfer.settingsRequested(page.transfer.mode,
                       page.transfer.nextThreshold(page.transfer.threshold, page.percent, up), page.transfer.minimumLoad)
    }

    Rectangle {
        x: page.margin
        y: 174
        width: page.content
        height: 1
        color: Theme.benchLine
    }

    // What the detector does.
    Text {
        objectName: "detectorOwner"
        x: page.margin
        y: 184
        width: page.content
        text: page.transfer.owner + (page.transfer.modeText.length > 0 ? ": " + page.transfer.modeText : "")
        elide: Text.ElideRight
        font.pixelSize: Theme.captionSize
        color: Theme.inkSoft
    }
    Rectangle {
        x: page.margin
        y: 213
        width: 14
        height: 14
        radius: 7
        color: page.transfer.state === 2 ? Theme.accent : page.transfer.state === 1 ? Theme.good : Theme.inkFaint
    }
    Text {
        objectName: "detectorState"
        x: page.margin + 24
        y: 207
        text: page.transfer.state === 0 ? qsTr("Armed, without a band")
            : page.transfer.state === 1 ? qsTr("Watching")
            : page.transfer.state === 2 ? qsTr("Triggered") : qsTr("Off")
        font.pixelSize: Theme.titleSize
        font.weight: Font.Medium
        color: Theme.ink
    }
    Text {
        objectName: "transferReason"
        x: page.margin
        y: 238
        width: page.content
        height: 40
        text: page.transfer.reason
        wrapMode: Text.WordWrap
        maximumLineCount: 2
        elide: Text.ElideRight
        font.pixelSize: 16
        color: Theme.ink
    }

    // The band, and where the weight stands.
    Item {
        id: strip
        objectName: "band"
        x: page.margin
        y: 286
        width: page.content
        height: 28
        visible: page.hasBand

        readonly property real low: Math.min(page.transfer.bandLow, page.transfer.bandHigh)
        readonly property real high: Math.max(page.transfer.bandLow, page.transfer.bandHigh)
        readonly property real half: Math.max((high - low) / 2, Math.pow(10, -page.transfer.decimals))
        // The band takes up the middle half.
        function place(grams) {
            var middle = (low + high) / 2
            return Math.max(0, Math.min(1, 0.5 + (grams - middle) / (4 * half))) * width
        }

        Rectangle {
            y: 12
            width: parent.width
            height: 4
            radius: 2
            color: Theme.benchLine
        }
        Rectangle {
            x: strip.place(strip.low)
            y: 8
            width: Math.max(4, strip.place(strip.high) - x)
            height: 12
            radius: 3
            color: Theme.good
            opacity: 0.55
        }
        Rectangle {
            x: strip.place(page.transfer.reference) - 1
            y: 4
            width: 2
            height: 20
            color: Theme.inkSoft
        }
        Rectangle {
            visible: !isNaN(page.transfer.value)
            x: strip.place(page.transfer.value) - 7
            y: 7
            width: 14
            height: 14
            radius: 7
            color: page.transfer.state === 2 ? Theme.accent : Theme.ink
            border.width: 2
            border.color: "white"
        }
    }

    Column {
        x: page.margin
        y: 322
        width: page.content
        spacing: 3

        Repeater {
            model: [
                [qsTr("Reference"), page.grams(page.hasBand ? page.transfer.reference : NaN), "reference"],
                [qsTr("Band from"), page.grams(page.hasBand ? page.transfer.bandLow : NaN), "bandLow"],
                [qsTr("Band up to"), page.grams(page.hasBand ? page.transfer.bandHigh : NaN), "bandHigh"],
                [qsTr("Register 74"), page.transfer.registerText, "register74"],
                [qsTr("Triggers"), page.transfer.triggerCount, "triggers"]
            ]

            Item {
                width: page.content
                height: 22

                Text {
                    text: modelData[0]
                    font.pixelSize: 16
                    color: Theme.inkSoft
                }
                Text {
                    objectName: modelData[2]
                    anchors.right: parent.right
                    text: modelData[1]
                    font.pixelSize: 16
                    font.weight: Font.Medium
                    color: Theme.ink
                }
            }
        }
    }
    Text {
        x: page.margin
        y: 452
        visible: page.transfer.lastTrigger.length > 0
        text: qsTr("Last trigger")
        font.pixelSize: Theme.captionSize
        color: Theme.inkSoft
    }
    Text {
        objectName: "lastTrigger"
        x: page.margin
        y: 471
        width: page.content
        text: page.transfer.lastTrigger.replace(/ g/g, "\u00A0g")
        wrapMode: Text.WordWrap
        maximumLineCount: 2
        elide: Text.ElideRight
        font.pixelSize: 15
        color: Theme.ink
    }
    Text {
        objectName: "transferDecision"
        x: page.margin
        y: 510
        width: page.content
        text: page.transfer.decision
        elide: Text.ElideRight
        font.pixelSize: 15
        font.weight: Font.Medium
        color: Theme.ink
    }
}
