// SPDX-License-Identifier: BSD-3-Clause

#ifndef BRIMVALE_QSLOGGLOBAL_H
#define BRIMVALE_QSLOGGLOBAL_H

#include <QtCore/qglobal.h>

#if defined(QSLOG_BUILD_LIBRARY)
#define QSLOG_EXPORT Q_DECL_EXPORT
#else
#define QSLOG_EXPORT Q_DECL_IMPORT
#endif

#endif // BRIMVALE_QSLOGGLOBAL_H
