// SPDX-License-Identifier: BSD-3-Clause

#include "QsLogDest.h"

#include "FileDestination.h"
#include "SlotDestination.h"

#include <QByteArray>

#include <cstdio>

namespace QsLogging
{

namespace
{

class DebugOutputDestination final : public Destination
{
public:
    void write(const QString& message, Level) override
    {
        const QByteArray line = message.toLocal8Bit() + '\n';
        static_cast<void>(std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stderr));
        static_cast<void>(std::fflush(stderr));
    }

    bool isValid() override { return true; }
};

class FunctionDestination final : public Destination
{
public:
    explicit FunctionDestination(LogFunction function)
        : m_function(function)
    {
    }

    void write(const QString& message, Level level) override { m_function(message, level); }

    bool isValid() override { return m_function != nullptr; }

private:
    LogFunction m_function;
};

} // namespace

// Defined here, so that the class's type information exists once.
Destination::~Destination() = default;

DestinationPtr DestinationFactory::MakeFileDestination(const QString& filePath, LogRotationOption rotation,
                                                       const MaxSizeBytes& sizeInBytesToRotateAfter,
                                                       const MaxOldLogCount& oldLogsToKeep)
{
    const qint64 sizeLimit = rotation == EnableLogRotation ? sizeInBytesToRotateAfter.size : 0;
    return DestinationPtr(new FileDestination(filePath, sizeLimit, oldLogsToKeep.count));
}

DestinationPtr DestinationFactory::MakeDebugOutputDestination()
{
    return DestinationPtr(new DebugOutputDestination);
}

DestinationPtr DestinationFactory::MakeFunctorDestination(Destination::LogFunction function)
{
    return DestinationPtr(new FunctionDestination(function));
}

DestinationPtr DestinationFactory::MakeFunctorDestination(QObject* receiver, const char* member)
{
    return DestinationPtr(new SlotDestination(receiver, member));
}

} // namespace QsLogging
