// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import Brimvale.Terminal 1.0
import "."

// Tells the person what they must know now, such as why a key had no effect. It lies over the application area and
// never over the weight.
Rectangle {
    id: notice

    readonly property int severity: instrument.noticeSeverity
    readonly property color foreground: severity === InstrumentModel.Warning ? Theme.ink : "white"

    visible: instrument.noticeVisible
    height: Math.max(72, texts.height + 24, keys.visible ? keys.height + 24 : 0)
    radius: Theme.radius
    color: severity === InstrumentModel.Error ? Theme.error
         : severity === InstrumentModel.Warning ? Theme.attention : Theme.accent

    Timer {
        // Restarted by every new notice; what is wrong stays until it is put away.
        id: leave
        objectName: "noticeTimer"
        interval: 6000
        onTriggered: instrument.clearNotice()
    }
    Connections {
        target: instrument
        function onNoticeChanged() {
            leave.stop()
            if (Theme.animations && instrument.noticeVisible && notice.severity === InstrumentModel.Info)
                leave.start()
        }
    }

    // Keeps taps from reaching the screen beneath.
    MouseArea {
        anchors.fill: parent
    }
    Icon {
        id: mark
        x: 20
        anchors.verticalCenter: parent.verticalCenter
        name: notice.severity === InstrumentModel.Info ? "info" : "warning"
        size: 32
        color: notice.foreground
    }
    Column {
        id: texts
        anchors.left: mark.right
        anchors.leftMargin: 16
        anchors.right: keys.visible ? keys.left : dismiss.left
        anchors.rightMargin: keys.visible ? 16 : 0
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2

        Text {
            objectName: "noticeTitle"
            visible: text.length > 0
            width: parent.width
            text: instrument.noticeCount > 1
                  ? qsTr("%1 (%2 times)").arg(instrument.noticeTitle).arg(instrument.noticeCount)
                  : instrument.noticeTitle
            textFormat: Text.PlainText
            elide: Text.ElideRight
            font.pixelSize: Theme.bodySize
            font.weight: Font.Bold
            color: notice.foreground
        }
        Text {
            objectName: "noticeText"
            width: parent.width
            text: instrument.noticeText
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            maximumLineCount: 4
            elide: Text.ElideRight
            font.pixelSize: Theme.bodySize
            color: notice.foreground
        }
    }
    // An application that is at fault: the person decides.
    Column {
        id: keys
        visible: instrument.noticeOffersClose
        anchors.right: parent.right
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        spacing: 8

        DialogKey {
            objectName: "closeApplication"
            width: 200
            textSize: Theme.bodySize
            text: qsTr("Close it")
            onClicked: instrument.closeFromNotice()
        }
        DialogKey {
            objectName: "keepRunning"
            width: 200
            textSize: Theme.bodySize
            text: qsTr("Keep running")
            onClicked: instrument.clearNotice()
        }
    }
    Item {
        id: dismiss
        visible: !keys.visible
        anchors.right: parent.right
        width: 72
        height: parent.height

        Icon {
            anchors.centerIn: parent
            name: "close"
            size: 28
            color: notice.foreground
        }
        MouseArea {
            objectName: "dismissNotice"
            anchors.fill: parent
            onClicked: instrument.clearNotice()
        }
    }
}
