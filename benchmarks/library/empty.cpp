// SPDX-License-Identifier: BSD-3-Clause

// The least that a library on Qt Core can be: one function, which uses it.

#include <QtGlobal>

extern "C" Q_DECL_EXPORT const char* emptyLibraryVersion();

const char* emptyLibraryVersion()
{
    return qVersion();
}
