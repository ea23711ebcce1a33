// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_FILECOPY_H
#define BRIMVALE_FILECOPY_H

#include <QString>

namespace Brimvale
{

/// Copies the content and the permissions of a file to a name that must not exist. The name appears when the copy is
/// complete. Unlike `QFile::copy()` it does not wait for the medium, file by file.
bool copyFile(const QString& source, const QString& destination);

/// Whether both paths lead to the same existing file.
bool isSameFile(const QString& first, const QString& second);

} // namespace Brimvale

#endif
