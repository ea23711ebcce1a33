// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// The weight, and everything that must be read together with it.
Rectangle {
    id: display

    readonly property QtObject model: instrument.display
    readonly property QtObject warnings: instrument.warnings
    // The terminal shows the weight in a second unit where an application leaves the small display empty.
    readonly property QtObject small: model && model.messwertKleinVisible ? model
                                    : instrument.terminalDisplay && instrument.terminalDisplay.messwertKleinVisible
                                      ? instrument.terminalDisplay : null
    readonly property bool shown: model ? model.allVisible : false
    // A weight source that is gone leaves the last value in the model; it is not a reading any more.
    readonly property string errorText: !model ? ""
                                        : model.errorText.length > 0 ? model.errorText
                                        : !instrument.sourceOk ? qsTr("No connection to the scale") : ""
    readonly property bool hasError: shown && errorText.length > 0
    readonly property bool hasValue: shown && !hasError && model.messwertVisible
    readonly property bool valid: model ? model.isValid : false
    readonly property int valueBaseline: 158
    readonly property int smallBaseline: 206
    readonly property int valueLeft: 136
    readonly property int valueRight: 848
    readonly property int unitLeft: 868

    color: Theme.display

    Text {
        id: plate
        x: Theme.margin
        y: 16
        text: instrument.scalePlate
        font.pixelSize: Theme.bodySize
        color: Theme.inkSoft
    }

    Row {
        id: chips
        objectName: "warnings"
        anchors.right: parent.right
        anchors.rightMargin: Theme.margin
        y: 8
        spacing: Theme.unit
        readonly property real space: parent.width - plate.width - 3 * Theme.margin

        WarningChip {
            objectName: "levellingWarning"
            visible: display.warnings ? display.warnings.levellingRequiredVisible : false
            text: display.warnings ? display.warnings.levellingRequiredText : ""
            icon: "tilt"
            maximumWidth: (chips.space - chips.spacing) / 2
        }
        WarningChip {
            objectName: "calibrationWarning"
            visible: display.warnings ? display.warnings.calibrationRequiredVisible : false
            text: display.warnings ? display.warnings.calibrationRequiredText : ""
            icon: "weight"
            maximumWidth: (chips.space - chips.spacing) / 2
        }
    }

    // Marks to the left of the value, each in its own place.
    Item {
        objectName: "stabilityMark"
        readonly property bool stable: display.model ? display.model.stabilityValue > 0 : false
        visible: display.hasValue && display.model.stabilityVisible
        x: Theme.margin
        y: 60
        width: 40
        height: 32

        Rectangle {
            visible: parent.stable
            anchors.verticalCenter: parent.verticalCenter
            width: 24
            height: 24
            radius: 12
            color: Theme.good
        }
        Icon {
            visible: !parent.stable
            x: -4
            anchors.verticalCenter: parent.verticalCenter
            name: "wave"
            size: 40
            strokeWidth: 2.4
            color: Theme.inkSoft
        }
    }
    Tag {
        objectName: "netMark"
        visible: display.hasValue && display.model.netVisible
        x: Theme.margin
        y: 96
        filled: true
        text: display.model && display.model.netText.length > 0 ? display.model.netText : qsTr("NET")
    }
    Tag {
        objectName: "ptMark"
        visible: display.hasValue && display.model.ptVisible
        x: Theme.margin
        y: 132
        text: display.model && display.model.ptText.length > 0 ? display.model.ptText : qsTr("PT")
    }

    // Value and unit.
    DigitText {
        objectName: "value"
        visible: display.hasValue
        anchors.right: parent.left
        anchors.rightMargin: -display.valueRight
        y: display.valueBaseline - baselineOffset
        width: display.valueRight - display.valueLeft
        text: !display.model ? "" : display.valid ? display.model.messwert : "\u2013\u2009\u2013\u2009\u2013"
        reduction: display.model && display.valid ? display.model.resolutionReduction : 0
        framed: display.model && display.valid ? display.model.eichDigit : 0
        color: display.valid ? Theme.ink : Theme.inkFaint
    }
    Rectangle {
        objectName: "unitKey"
        visible: display.hasValue
        x: display.unitLeft - 12
        y: display.valueBaseline - 62
        width: parent.width - 12 - x
        height: 88
        radius: Theme.radius
        color: unitArea.pressed ? Theme.field : "transparent"
        border.width: 1
        border.color: Theme.line

        Icon {
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            anchors.margins: 4
            name: "next"
            size: 14
            color: Theme.inkFaint
        }
        MouseArea {
            id: unitArea
            anchors.fill: parent
            onClicked: instrument.unitPressed()
            onPressAndHold: instrument.smallUnitPressed()
        }
    }
    Text {
        objectName: "unit"
        visible: display.hasValue && display.valid
        x: display.unitLeft
        y: display.valueBaseline - baselineOffset
        width: parent.width - Theme.margin - x
        text: display.model ? display.model.unit : ""
        font.family: Theme.displayFamily
        font.pixelSize: Theme.unitSize
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: Theme.bodySize
        color: Theme.ink
    }
    Row {
        visible: display.hasValue && display.valid
        x: display.unitLeft
        y: 60
        spacing: Theme.unit

        Tag {
            objectName: "coarseMark"
            visible: display.model ? display.model.isGrobRange : false
            text: qsTr("COARSE")
        }
        Tag {
            objectName: "calculatedMark"
            visible: display.model ? display.model.isCalculated : false
            icon: "asterisk"
        }
    }

    // An error takes the place of the value.
    Rectangle {
        objectName: "error"
        visible: display.hasError
        x: Theme.margin
        y: 56
        width: parent.width - 2 * Theme.margin
        height: 128
        radius: Theme.radius
        color: Theme.error

        Icon {
            id: errorIcon
            x: 32
            anchors.verticalCenter: parent.verticalCenter
            name: instrument.sourceOk ? "warning" : "broken"
            size: 64
            strokeWidth: 1.8
            color: "white"
        }
        Text {
            objectName: "errorText"
            anchors.left: errorIcon.right
            anchors.leftMargin: 24
            anchors.right: parent.right
            anchors.rightMargin: 32
            anchors.verticalCenter: parent.verticalCenter
            text: display.errorText
            font.family: Theme.displayFamily
            font.pixelSize: Theme.unitSize
            fontSizeMode: Text.Fit
            minimumPixelSize: Theme.titleSize
            height: 96
            verticalAlignment: Text.AlignVCenter
            wrapMode: Text.WordWrap
            maximumLineCount: 2
            elide: Text.ElideRight
            color: "white"
        }
    }

    // Small display, in line with the main one.
    Item {
        objectName: "smallDisplay"
        visible: display.shown && !display.hasError && display.small
        width: parent.width
        height: parent.height

        DigitText {
            id: smallValue
            objectName: "smallValue"
            anchors.right: parent.left
            anchors.rightMargin: -display.valueRight
            y: display.smallBaseline - baselineOffset
            width: display.valueRight - display.valueLeft
            pixelSize: Theme.smallDisplaySize
            weight: Font.Normal
            text: !display.small ? ""
                : display.small.isValidKlein ? display.small.messwertKlein : "\u2013\u2009\u2013\u2009\u2013"
            reduction: display.small && display.small.isValidKlein ? display.small.resolutionReductionKlein : 0
            framed: display.small && display.small.isValidKlein ? display.small.eichDigitKlein : 0
            color: Theme.inkSoft
        }
        Text {
            id: smallUnit
            objectName: "smallUnit"
            visible: display.small ? display.small.isValidKlein : false
            x: display.unitLeft
            y: display.smallBaseline - baselineOffset
            text: display.small ? display.small.unitKlein : ""
            font.family: Theme.displayFamily
            font.pixelSize: Theme.titleSize
            color: Theme.inkSoft
        }
        Tag {
            visible: display.small ? display.small.isValidKlein && display.small.isGrobRangeKlein : false
            anchors.left: smallUnit.right
            anchors.leftMargin: Theme.unit
            y: 178
            text: qsTr("COARSE")
        }
    }

    BarGraph {
        objectName: "barGraph"
        visible: display.shown && !display.hasError && display.model.bargraphVisible
        x: Theme.margin
        width: parent.width - 2 * Theme.margin
        y: 220
        value: display.model ? display.model.bargraphValue : 0
    }
}
