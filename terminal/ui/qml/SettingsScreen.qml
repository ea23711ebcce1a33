// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// The settings of the application: one page of its menu, and the dialog that is open. It covers the weight as a whole,
// never a part of it, and leaves the status line, where the language is switched.
Rectangle {
    id: screen

    // An object with the properties of SettingsModel.
    property var settings

    color: Theme.field

    // Keeps taps from reaching the screen beneath.
    MouseArea {
        anchors.fill: parent
    }

    Rectangle {
        id: header
        width: parent.width
        height: 64
        color: Theme.display

        Rectangle {
            y: parent.height - 1
            width: parent.width
            height: 1
            color: Theme.line
        }
        Item {
            id: backKey
            visible: screen.settings.parentTitle.length > 0
            width: visible ? backText.width + 64 : 0
            height: parent.height

            Rectangle {
                anchors.fill: parent
                anchors.bottomMargin: 1
                color: backArea.pressed ? Theme.line : "transparent"
            }
            Icon {
                x: 20
                anchors.verticalCenter: parent.verticalCenter
                name: "back"
                size: 26
                strokeWidth: 2.4
                color: Theme.accent
            }
            Text {
                id: backText
                objectName: "settingsParent"
                x: 50
                width: Math.min(implicitWidth, 220)
                anchors.verticalCenter: parent.verticalCenter
                text: screen.settings.parentTitle
                textFormat: Text.PlainText
                elide: Text.ElideRight
                font.pixelSize: Theme.bodySize
                color: Theme.accent
            }
            MouseArea {
                id: backArea
                objectName: "settingsBack"
                anchors.fill: parent
                onClicked: screen.settings.back()
            }
        }
        Text {
            objectName: "settingsTitle"
            anchors.left: backKey.right
            anchors.leftMargin: backKey.visible ? 16 : Theme.margin
            anchors.right: closeKey.left
            anchors.rightMargin: 16
            anchors.verticalCenter: parent.verticalCenter
            text: screen.settings.title
            textFormat: Text.PlainText
            elide: Text.ElideRight
            font.pixelSize: Theme.titleSize
            font.weight: Font.Bold
            color: Theme.ink
        }
        DialogKey {
            id: closeKey
            objectName: "settingsClose"
            anchors.right: parent.right
            anchors.rightMargin: Theme.unit
            anchors.verticalCenter: parent.verticalCenter
            width: 72
            height: 48
            icon: "close"
            onClicked: screen.settings.closeScreen()
        }
    }

    Text {
        objectName: "settingsEmpty"
        visible: list.count === 0
        anchors.centerIn: list
        text: qsTr("There is nothing to set here now.")
        font.pixelSize: Theme.titleSize
        color: Theme.inkSoft
    }
    ListView {
        id: list
        objectName: "settingsList"
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: screen.settings

        delegate: SettingsRow {
            objectName: "setting:" + model.itemId
            width: list.width
            kind: model.kind
            text: model.text
            valueText: model.valueText
            unit: model.unit
            checked: model.checked
            changeable: model.changeable
            hasHelp: model.hasHelp
            onPressed: screen.settings.press(model.itemId)
            onHelpRequested: screen.settings.showHelp(model.itemId)
        }
    }
    ScrollMark {
        target: list
    }

    // The dialog, over everything.
    Rectangle {
        visible: dialog.active
        anchors.fill: parent
        color: "#99000000"

        MouseArea {
            anchors.fill: parent
        }
    }
    Loader {
        id: dialog
        objectName: "settingsDialog"
        readonly property string kind: screen.settings.dialog
        active: kind.length > 0
        anchors.centerIn: parent
        focus: true
        sourceComponent: kind === "number" ? numericDialog
                       : kind === "text" ? textDialog
                       : kind === "selection" ? selectionDialog
                       : kind === "confirmation" ? confirmationDialog : helpDialog
    }

    Component {
        id: numericDialog

        NumericDialog {
            objectName: "numericDialog"
            title: screen.settings.dialogTitle
            value: screen.settings.dialogText
            unit: screen.settings.dialogUnit
            range: screen.settings.dialogRange
            error: screen.settings.dialogError
            decimals: screen.settings.dialogDecimals
            signed: screen.settings.dialogSigned
            onEntered: screen.settings.enter(text)
            onCancelled: screen.settings.cancel()
            onEdited: screen.settings.clearDialogError()
        }
    }
    Component {
        id: textDialog

        TextDialog {
            objectName: "textDialog"
            title: screen.settings.dialogTitle
            value: screen.settings.dialogText
            error: screen.settings.dialogError
            maximumLength: screen.settings.dialogMaximumLength
            onEntered: screen.settings.enter(text)
            onCancelled: screen.settings.cancel()
            onEdited: screen.settings.clearDialogError()
        }
    }
    Component {
        id: selectionDialog

        Rectangle {
            objectName: "selectionDialog"
            width: 560
            height: Math.min(screen.height - 48, 176 + choices.contentHeight + (choiceError.visible ? 32 : 0))
            radius: Theme.radius
            color: Theme.display

            MouseArea {
                anchors.fill: parent
            }
            Text {
                id: choiceTitle
                objectName: "selectionTitle"
                x: Theme.margin
                y: Theme.margin
                width: parent.width - 2 * Theme.margin
                text: screen.settings.dialogTitle
                textFormat: Text.PlainText
                elide: Text.ElideRight
                font.pixelSize: Theme.titleSize
                font.weight: Font.Medium
                color: Theme.ink
            }
            SelectList {
                id: choices
                objectName: "selectionList"
                anchors.top: choiceTitle.bottom
                anchors.topMargin: 12
                anchors.bottom: choiceError.visible ? choiceError.top : choiceCancel.top
                anchors.bottomMargin: 12
                width: parent.width
                items: screen.settings.dialogChoices
                onChosen: screen.settings.choose(index)
            }
            ScrollMark {
                target: choices
            }
            Text {
                id: choiceError
                objectName: "selectionError"
                visible: text.length > 0
                x: Theme.margin
                anchors.bottom: choiceCancel.top
                anchors.bottomMargin: 8
                width: choiceTitle.width
                text: screen.settings.dialogError
                textFormat: Text.PlainText
                elide: Text.ElideRight
                font.pixelSize: Theme.bodySize
                font.weight: Font.Medium
                color: Theme.error
            }
            DialogKey {
                id: choiceCancel
                objectName: "selectionCancel"
                anchors.right: parent.right
                anchors.rightMargin: Theme.margin
                anchors.bottom: parent.bottom
                anchors.bottomMargin: Theme.margin
                width: 160
                text: qsTr("Cancel")
                onClicked: screen.settings.cancel()
            }
        }
    }
    Component {
        id: confirmationDialog

        Rectangle {
            objectName: "confirmationDialog"
            width: 560
            height: Math.min(screen.height - 48, question.y + question.implicitHeight + 112)
            radius: Theme.radius
            color: Theme.display

            MouseArea {
                anchors.fill: parent
            }
            Text {
                id: commandTitle
                x: Theme.margin
                y: Theme.margin
                width: parent.width - 2 * Theme.margin
                text: screen.settings.dialogTitle
                textFormat: Text.PlainText
                elide: Text.ElideRight
                font.pixelSize: Theme.titleSize
                font.weight: Font.Medium
                color: Theme.ink
            }
            Text {
                id: question
                objectName: "confirmationText"
                x: Theme.margin
                anchors.top: commandTitle.bottom
                anchors.topMargin: 16
                width: commandTitle.width
                text: screen.settings.dialogText
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                font.pixelSize: Theme.bodySize
                lineHeight: 1.2
                color: Theme.ink
            }
            Row {
                anchors.right: parent.right
                anchors.rightMargin: Theme.margin
                anchors.bottom: parent.bottom
                anchors.bottomMargin: Theme.margin
                spacing: Theme.unit

                DialogKey {
                    objectName: "confirmationCancel"
                    width: 160
                    text: qsTr("Cancel")
                    onClicked: screen.settings.cancel()
                }
                DialogKey {
                    objectName: "confirmationEnter"
                    width: 160
                    main: true
                    text: qsTr("OK")
                    onClicked: screen.settings.confirm()
                }
            }
        }
    }
    Component {
        id: helpDialog

        Rectangle {
            objectName: "helpDialog"
            width: 800
            height: Math.min(screen.height - 48, 192 + helpText.implicitHeight)
            radius: Theme.radius
            color: Theme.display

            MouseArea {
                anchors.fill: parent
            }
            Text {
                id: helpTitle
                x: Theme.margin
                y: Theme.margin
                width: parent.width - 2 * Theme.margin
                text: screen.settings.dialogTitle
                textFormat: Text.PlainText
                elide: Text.ElideRight
                font.pixelSize: Theme.titleSize
                font.weight: Font.Medium
                color: Theme.ink
            }
            Flickable {
                id: page
                x: Theme.margin
                anchors.top: helpTitle.bottom
                anchors.topMargin: 16
                anchors.bottom: helpClose.top
                anchors.bottomMargin: 16
                width: helpTitle.width
                contentHeight: helpText.height
                clip: true
                boundsBehavior: Flickable.StopAtBounds

                Text {
                    id: helpText
                    objectName: "helpText"
                    width: page.width - 16
                    text: screen.settings.dialogText
                    textFormat: screen.settings.dialogFormat === "markdown" ? Text.MarkdownText
                              : screen.settings.dialogFormat === "rich" ? Text.RichText : Text.PlainText
                    wrapMode: Text.Wrap
                    font.pixelSize: Theme.bodySize
                    lineHeight: 1.2
                    color: Theme.ink
                }
            }
            ScrollMark {
                target: page
            }
            DialogKey {
                id: helpClose
                objectName: "helpClose"
                anchors.right: parent.right
                anchors.rightMargin: Theme.margin
                anchors.bottom: parent.bottom
                anchors.bottomMargin: Theme.margin
                width: 160
                main: true
                text: qsTr("Close")
                onClicked: screen.settings.cancel()
            }
        }
    }
}
