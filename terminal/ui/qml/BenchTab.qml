// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// A tab of the bench: shows the page when it is touched.
Rectangle {
    id: tab

    property string page
    property string text
    property string icon
    readonly property bool selected: bench.page === page

    objectName: "benchTab:" + page
    height: Theme.statusHeight
    color: selected ? Theme.bench : area.pressed ? Theme.benchKeyPressed : "transparent"

    Icon {
        anchors.horizontalCenter: parent.horizontalCenter
        y: 8
        name: tab.icon
        size: 22
        color: tab.selected ? Theme.ink : Theme.inkSoft
    }
    Text {
        y: 33
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        text: tab.text
        elide: Text.ElideRight
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 11
        font.pixelSize: 14
        font.weight: Font.Medium
        color: tab.selected ? Theme.ink : Theme.inkSoft
    }
    Rectangle {
        visible: tab.selected
        width: parent.width
        height: 3
        color: Theme.accent
    }
    MouseArea {
        id: area
        anchors.fill: parent
        onClicked: bench.page = tab.page
    }
}
