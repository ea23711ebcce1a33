// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import QtTest 1.15
import "qrc:/terminal/ui"

Item {
    width: 1024
    height: 600

    Component {
        id: component
        NumericDialog {}
    }
    SignalSpy {
        id: entered
        signalName: "entered"
    }
    SignalSpy {
        id: cancelled
        signalName: "cancelled"
    }

    TestCase {
        id: test
        name: "NumericDialog"
        when: windowShown

        property var dialog

        function open(properties) {
            dialog = createTemporaryObject(component, test.parent, properties)
            verify(dialog)
            entered.target = dialog
            cancelled.target = dialog
            entered.clear()
            cancelled.clear()
        }
        function tap(key) {
            var item = findChild(dialog, key.length > 1 && key.indexOf("numeric") === 0 ? key : "numericKey:" + key)
            verify(item, key)
            mouseClick(item)
        }
        function shown(name) {
            var item = findChild(dialog, name)
            return item.visible ? item.text : ""
        }

        function test_texts() {
            open({ title: "Target weight", value: "500.0", unit: "g", range: "1.0 to 1000.0", decimals: 1 })
            compare(shown("numericTitle"), "Target weight")
            compare(shown("numericText"), "500.0")
            compare(shown("numericUnit"), "g")
            compare(shown("numericRange"), "1.0 to 1000.0 g")
            compare(shown("numericError"), "")
        }

        function test_keys_data() {
            return [
                { tag: "first digit replaces", value: "500.0", decimals: 1, signed: false, keys: ["7"], text: "7" },
                { tag: "several", value: "5", decimals: 0, signed: false, keys: ["1", "2", "0"], text: "120" },
                { tag: "decimals", value: "5", decimals: 2, signed: false, keys: ["1", "point", "2", "5"], text: "1.25" },
                { tag: "no more decimals", value: "5", decimals: 1, signed: false, keys: ["1", "point", "2", "5"], text: "1.2" },
                { tag: "point first", value: "5", decimals: 1, signed: false, keys: ["point", "5"], text: "0.5" },
                { tag: "one point", value: "5", decimals: 2, signed: false, keys: ["1", "point", "point", "5"], text: "1.5" },
                { tag: "no point in a whole number", value: "5", decimals: 0, signed: false, keys: ["1", "point", "5"], text: "15" },
                { tag: "no zero in front", value: "5", decimals: 0, signed: false, keys: ["0", "0", "7"], text: "7" },
                { tag: "erase at once", value: "500", decimals: 0, signed: false, keys: ["erase"], text: "" },
                { tag: "erase one", value: "500", decimals: 0, signed: false, keys: ["1", "2", "erase"], text: "1" },
                { tag: "clear", value: "500", decimals: 0, signed: false, keys: ["1", "2", "clear"], text: "" },
                { tag: "sign", value: "500", decimals: 0, signed: true, keys: ["1", "sign"], text: "-1" },
                { tag: "sign twice", value: "500", decimals: 0, signed: true, keys: ["1", "sign", "sign"], text: "1" },
                { tag: "sign of what is there", value: "500", decimals: 0, signed: true, keys: ["sign"], text: "-500" },
                { tag: "no sign", value: "500", decimals: 0, signed: false, keys: ["1", "sign"], text: "1" },
                { tag: "longest", value: "", decimals: 0, signed: false,
                  keys: ["1","2","3","4","5","6","7","8","9","1","2","3","4"], text: "123456789123" }
            ]
        }
        function test_keys(row) {
            open({ value: row.value, decimals: row.decimals, signed: row.signed })
            for (var i = 0; i < row.keys.length; ++i)
                tap(row.keys[i])
            compare(shown("numericText"), row.text)
        }

        function test_enter() {
            open({ value: "500", decimals: 0 })
            tap("4")
            tap("2")
            tap("numericEnter")
            compare(entered.count, 1)
            compare(entered.signalArguments[0][0], "42")
            compare(cancelled.count, 0)
        }

        function test_nothingIsNotEntered() {
            open({ value: "500", decimals: 0 })
            tap("clear")
            tap("numericEnter")
            compare(entered.count, 0)
        }

        function test_cancel() {
            open({ value: "500" })
            tap("4")
            tap("numericCancel")
            compare(cancelled.count, 1)
            compare(entered.count, 0)
        }

        function test_refusal() {
            open({ value: "500", range: "1 to 1000", error: "Enter a number from 1 to 1000." })
            compare(shown("numericError"), "Enter a number from 1 to 1000.")
            dialog.error = ""
            compare(shown("numericError"), "")
        }

        function test_keyboard() {
            open({ value: "500", decimals: 1, signed: true })
            keyClick(Qt.Key_1)
            keyClick(Qt.Key_2)
            keyClick(".")
            keyClick(Qt.Key_5)
            keyClick("-")
            compare(dialog.text, "-12.5")
            keyClick(Qt.Key_Backspace)
            compare(dialog.text, "-12.")
            keyClick(Qt.Key_Return)
            compare(entered.count, 1)
            keyClick(Qt.Key_Delete)
            compare(dialog.text, "")
            keyClick(Qt.Key_Escape)
            compare(cancelled.count, 1)
        }
    }
}
