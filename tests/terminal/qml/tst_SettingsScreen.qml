// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import QtTest 1.15
import "qrc:/terminal/ui"

// The screen on a stand-in for the model, which keeps what it is told.
Item {
    id: stage
    width: 1024
    height: 544

    ListModel {
        id: standIn

        property string title: "Filling"
        property string parentTitle: "Settings"
        property string dialog: ""
        property string dialogTitle: "Target weight"
        property string dialogText: "500.0"
        property string dialogUnit: "g"
        property string dialogRange: "1.0 to 1000.0"
        property int dialogDecimals: 1
        property bool dialogSigned: false
        property int dialogMaximumLength: 5
        property string dialogFormat: "plain"
        property string dialogError: ""
        property var dialogChoices: []
        property var calls: []

        function note(text) { calls = calls.concat([text]) }
        function press(id) { note("press " + id) }
        function showHelp(id) { note("help " + id) }
        function back() { note("back") }
        function closeScreen() { note("close") }
        function enter(text) { note("enter " + text) }
        function choose(index) { note("choose " + index) }
        function confirm() { note("confirm") }
        function cancel() { note("cancel") }
        function clearDialogError() { dialogError = "" }
    }

    Component {
        id: component
        SettingsScreen {
            settings: standIn
            width: stage.width
            height: stage.height
        }
    }

    TestCase {
        id: test
        name: "SettingsScreen"
        when: windowShown

        property var screen

        function init() {
            standIn.clear()
            standIn.append({ itemId: 10, kind: "menu", text: "Menu", valueText: "", unit: "", checked: false, changeable: true, hasHelp: false })
            standIn.append({ itemId: 11, kind: "number", text: "Target weight", valueText: "500.0", unit: "g", checked: false, changeable: true, hasHelp: true })
            standIn.append({ itemId: 12, kind: "bool", text: "Tare first", valueText: "On", unit: "", checked: true, changeable: true, hasHelp: false })
            standIn.append({ itemId: 13, kind: "text", text: "Sealed", valueText: "x", unit: "", checked: false, changeable: false, hasHelp: true })
            standIn.dialog = ""
            standIn.dialogError = ""
            standIn.parentTitle = "Settings"
            standIn.calls = []
            screen = createTemporaryObject(component, stage)
            verify(screen)
            tryVerify(function() { return findChild(screen, "setting:13") !== null })
        }
        function open(dialog) {
            standIn.dialog = dialog
            wait(0)
        }
        function calls() { return standIn.calls.join("; ") }
        function child(name) { return findChild(screen, name) }

        function test_titles() {
            compare(child("settingsTitle").text, "Filling")
            compare(child("settingsParent").text, "Settings")
        }
        function test_rows() {
            compare(findChild(child("setting:11"), "settingText").text, "Target weight")
            compare(findChild(child("setting:11"), "settingValue").text, "500.0")
            compare(findChild(child("setting:11"), "settingUnit").text, "g")
            // A yes/no shows its switch and no word.
            compare(findChild(child("setting:12"), "settingValue").text, "")
            compare(findChild(child("setting:12"), "settingSwitch").on, true)
            standIn.setProperty(2, "checked", false)
            compare(findChild(child("setting:12"), "settingSwitch").on, false)
        }
        function test_rowsAreLargeEnoughForAFinger() {
            verify(child("setting:11").height >= 64)
        }
        function test_taps() {
            mouseClick(child("setting:10"))
            mouseClick(child("setting:11"))
            mouseClick(child("setting:12"))
            compare(calls(), "press 10; press 11; press 12")
        }
        function test_lockedRow() {
            mouseClick(child("setting:13"))
            compare(calls(), "")
            mouseClick(findChild(child("setting:13"), "settingHelp"))
            compare(calls(), "help 13")
        }
        function test_helpKeyOnlyWithHelp() {
            compare(findChild(child("setting:10"), "settingHelp").visible, false)
            mouseClick(findChild(child("setting:11"), "settingHelp"))
            compare(calls(), "help 11")
        }
        function test_backAndClose() {
            mouseClick(child("settingsBack"))
            mouseClick(child("settingsClose"))
            compare(calls(), "back; close")
            standIn.parentTitle = ""
            compare(child("settingsBack").visible, false)
        }
        function test_emptyPage() {
            compare(child("settingsEmpty").visible, false)
            standIn.clear()
            tryCompare(child("settingsEmpty"), "visible", true)
        }
        function test_numericDialog() {
            open("number")
            compare(child("numericTitle").text, "Target weight")
            compare(child("numericRange").text, "1.0 to 1000.0 g")
            mouseClick(child("numericKey:7"))
            standIn.dialogError = "This value is not allowed."
            compare(child("numericError").visible, true)
            mouseClick(child("numericKey:5"))
            compare(child("numericError").visible, false)
            mouseClick(child("numericEnter"))
            mouseClick(child("numericCancel"))
            compare(calls(), "enter 75; cancel")
        }
        // What has been entered stays when the texts become those of another language.
        function test_anotherLanguageWhileEntering() {
            open("number")
            mouseClick(child("numericKey:7"))
            standIn.dialogTitle = "Zielgewicht"
            compare(child("numericTitle").text, "Zielgewicht")
            compare(child("numericText").text, "7")
            standIn.dialogTitle = "Target weight"
        }
        function test_textDialog() {
            open("text")
            compare(child("textInput").text, "500.0")
            keyClick("a")
            keyClick("b")
            compare(child("textInput").text, "ab")
            for (var i = 0; i < 9; ++i)
                keyClick("c")
            compare(child("textInput").text, "abccc")
            mouseClick(child("textEnter"))
            keyClick(Qt.Key_Escape)
            compare(calls(), "enter abccc; cancel")
        }
        function test_selectionDialog() {
            standIn.dialogChoices = [models.selectListItem("Coarse", "", "", false, false),
                                      models.selectListItem("Fine", "", "", true, false)]
            open("selection")
            mouseClick(findChild(child("selectionList"), "selectListRow:0"))
            mouseClick(child("selectionCancel"))
            compare(calls(), "choose 0; cancel")
        }
        function test_confirmation() {
            standIn.dialogText = "Clear it?"
            open("confirmation")
            compare(child("confirmationText").text, "Clear it?")
            mouseClick(child("confirmationEnter"))
            mouseClick(child("confirmationCancel"))
            compare(calls(), "confirm; cancel")
            standIn.dialogText = "500.0"
        }
        function test_helpDialog_data() {
            return [
                { tag: "plain", format: Text.PlainText },
                { tag: "markdown", format: Text.MarkdownText },
                { tag: "rich", format: Text.RichText }
            ]
        }
        function test_helpDialog(row) {
            standIn.dialogFormat = row.tag
            open("help")
            compare(child("helpText").textFormat, row.format)
            mouseClick(child("helpClose"))
            compare(calls(), "cancel")
        }
        // A tap beside the dialog reaches nothing.
        function test_dialogIsModal() {
            open("number")
            mouseClick(screen, 10, 100)
            mouseClick(screen, 980, 30)
            compare(calls(), "")
        }
        function test_noDialog() {
            compare(child("numericDialog"), null)
        }
    }
}
