// SPDX-License-Identifier: BSD-3-Clause

#ifndef BRIMVALE_PROJECTEXCEPTION_H
#define BRIMVALE_PROJECTEXCEPTION_H

#include "SharedLibsGlobal.h"

#include <QException>
#include <QString>

namespace Brimvale
{

/// The one exception that the library throws: a record that cannot be read.
///
/// Nothing in the library catches it; whoever asks for a record to be read does. It may be caught as
/// `ProjectException`, `QException` or `std::exception`, also by a plug-in, since its type information exists
/// once, in the library. Copies share the text and may be handed to another thread.
///
/// `what()` is that of `std::exception` and does not return the text: ask Message().
class BRIMVALE_EXPORT ProjectException : public QException
{
public:
    /// Stores \a message, the text for Message().
    explicit ProjectException(QString message);

    ProjectException(const ProjectException&) = default;
    ProjectException& operator=(const ProjectException&) = default;

    /// Writes a line of trace level with the address of the object.
    ~ProjectException() noexcept override;

    /// Throws a copy of this object, as a `ProjectException`. It does not return. With clone() it carries an
    /// exception that was caught in one thread into another.
    void raise() const override;

    /// Returns a copy of this object on the heap. The caller owns it.
    ProjectException* clone() const override;

    /// The text that says what went wrong.
    QString Message() const;

private:
    QString m_message;
};

} // namespace Brimvale

#endif // BRIMVALE_PROJECTEXCEPTION_H
