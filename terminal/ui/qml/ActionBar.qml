// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import "."

// The keys of a workflow that runs, else those of the active application, or those of the terminal while none is active. Seven fit; if there are more,
// the seventh place turns the page. The print key has its own place.
Rectangle {
    id: bar

    readonly property QtObject actions: workflow.running ? workflow.keys
                                                         : instrument.pluginActive ? instrument.actions : instrument.hostActions
    readonly property int places: 7
    readonly property bool paged: actions.count > places
    readonly property int pageSize: paged ? places - 1 : places
    readonly property int pages: Math.max(1, Math.ceil(actions.count / pageSize))
    property int page: 0

    onActionsChanged: page = 0
    onPagesChanged: page = Math.min(page, pages - 1)

    color: Theme.frame

    Repeater {
        model: bar.actions

        ActionKey {
            objectName: "action:" + model.uid
            readonly property int place: index - bar.page * bar.pageSize
            visible: place >= 0 && place < bar.pageSize
            x: Theme.unit + place * (width + Theme.unit)
            y: Theme.unit
            text: model.name
            enabled: model.enabled
            toggle: model.toggle
            toggleIndex: model.toggleIndex
            maxToggleIndex: model.maxToggleIndex
            onPressed: bar.actions.press(model.uid)
        }
    }
    ActionKey {
        objectName: "pageKey"
        visible: bar.paged
        x: Theme.unit + (bar.places - 1) * (width + Theme.unit)
        y: Theme.unit
        icon: "next"
        text: (bar.page + 1) + " / " + bar.pages
        onPressed: bar.page = (bar.page + 1) % bar.pages
    }

    Rectangle {
        x: printKey.x - Theme.unit - 1
        y: 16
        width: 1
        height: parent.height - 32
        color: Theme.frameLine
    }
    ActionKey {
        id: printKey
        objectName: "printKey"
        anchors.right: parent.right
        anchors.rightMargin: Theme.unit
        y: Theme.unit
        width: 104
        icon: "print"
        text: qsTr("Print")
        enabled: instrument.printEnabled
        onPressed: instrument.printPressed()
    }
}
