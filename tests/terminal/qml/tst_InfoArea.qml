// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import QtTest 1.15
import "qrc:/terminal/ui"

Item {
    width: 304
    height: 240

    InfoArea {
        id: area
        anchors.fill: parent
    }

    TestCase {
        name: "InfoArea"
        when: windowShown

        function show(items) {
            area.items = []
            wait(1) // the lines of the test before are deleted
            area.items = items
            waitForRendering(area)
        }
        function line(index) { return findChild(area, "infoLine:" + index) }
        function part(index, name) { return findChild(line(index), name) }

        function test_line() {
            show([models.line("Filling", "Target", "500.0 g", true, true, true)])
            compare(part(0, "infoGroup").text, "Filling")
            compare(part(0, "infoGroup").font.weight, Font.Bold)
            compare(part(0, "infoTitle").text, "Target")
            compare(part(0, "infoValue").text, "500.0 g")
            compare(part(0, "infoValue").horizontalAlignment, Text.AlignRight)
            compare(part(0, "infoInvalid").visible, true)
        }
        // Every property is followed, and so is the title, whose change is told by the signal of the group.
        function test_changes_data() {
            return [
                { tag: "group", property: "itemGroupTitle", value: "Other", part: "infoGroup", shown: "text", is: "Other" },
                { tag: "title", property: "itemValueTitle", value: "Other", part: "infoTitle", shown: "text", is: "Other" },
                { tag: "value", property: "itemValue", value: "Other", part: "infoValue", shown: "text", is: "Other" },
                { tag: "bold", property: "isGroupTitleBold", value: true, part: "infoGroup", shown: "font.weight", is: Font.Bold },
                { tag: "right", property: "isItemValueRightAligned", value: true, part: "infoValue", shown: "horizontalAlignment", is: Text.AlignRight },
                { tag: "invalid", property: "isItemValueInvalid", value: true, part: "infoInvalid", shown: "visible", is: true }
            ]
        }
        function test_changes(row) {
            var item = models.line("Group", "Title", "Value", false, false, false)
            show([item])
            var shown = function() {
                var p = part(0, row.part)
                return row.shown === "font.weight" ? p.font.weight : p[row.shown]
            }
            verify(shown() !== row.is)
            models.setLine(item, row.property, row.value)
            compare(shown(), row.is)
        }
        function test_titleThatComesLater() {
            var item = models.line("", "", "", false, false, false)
            show([item])
            compare(line(0).height, 0)
            models.setLine(item, "itemValueTitle", "Title")
            verify(line(0).height > 0)
        }
        function test_valueThatCanBeHidden() {
            var item = models.valueUnit(false, "Mean", "12.5", "g")
            show([item])
            compare(line(0).height, 0)
            models.show(item, true)
            verify(line(0).height > 0)
            compare(part(0, "infoTitle").text, "Mean")
            compare(part(0, "infoValue").text, "12.5 g")
        }
        function test_valueWithIcon() {
            ignoreWarning(/Cannot open: qrc:\/none.svg/)
            show([models.icon("21.5", "°C", ":/none.svg")])
            compare(part(0, "infoValue").text, "21.5 °C")
            compare(part(0, "infoImage").visible, true)
            compare(part(0, "infoImage").source, "qrc:/none.svg")
        }
    }
}
