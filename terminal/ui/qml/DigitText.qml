// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// A formatted value whose figures stand in cells of equal width, set from the right, so that neither a changing
// digit nor a reduced resolution moves the decimal point. A text that is no number is shown as it is.
Item {
    id: digits

    property string text
    // Decimal places that the text leaves out; they are marked as empty places.
    property int reduction: 0
    // Last digits of the text that are not verified; they stand in a frame.
    property int framed: 0
    property int pixelSize: Theme.valueSize
    property int weight: Font.Medium
    property color color: Theme.ink
    property color softColor: Theme.inkSoft
    property color faintColor: Theme.inkFaint

    readonly property bool numeric: /^\s*[+-]?\s*\d+([.,]\d*)?\s*$/.test(text)
    // From right to left: { sign: the character, kind: "digit", "framed", "empty", "point" or "sign" }.
    readonly property var cells: numeric ? cellsOf(text.replace(/\s/g, ""), Math.min(reduction, 9), framed) : []
    // Below 1 when the text is too wide for the item: then everything is drawn smaller.
    readonly property real fitting: Math.min(1, width / Math.max(1, numeric ? row.width : plain.implicitWidth))

    implicitWidth: numeric ? row.width : plain.implicitWidth
    implicitHeight: metrics.height
    baselineOffset: metrics.ascent

    function cellsOf(value, empty, unverified) {
        var list = []
        var hasPoint = /[.,]/.test(value)
        var i
        for (i = 0; i < empty; ++i)
            list.push({ "sign": "", "kind": "empty" })
        if (empty > 0 && !hasPoint)
            list.push({ "sign": ".", "kind": "emptyPoint" })
        var left = unverified
        for (i = value.length - 1; i >= 0; --i) {
            var sign = value.charAt(i)
            if (sign >= "0" && sign <= "9")
                list.push({ "sign": sign, "kind": left-- > 0 ? "framed" : "digit" })
            else if (sign === "." || sign === ",")
                list.push({ "sign": sign, "kind": "point" })
            else
                list.push({ "sign": sign === "-" ? "\u2212" : sign, "kind": "sign" })
        }
        return list
    }

    FontMetrics {
        id: metrics
        font.family: Theme.displayFamily
        font.pixelSize: digits.pixelSize
        font.weight: digits.weight
    }
    // Whole pixels, so that a figure looks the same in every place.
    readonly property int digitWidth: Math.round(metrics.advanceWidth("0"))
    readonly property int pointWidth: Math.round(metrics.advanceWidth("."))
    readonly property int signWidth: Math.round(metrics.advanceWidth("0") * 0.85)

    Row {
        id: row
        visible: digits.numeric
        anchors.right: parent.right
        layoutDirection: Qt.RightToLeft
        transform: Scale {
            origin.x: row.width
            origin.y: metrics.ascent
            xScale: digits.fitting
            yScale: digits.fitting
        }

        Repeater {
            model: digits.cells.length

            Item {
                id: cell
                readonly property var content: digits.cells[index] || { "sign": "", "kind": "digit" }
                readonly property bool isFramed: content.kind === "framed"
                objectName: content.kind

                width: content.kind === "point" || content.kind === "emptyPoint" ? digits.pointWidth
                     : content.kind === "sign" ? digits.signWidth : digits.digitWidth
                height: metrics.height

                Rectangle {
                    visible: cell.isFramed
                    x: 2
                    width: parent.width - 4
                    y: metrics.ascent - digits.pixelSize * 0.76
                    height: digits.pixelSize * 0.81
                    radius: Theme.radius
                    color: "transparent"
                    border.width: Math.max(1, Math.round(digits.pixelSize / 48))
                    border.color: digits.faintColor
                }
                Text {
                    anchors.horizontalCenter: parent.horizontalCenter
                    y: metrics.ascent - baselineOffset - (cell.isFramed ? digits.pixelSize * 0.06 : 0)
                    text: cell.content.sign
                    font.family: Theme.displayFamily
                    font.pixelSize: digits.pixelSize * (cell.isFramed ? 0.8 : 1)
                    font.weight: digits.weight
                    color: cell.isFramed ? digits.softColor
                                         : cell.content.kind === "emptyPoint" ? digits.faintColor : digits.color
                }
                Rectangle {
                    visible: cell.content.kind === "empty"
                    anchors.horizontalCenter: parent.horizontalCenter
                    y: metrics.ascent - height
                    width: Math.round(digits.digitWidth * 0.45)
                    height: Math.max(2, Math.round(digits.pixelSize / 28))
                    color: digits.faintColor
                }
            }
        }
    }

    Text {
        id: plain
        visible: !digits.numeric
        anchors.right: parent.right
        text: digits.text
        font.family: Theme.displayFamily
        font.pixelSize: digits.pixelSize
        font.weight: digits.weight
        color: digits.color
        transform: Scale {
            origin.x: plain.width
            origin.y: metrics.ascent
            xScale: digits.fitting
            yScale: digits.fitting
        }
    }
}
