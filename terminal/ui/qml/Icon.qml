// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15
import QtQuick.Shapes 1.15

// A monochrome pictogram, drawn as strokes on a grid of 24.
Item {
    id: icon

    property string name
    property color color: "black"
    property real size: 24
    property real strokeWidth: 2

    readonly property var paths: ({
        "wave": "M3 14 C6 8 9 8 12 12 S18 16 21 10",
        "chevron": "M6 9 L12 15 L18 9",
        "next": "M9 5 L16 12 L9 19",
        "back": "M15 5 L8 12 L15 19",
        "backspace": "M8 6 L21 6 L21 18 L8 18 L2.5 12 Z M11.5 9.5 L16.5 14.5 M16.5 9.5 L11.5 14.5",
        "check": "M5 12.5 L10 17.5 L19.5 7",
        "gear": "M12 8.8 A3.2 3.2 0 1 0 12 15.2 A3.2 3.2 0 1 0 12 8.8 M12 5.2 A6.8 6.8 0 1 0 12 18.8 A6.8 6.8 0 1 0 12 5.2 M12 2.2 L12 5.2 M12 18.8 L12 21.8 M2.2 12 L5.2 12 M18.8 12 L21.8 12 M5.1 5.1 L7.2 7.2 M16.8 16.8 L18.9 18.9 M18.9 5.1 L16.8 7.2 M5.1 18.9 L7.2 16.8",
        "lock": "M6 11 L18 11 L18 20 L6 20 Z M8.5 11 L8.5 7.5 A3.5 3.5 0 0 1 15.5 7.5 L15.5 11",
        "close": "M6 6 L18 18 M18 6 L6 18",
        "warning": "M12 4 L21.5 20 L2.5 20 Z M12 10 L12 14.5 M12 17.2 L12 17.4",
        "info": "M12 3 A9 9 0 1 0 12 21 A9 9 0 1 0 12 3 M12 11 L12 16.5 M12 7.4 L12 7.6",
        "level": "M12 3 A9 9 0 1 0 12 21 A9 9 0 1 0 12 3 M12 8.5 A3.5 3.5 0 1 0 12 15.5 A3.5 3.5 0 1 0 12 8.5",
        "tilt": "M12 3 A9 9 0 1 0 12 21 A9 9 0 1 0 12 3 M16 6.5 A3 3 0 1 0 16 12.5 A3 3 0 1 0 16 6.5",
        "weight": "M5 20 L7 9 L17 9 L19 20 Z M12 9 A2.8 2.8 0 1 0 12 3.4 A2.8 2.8 0 1 0 12 9",
        "ruler": "M3 8 L21 8 L21 16 L3 16 Z M7 8 L7 11.5 M11 8 L11 12.5 M15 8 L15 11.5 M18 8 L18 11",
        "transfer": "M4 20 L4 4 L14 4 L14 8 M4 20 L14 20 L14 16 M9 12 L21 12 M17 8 L21 12 L17 16",
        "print": "M7 9 L7 3 L17 3 L17 9 M7 17 L3.5 17 L3.5 9 L20.5 9 L20.5 17 L17 17 M7 14 L17 14 L17 21 L7 21 Z",
        "computer": "M3 5 L21 5 L21 16 L3 16 Z M8 20 L16 20 M12 16 L12 20",
        "application": "M4 4 L10 4 L10 10 L4 10 Z M14 4 L20 4 L20 10 L14 10 Z M4 14 L10 14 L10 20 L4 20 Z M14 14 L20 14 L20 20 L14 20 Z",
        "broken": "M3 12 L8 12 M16 12 L21 12 M8 8 L8 16 M16 8 L16 16 M10.5 10.5 L13.5 13.5 M13.5 10.5 L10.5 13.5",
        "asterisk": "M12 4 L12 20 M5.1 8 L18.9 16 M18.9 8 L5.1 16"
    })

    width: size
    height: size

    Shape {
        width: 24
        height: 24
        transform: Scale {
            xScale: icon.size / 24
            yScale: icon.size / 24
        }

        ShapePath {
            strokeColor: icon.color
            strokeWidth: icon.strokeWidth
            fillColor: "transparent"
            capStyle: ShapePath.RoundCap
            joinStyle: ShapePath.RoundJoin
            PathSvg {
                path: icon.paths[icon.name] || ""
            }
        }
    }
}
