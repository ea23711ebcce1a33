// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// An application by icon and name.
Rectangle {
    id: key

    property string text
    property url picture
    property color textColor: Theme.frameInk
    property int fontWeight: Font.Normal
    property int space: 16
    readonly property int naturalWidth: Math.ceil(60 + label.implicitWidth + space) + 1

    property color ground: "transparent"

    color: area.pressed ? Theme.keyPressed : ground

    signal clicked()

    // The touch area reaches this far below the key.
    property int reachBelow: 0

    Image {
        id: image
        x: 20
        anchors.verticalCenter: parent.verticalCenter
        width: 28
        height: 28
        sourceSize: Qt.size(28, 28)
        source: key.picture
        fillMode: Image.PreserveAspectFit
    }
    Icon {
        visible: image.status !== Image.Ready
        x: 20
        anchors.verticalCenter: parent.verticalCenter
        name: "application"
        size: 28
        strokeWidth: 1.6
        color: Theme.frameInkSoft
    }
    Text {
        id: label
        anchors.left: parent.left
        anchors.leftMargin: 60
        anchors.right: parent.right
        anchors.rightMargin: key.space
        anchors.verticalCenter: parent.verticalCenter
        text: key.text
        textFormat: Text.PlainText
        elide: Text.ElideRight
        font.pixelSize: Theme.titleSize
        font.weight: key.fontWeight
        color: key.textColor
    }
    MouseArea {
        id: area
        anchors.fill: parent
        anchors.bottomMargin: -key.reachBelow
        onClicked: key.clicked()
    }
}
