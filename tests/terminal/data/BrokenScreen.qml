// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15

// A screen that cannot be loaded: it uses a type that does not exist.
Item {
    NoSuchThing {
    }
}
