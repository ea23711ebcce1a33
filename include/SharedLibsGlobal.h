// SPDX-License-Identifier: BSD-3-Clause

#ifndef BRIMVALE_SHAREDLIBSGLOBAL_H
#define BRIMVALE_SHAREDLIBSGLOBAL_H

#include <QtCore/qglobal.h>

/// Marks what the library exports: every public class and every interface.
///
/// Everything else has hidden visibility. BRIMVALE_BUILD_SHAREDLIBS is defined by the build of the library alone.
#if defined(BRIMVALE_BUILD_SHAREDLIBS)
#define BRIMVALE_EXPORT Q_DECL_EXPORT
#else
#define BRIMVALE_EXPORT Q_DECL_IMPORT
#endif

#endif // BRIMVALE_SHAREDLIBSGLOBAL_H
