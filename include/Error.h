// SPDX-License-Identifier: BSD-3-Clause

#ifndef BRIMVALE_ERROR_H
#define BRIMVALE_ERROR_H

#include "SharedLibsGlobal.h"

#include <QtCore/qglobal.h>

namespace Brimvale
{

/// An error as plug-ins and the host pass it to each other: a plain record that is copied by value.
///
/// The library itself reports no errors through it and reads none of its enumerators; it fixes the layout and
/// the defaults. The order of the members and their 32-bit size are part of the binary contract.
class BRIMVALE_EXPORT Error
{
public:
    /// Where an error arose.
    enum ErrorSources : qint32
    {
        UnknownSource = 0, ///< Not stated.
        HostSource = 1,    ///< The host application.
        PluginSource = 2,  ///< A plug-in.
        SensorSource = 3,  ///< The weighing sensor or its connection.
        PrinterSource = 4, ///< The printer or its connection.
        StorageSource = 5  ///< A file system or a storage medium.
    };

    /// What kind of error it is.
    enum ErrorTypes : qint32
    {
        Information = 0,    ///< Worth telling; nothing has failed.
        Warning = 1,        ///< Work goes on, its result may be restricted.
        Failure = 2,        ///< An operation has failed.
        UnspecifiedType = 3 ///< Not stated.
    };

    /// Builds the record that states no error: no source, code -1, detail 0, type UnspecifiedType (3), flag
    /// false.
    Error();

    /// Builds a record of the given values.
    ///
    /// Mind the order: the type comes first and the source second here, while the source is the first member
    /// and the type the fourth.
    Error(ErrorTypes type, ErrorSources source, int code, int detail, bool flag);

    ErrorSources source; ///< Where the error arose.
    qint32 code;         ///< First number of the error, -1 for none.
    qint32 detail;       ///< Second number of the error.
    ErrorTypes type;     ///< Kind of error.
    bool flag;           ///< A yes/no attribute that goes with the error; its meaning depends on the code.
    qint32 reserved1;    ///< Reserved, 0.
    qint32 reserved2;    ///< Reserved, 0.
    qint32 reserved3;    ///< Reserved, 0.
};

} // namespace Brimvale

#endif // BRIMVALE_ERROR_H
