// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// Units, approved operation and the weighing parameters in force.
Item {
    id: page

    readonly property int margin: 16
    readonly property int content: width - 2 * margin
    readonly property QtObject units: bench.units

    Text {
        x: page.margin
        y: 12
        text: qsTr("The unit key steps through")
        font.pixelSize: Theme.captionSize
        color: Theme.inkSoft
    }
    Grid {
        objectName: "offeredUnits"
        x: page.margin
        y: 36
        columns: 6
        spacing: 6

        Repeater {
            model: page.units.offered

            BenchChoice {
                objectName: "offered:" + modelData
                width: (page.content - 5 * 6) / 6
                text: modelData
                textSize: 16
                chosen: modelData === page.units.mainUnit
                onClicked: page.units.mainUnitRequested(modelData)

                // The unit of the small display.
                Rectangle {
                    visible: modelData === page.units.smallUnit
                    anchors.horizontalCenter: parent.horizontalCenter
                    y: parent.height - 7
                    width: 20
                    height: 3
                    color: parent.chosen ? "white" : Theme.accent
                }
            }
        }
    }
    Text {
        visible: page.units.offered.length === 0
        x: page.margin
        y: 44
        width: page.content
        text: qsTr("No unit: the approval leaves none. Weights are shown in gram.")
        wrapMode: Text.WordWrap
        font.pixelSize: Theme.bodySize
        color: Theme.ink
    }

    Rectangle {
        x: page.margin
        y: 184
        width: page.content
        height: 1
        color: Theme.benchLine
    }
    Column {
        x: page.margin
        y: 188
        width: page.content

        BenchSwitch {
            objectName: "approvedUnitsOnly"
            width: parent.width
            title: qsTr("Approved units only")
            checked: page.units.approvedUnitsOnly
            onToggled: page.units.approvedUnitsOnlyRequested(!checked)
        }
        BenchSwitch {
            objectName: "caratAllowed"
            width: parent.width
            title: qsTr("Carat allowed")
            checked: page.units.caratAllowed
            onToggled: page.units.caratAllowedRequested(!checked)
        }
        BenchSwitch {
            objectName: "auxiliaryDigit"
            width: parent.width
            title: qsTr("Last digit not verified")
            checked: page.units.auxiliaryDigit
            onToggled: page.units.auxiliaryDigitRequested(!checked)
        }
        Item {
            width: 1
            height: 4
        }
        BenchStepper {
            objectName: "minimumDecimals"
            width: parent.width
            title: qsTr("Decimals at least")
            valueText: page.units.minimumDecimals === 0 ? "\u2013" : page.units.minimumDecimals
            lowest: page.units.minimumDecimals === 0
            highest: page.units.minimumDecimals === 7
            onStepped: page.units.minimumDecimalsRequested(page.units.minimumDecimals + (up ? 1 : -1))
        }
        Item {
            width: 1
            height: 8
        }
        BenchStepper {
            objectName: "reducedDigits"
            width: parent.width
            title: qsTr("Digits left out")
            valueText: page.units.reducedDigits
            lowest: page.units.reducedDigits === 0
            highest: page.units.reducedDigits === 3
            onStepped: page.units.reducedDigitsRequested(page.units.reducedDigits + (up ? 1 : -1))
        }
    }

    Rectangle {
        x: page.margin
        y: 404
        width: page.content
        height: 1
        color: Theme.benchLine
    }
    Text {
        x: page.margin
        y: 416
        text: qsTr("Weighing parameters in force")
        font.pixelSize: Theme.captionSize
        color: Theme.inkSoft
    }
    Text {
        objectName: "parameterSet"
        x: page.margin
        y: 436
        text: page.units.parameterSet
        font.pixelSize: Theme.bodySize
        font.weight: Font.Medium
        color: Theme.ink
    }
    Text {
        objectName: "parameterValues"
        x: page.margin
        y: 460
        width: page.content
        text: page.units.parameterValues
        elide: Text.ElideRight
        font.pixelSize: Theme.captionSize
        color: Theme.inkSoft
    }
    Row {
        x: page.margin
        y: 490
        spacing: Theme.unit

        BenchKey {
            objectName: "parameters:standard"
            width: (page.content - 2 * Theme.unit) / 3
            text: qsTr("Standard")
            textSize: 16
            onClicked: page.units.parameterSetRequested("standard")
        }
        BenchKey {
            objectName: "parameters:msw"
            width: (page.content - 2 * Theme.unit) / 3
            text: qsTr("MSW")
            textSize: 16
            onClicked: page.units.parameterSetRequested("msw")
        }
        BenchKey {
            objectName: "parameters:system"
            width: (page.content - 2 * Theme.unit) / 3
            text: qsTr("Restore")
            textSize: 16
            onClicked: page.units.parameterSetRequested("system")
        }
    }
}
