// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import Brimvale.Terminal 1.0
import "."

// The printer: its state and its faults, the print-outs that wait for it, and what it has printed.
Item {
    id: page

    readonly property int margin: 16
    readonly property int content: width - 2 * margin
    // Null in a terminal that has no printer at all.
    readonly property var printer: bench.printer
    readonly property var prints: printer ? printer.prints : []

    // What it is and what it does.
    Icon {
        id: mark
        x: page.margin
        y: 14
        name: page.printer && page.printer.needsHelp ? "warning" : "print"
        size: 24
        color: page.printer && page.printer.needsHelp ? Theme.error : Theme.inkSoft
    }
    Text {
        id: stateLine
        objectName: "printerState"
        anchors.left: mark.right
        anchors.leftMargin: 10
        y: 8
        width: page.content - mark.width - 10
        text: page.printer ? page.printer.stateText : ""
        elide: Text.ElideRight
        font.pixelSize: Theme.bodySize
        font.weight: Font.Medium
        color: page.printer && page.printer.needsHelp ? Theme.error : Theme.ink
    }
    Text {
        anchors.left: stateLine.left
        y: 30
        width: stateLine.width
        text: page.printer ? page.printer.description : ""
        elide: Text.ElideMiddle
        font.pixelSize: Theme.captionSize
        color: Theme.inkSoft
    }

    // What is the matter with it.
    Row {
        id: faultKeys
        x: page.margin
        y: 56
        spacing: 4

        Repeater {
            model: [
                {fault: "ok", text: qsTr("OK"), width: 56},
                {fault: "paper out", text: qsTr("No paper"), width: 92},
                {fault: "offline", text: qsTr("Offline"), width: 72},
                {fault: "slow", text: qsTr("Slow"), width: 72}
            ]

            BenchKey {
                readonly property bool chosen: page.printer ? page.printer.fault === modelData.fault : false

                objectName: "printerFault:" + modelData.fault
                width: modelData.width
                height: 36
                text: modelData.text
                textSize: 14
                ground: chosen ? Theme.accent : Theme.benchKey
                groundPressed: chosen ? Theme.accent : Theme.benchKeyPressed
                foreground: chosen ? "white" : Theme.ink
                onClicked: page.printer.fault = modelData.fault
            }
        }
    }

    // What is not printed yet.
    ShortList {
        id: queue
        objectName: "printQueue"
        visible: page.prints.length > 0
        x: page.margin
        y: 100
        width: page.content
        height: visible ? Math.min(contentHeight, 176) : 0
        spacing: Theme.unit
        model: page.prints

        delegate: Rectangle {
            width: queue.width
            height: modelData.failed ? 104 : 56
            radius: Theme.radius
            color: Theme.display

            Rectangle {
                visible: modelData.failed
                width: 4
                height: parent.height
                color: Theme.error
            }
            Text {
                x: 12
                y: 5
                width: parent.width - x - keys.width - Theme.unit
                text: modelData.title
                textFormat: Text.PlainText
                elide: Text.ElideRight
                font.pixelSize: 16
                font.weight: Font.Medium
                color: Theme.ink
            }
            Text {
                x: 12
                y: 27
                width: parent.width - x - keys.width - Theme.unit
                text: modelData.detail
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                elide: Text.ElideRight
                maximumLineCount: 4
                font.pixelSize: 13
                color: modelData.failed ? Theme.error : Theme.inkSoft
            }
            Column {
                id: keys
                anchors.right: parent.right
                anchors.rightMargin: 6
                anchors.verticalCenter: parent.verticalCenter
                spacing: 4

                BenchKey {
                    objectName: "repeatPrint:" + modelData.id
                    visible: modelData.failed
                    width: 92
                    height: 42
                    textSize: 14
                    ground: Theme.accent
                    foreground: "white"
                    text: qsTr("Repeat")
                    onClicked: page.printer.repeat(modelData.id)
                }
                BenchKey {
                    objectName: "deletePrint:" + modelData.id
                    width: 92
                    height: 42
                    textSize: 14
                    ground: Theme.field
                    text: qsTr("Delete")
                    onClicked: page.printer.remove(modelData.id)
                }
            }
        }
    }
    ScrollMark {
        target: queue
    }

    // The paper, which comes out of the slot below and moves up.
    readonly property bool onRoll: printer ? printer.printsOnRoll : false
    readonly property int paperTop: queue.visible ? queue.y + queue.height + 12 : 100

    Rectangle {
        id: slot
        visible: page.onRoll
        x: page.margin
        y: page.height - height - 8
        width: page.content
        height: 44
        radius: Theme.radius
        color: Theme.frame

        Rectangle {
            x: 10
            y: 5
            width: parent.width - 20
            height: 4
            radius: 2
            color: "black"
        }
        Text {
            anchors.left: parent.left
            anchors.leftMargin: 14
            anchors.bottom: parent.bottom
            anchors.bottomMargin: 8
            text: qsTr("Paper roll")
            font.pixelSize: Theme.captionSize
            color: Theme.frameInkSoft
        }
        BenchKey {
            objectName: "tearOff"
            anchors.right: parent.right
            anchors.rightMargin: 6
            anchors.bottom: parent.bottom
            anchors.bottomMargin: 3
            height: 28
            width: 96
            textSize: 14
            ground: Theme.key
            groundPressed: Theme.keyPressed
            foreground: Theme.frameInk
            enabled: paper.count > 0
            text: qsTr("Tear off")
            onClicked: page.printer.paper.tearOff()
        }
    }
    ListView {
        id: paper
        objectName: "paper"
        readonly property int columns: page.printer ? page.printer.paper.columns : 24
        readonly property int sideMargin: 10
        readonly property real available: page.content - 16 - 2 * sideMargin
        // A roll of 80 columns is wider than the bench and moves sideways.
        readonly property real columnWidth: Math.max(6.6, Math.min(9.6, available / columns))
        readonly property int paperWidth: Math.ceil(columnWidth * columns) + 2 * sideMargin
        readonly property real lineHeight: Math.round(columnWidth * 2.1)
        readonly property real cutHeight: 22
        // Reckoned, since the height of the content is known only for the lines in sight, which depend on it.
        readonly property real paperHeight: page.printer
            ? headerHeight + footerHeight + cutHeight * page.printer.paper.cuts
              + lineHeight * (page.printer.paper.count - page.printer.paper.cuts)
            : 0
        readonly property int headerHeight: 10
        readonly property int footerHeight: 14
        readonly property color white: "#FCFBF6"

        visible: page.onRoll
        x: page.margin + Math.max(8, (page.content - paperWidth) / 2)
        width: Math.min(paperWidth, page.content - 16)
        y: Math.max(page.paperTop, slot.y + 7 - paperHeight)
        height: slot.y + 7 - y
        clip: true
        contentWidth: paperWidth
        flickableDirection: paperWidth > width ? Flickable.HorizontalAndVerticalFlick : Flickable.VerticalFlick
        boundsBehavior: Flickable.StopAtBounds
        model: page.printer ? page.printer.paper : null
        // What is printed last is what is looked at.
        function showEnd() {
            contentY = originY + Math.max(0, contentHeight - height)
        }
        onContentHeightChanged: showEnd()
        onHeightChanged: showEnd()

        header: PaperEdge {
            width: paper.paperWidth
            height: paper.headerHeight
            color: paper.white
        }
        footer: Rectangle {
            width: paper.paperWidth
            height: paper.footerHeight
            color: paper.white
        }
        delegate: Rectangle {
            width: paper.paperWidth
            height: cut ? paper.cutHeight : paper.lineHeight
            color: paper.white

            PaperLine {
                visible: !cut
                x: paper.sideMargin
                width: parent.width - x
                height: parent.height
                columnWidth: paper.columnWidth
                ink: "#2A2A30"
                text: lineText
            }
            // Where the next print-out is torn off.
            Row {
                visible: cut
                anchors.verticalCenter: parent.verticalCenter
                spacing: 4
                Repeater {
                    model: cut ? Math.ceil(paper.paperWidth / 9) : 0
                    Rectangle {
                        width: 5
                        height: 1
                        color: "#B9B7AE"
                    }
                }
            }
        }
    }
    // The paper lies in the shadow of the printer where it comes out.
    Rectangle {
        visible: page.onRoll
        x: paper.x
        width: paper.width
        height: 10
        y: slot.y + 7 - height
        gradient: Gradient {
            GradientStop { position: 0; color: "#00000000" }
            GradientStop { position: 1; color: "#40000000" }
        }
    }
    ScrollMark {
        visible: page.onRoll && paper.visibleArea.heightRatio < 1
        target: paper
    }
    Rectangle {
        visible: page.onRoll && paper.visibleArea.widthRatio < 1
        x: paper.x + paper.visibleArea.xPosition * paper.width
        y: slot.y - height
        width: paper.visibleArea.widthRatio * paper.width
        height: 4
        radius: 2
        color: Theme.inkFaint
    }
    Text {
        visible: page.printer !== null && !page.onRoll
        x: page.margin
        y: page.paperTop + 8
        width: page.content
        text: qsTr("What is printed does not appear here: this terminal prints elsewhere.")
        wrapMode: Text.WordWrap
        lineHeight: 1.15
        font.pixelSize: Theme.captionSize
        color: Theme.inkSoft
    }
}
