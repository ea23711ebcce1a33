// SPDX-License-Identifier: BSD-3-Clause
pragma Singleton
import QtQuick 2.15

// Colours, type scale and grid of the terminal.
//
// The weight stands dark on light: scales are read in bright rooms, where dark figures on a light ground keep their
// contrast under reflections and look sharper than the reverse. Status line and action bar are dark, so that the
// light field between them is what the eye meets first. One accent colour; amber, red and green say something is the
// matter, is wrong, is well, and are used for nothing else.
QtObject {
    // Whether anything goes away by itself.
    property bool animations: true

    // Grid: everything is a multiple of 8, fine adjustments of 4.
    readonly property int unit: 8
    readonly property int margin: 24
    readonly property int radius: 6

    readonly property int screenWidth: 1024
    readonly property int screenHeight: 600
    readonly property int benchWidth: 336
    readonly property int statusHeight: 56
    readonly property int displayHeight: 240
    readonly property int applicationHeight: 208
    readonly property int actionBarHeight: 96
    readonly property int infoWidth: 304

    // Texts are set in the font of the application (Roboto), whose figures all have one width, so that a time or a sum
    // does not fidget. What is read from afar (value, unit, error) is set in a face drawn for large sizes; its
    // outlines carry their own hints, so that it looks the same in every picture.
    readonly property string displayFamily: {
        var installed = Qt.fontFamilies()
        var wanted = ["Inter Display", "Inter"]
        for (var i = 0; i < wanted.length; ++i) {
            if (installed.indexOf(wanted[i]) >= 0)
                return wanted[i]
        }
        return Qt.application.font.family
    }

    // Type scale, in pixels.
    readonly property int captionSize: 15
    readonly property int bodySize: 18
    readonly property int titleSize: 22
    readonly property int smallDisplaySize: 36
    readonly property int unitSize: 64
    readonly property int valueSize: 136

    // Light field.
    readonly property color display: "#F8FAF9"
    readonly property color field: "#E7ECEB"
    readonly property color line: "#C6CFCF"
    readonly property color ink: "#11191C"
    readonly property color inkSoft: "#49565B"
    readonly property color inkFaint: "#8E9A9D"

    // Dark frame.
    readonly property color frame: "#182227"
    readonly property color frameLine: "#2C3940"
    readonly property color key: "#34434B"
    readonly property color keyPressed: "#566B75"
    readonly property color keyDisabled: "#1F2A30"
    readonly property color frameInk: "#F3F6F6"
    readonly property color frameInkSoft: "#A9B7BC"
    readonly property color frameInkFaint: "#73848C"

    readonly property color accent: "#0B6B7A"
    readonly property color accentLit: "#4CC7D4"
    readonly property color good: "#1E8E50"
    readonly property color goodLit: "#4BC98A"
    readonly property color attention: "#F4B63C"
    readonly property color error: "#B3261E"
    readonly property color errorLit: "#FF7B70"

    // Bench: not part of the instrument, hence a ground of its own.
    readonly property color bench: "#CBD3D4"
    readonly property color benchKey: "#F3F6F6"
    readonly property color benchKeyPressed: "#B4C0C2"
    readonly property color benchLine: "#A9B4B6"
}
