// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15

// Shown in the terminal's application area; the host gives it its size. The view model is there as "formulation".
Item {
    id: screen

    readonly property color ink: "#11191C"
    readonly property color inkSoft: "#49565B"
    readonly property color line: "#8E9A9D"
    readonly property color accent: "#0B6B7A"
    readonly property color good: "#1E8E50"
    readonly property color attention: "#F4B63C"
    readonly property color wrong: "#B3261E"

    // The recipes, and what the chosen one is.
    Item {
        id: selection
        objectName: "selection"
        visible: formulation.page === 0
        anchors.fill: parent

        ListView {
            id: list
            objectName: "recipeList"
            x: 24
            y: 8
            width: 296
            height: parent.height - 16
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            highlightMoveDuration: 0
            model: formulation.recipes
            currentIndex: formulation.currentRecipe
            onCurrentIndexChanged: positionViewAtIndex(currentIndex, ListView.Contain)

            delegate: Rectangle {
                id: entry
                readonly property QtObject recipe: modelData
                readonly property bool chosen: recipe ? recipe.selected : false
                width: list.width - 8
                height: 64
                radius: 6
                color: chosen ? screen.accent : "transparent"

                Text {
                    x: 16
                    y: 10
                    width: parent.width - 32
                    text: entry.recipe ? entry.recipe.name : ""
                    textFormat: Text.PlainText
                    elide: Text.ElideRight
                    font.pixelSize: 18
                    font.weight: entry.chosen ? Font.Medium : Font.Normal
                    color: entry.chosen ? "#FFFFFF" : screen.ink
                }
                Text {
                    x: 16
                    y: 36
                    width: parent.width - 32
                    text: entry.recipe ? entry.recipe.additionalInformation : ""
                    textFormat: Text.PlainText
                    elide: Text.ElideRight
                    font.pixelSize: 15
                    color: entry.chosen ? "#E7ECEB" : screen.inkSoft
                }
                MouseArea {
                    anchors.fill: parent
                    onClicked: formulation.choose(index)
                }
            }
        }
        // Where in the list one is.
        Rectangle {
            visible: list.contentHeight > list.height
            x: list.x + list.width - 4
            y: list.y + list.visibleArea.yPosition * list.height
            width: 4
            height: list.visibleArea.heightRatio * list.height
            radius: 2
            color: screen.line
        }
    }

    Column {
        id: words
        visible: formulation.page !== 2
        x: formulation.page === 0 ? 352 : 24
        y: 20
        width: screen.width - x - 24
        spacing: 8

        Text {
            objectName: "title"
            width: parent.width
            text: formulation.title
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            maximumLineCount: message.visible ? 1 : 2
            elide: Text.ElideRight
            font.pixelSize: 22
            font.weight: Font.Medium
            color: screen.ink
        }
        Text {
            objectName: "text"
            width: parent.width
            text: formulation.text
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            maximumLineCount: message.visible ? 2 : 3
            elide: Text.ElideRight
            font.pixelSize: 18
            color: screen.inkSoft
        }
    }
    Rectangle {
        id: message
        objectName: "message"
        visible: formulation.page !== 2 && formulation.message !== ""
        x: words.x
        y: screen.height - height - 16
        width: words.width
        height: messageText.height + 16
        radius: 6
        color: formulation.severity === 1 ? screen.attention : "#F8FAF9"
        border.width: formulation.severity === 1 ? 0 : 1
        border.color: formulation.severity === 2 ? screen.wrong : screen.good

        Text {
            id: messageText
            x: 12
            y: 8
            width: parent.width - 24
            text: formulation.message
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            maximumLineCount: 4
            elide: Text.ElideRight
            font.pixelSize: 15
            color: formulation.severity === 2 ? screen.wrong : screen.ink
        }
    }

    // A component on its way to the target: the whole of it, and its last part.
    Item {
        id: dosing
        objectName: "dosing"
        readonly property int level: formulation.level
        readonly property color levelColor: level === 2 ? screen.good : level === 3 ? screen.wrong : screen.accent
        readonly property int barWidth: width - 24 - 24 - 200

        visible: formulation.page === 2
        anchors.fill: parent

        Rectangle {
            x: 24
            y: 8
            width: dosing.barWidth
            height: 24
            radius: 4
            color: "#F8FAF9"
            border.width: 1
            border.color: screen.line

            Rectangle {
                objectName: "coarseBar"
                x: 1
                y: 1
                width: (parent.width - 2) * formulation.coarse
                height: parent.height - 2
                radius: 3
                color: dosing.levelColor
            }
        }
        Item {
            id: fineBar
            x: 24
            y: 44
            width: dosing.barWidth
            height: 44

            Rectangle {
                anchors.fill: parent
                radius: 4
                color: "#F8FAF9"
                border.width: 1
                border.color: screen.line
            }
            // Within the tolerance.
            Rectangle {
                objectName: "toleranceBand"
                x: parent.width * 0.375
                width: parent.width * 0.25
                y: 1
                height: parent.height - 2
                color: "#C9E6D5"
            }
            Repeater {
                model: [0.375, 0.5, 0.625]

                Rectangle {
                    x: Math.round(fineBar.width * modelData) - 1
                    width: 2
                    height: fineBar.height
                    color: modelData === 0.5 ? screen.ink : screen.good
                }
            }
            // The pointer, at the edge while the weight is beyond the bar.
            Rectangle {
                objectName: "fineMark"
                visible: dosing.level !== 0
                x: Math.max(0, Math.min(parent.width - width, parent.width * formulation.fine - width / 2))
                y: -4
                width: 10
                height: parent.height + 8
                radius: 5
                color: dosing.levelColor
                border.width: 1
                border.color: "#F8FAF9"
            }
        }
        Repeater {
            model: [
                { "at": 0.375, "text": formulation.lowerLimit },
                { "at": 0.5, "text": formulation.target },
                { "at": 0.625, "text": formulation.upperLimit }
            ]

            Text {
                x: fineBar.x + fineBar.width * modelData.at - (index === 0 ? width + 6 : index === 1 ? width / 2 : -6)
                y: 96
                text: modelData.text
                font.pixelSize: 15
                font.weight: index === 1 ? Font.Bold : Font.Normal
                color: screen.inkSoft
            }
        }

        Column {
            anchors.right: parent.right
            anchors.rightMargin: 24
            y: 8
            width: 176
            spacing: 2

            Text {
                objectName: "remainingTitle"
                anchors.right: parent.right
                text: [qsTr("No weight"), qsTr("Still to add"), qsTr("Within tolerance"), qsTr("Too much")][dosing.level]
                font.pixelSize: 15
                font.weight: dosing.level > 1 ? Font.Bold : Font.Normal
                color: dosing.level > 1 ? dosing.levelColor : screen.inkSoft
            }
            Text {
                objectName: "remaining"
                anchors.right: parent.right
                text: dosing.level === 0 ? "–" : formulation.remaining
                font.pixelSize: 36
                font.weight: Font.Medium
                color: dosing.level === 3 ? screen.wrong : screen.ink
            }
            Text {
                anchors.right: parent.right
                visible: dosing.level !== 0
                text: dosing.level === 2 ? qsTr("g off the target") : "g"
                font.pixelSize: 15
                color: screen.inkSoft
            }
        }
    }
}
