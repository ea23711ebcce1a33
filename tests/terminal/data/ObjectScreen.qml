// SPDX-License-Identifier: BSD-3-Clause
import QtQml 2.15

// A screen whose root is nothing that can be shown.
QtObject {
}
