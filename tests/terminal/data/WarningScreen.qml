// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15

// A screen that loads, with a binding that fails.
Item {
    property string text: absent.title
}
