// SPDX-License-Identifier: BSD-3-Clause
//
// A program built with the flags of pkg-config alone.

#include <MesswertInfo.h>
#include <Utility.h>
#include <cstdio>

int main()
{
    std::printf("%s, %g\n", Brimvale::MesswertInfo::staticMetaObject.className(),
                Brimvale::Utility::Round(1.26, 1));
    return Brimvale::Utility::isEqual(Brimvale::Utility::Round(1.26, 1), 1.3) ? 0 : 1;
}
