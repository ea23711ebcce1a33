// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import QtTest 1.15
import "qrc:/terminal/ui"

Item {
    width: 600
    height: 400

    SelectList {
        id: list
        anchors.fill: parent
    }
    SignalSpy {
        id: chosen
        target: list
        signalName: "chosen"
    }

    TestCase {
        name: "SelectList"
        when: windowShown

        property var first
        property var second

        function init() {
            first = models.selectListItem("Bread", "2026-01-05", "3 components", false, false)
            second = models.selectListItem("Rolls", "", "", true, true)
            list.protectedChoosable = true
            list.items = []
            wait(1) // the rows of the test before are deleted
            list.items = [first, second]
            tryCompare(list, "count", 2)
            chosen.clear()
        }
        function part(row, name) {
            return findChild(findChild(list, "selectListRow:" + row), name)
        }

        function test_texts() {
            compare(part(0, "selectListName").text, "Bread")
            compare(part(0, "selectListDate").text, "2026-01-05")
            compare(part(0, "selectListInformation").text, "3 components")
            compare(part(1, "selectListInformation").visible, false)
        }
        function test_marks() {
            compare(part(0, "selectListMark").visible, false)
            compare(part(1, "selectListMark").visible, true)
            compare(part(0, "selectListLock").visible, false)
            compare(part(1, "selectListLock").visible, true)
        }
        function test_changesOfTheModel() {
            models.select(first, true)
            models.select(second, false)
            models.protect(first, true)
            models.setTexts(first, "Cake", "2026-02-01", "Changed")
            compare(part(0, "selectListMark").visible, true)
            compare(part(1, "selectListMark").visible, false)
            compare(part(0, "selectListLock").visible, true)
            compare(part(0, "selectListName").text, "Cake")
            compare(part(0, "selectListDate").text, "2026-02-01")
            compare(part(0, "selectListInformation").text, "Changed")
        }
        function test_choice() {
            mouseClick(findChild(list, "selectListRow:0"))
            mouseClick(findChild(list, "selectListRow:1"))
            compare(chosen.count, 2)
            compare(chosen.signalArguments[0][0], 0)
            compare(chosen.signalArguments[1][0], 1)
            // The program says what is selected.
            compare(first.selected, false)
        }
        function test_protectedThatCannotBeChosen() {
            list.protectedChoosable = false
            mouseClick(findChild(list, "selectListRow:1"))
            compare(chosen.count, 0)
        }
        function test_selectedIsInSight() {
            var items = []
            for (var i = 0; i < 40; ++i)
                items.push(models.selectListItem("Entry " + i, "", "", i === 35, false))
            var component = Qt.createComponent("qrc:/terminal/ui/SelectList.qml")
            var tall = component.createObject(list.parent, { items: items, width: 600, height: 400 })
            tryVerify(function() { return tall.contentY > 0 })
            verify(findChild(tall, "selectListRow:35"))
            tall.destroy()
        }
    }
}
