// SPDX-License-Identifier: BSD-3-Clause
import QtQuick 2.15

Item {
}
