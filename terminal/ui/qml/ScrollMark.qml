// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// Shows where a list stands when it is longer than its place.
Rectangle {
    property Flickable target
    property color markColor: Theme.inkFaint

    visible: target.visibleArea.heightRatio < 1
    anchors.right: target.right
    y: target.y + target.visibleArea.yPosition * target.height
    width: 4
    height: target.visibleArea.heightRatio * target.height
    radius: 2
    color: markColor
}
