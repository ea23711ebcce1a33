// SPDX-License-Identifier: BSD-3-Clause
#include "host/PluginGuard.h"

#include "ProjectException.h"

#include <cstdlib>
#include <cxxabi.h>
#include <exception>
#include <memory>
#include <typeinfo>

namespace Brimvale
{
namespace Terminal
{

namespace
{

QString typeName(const std::type_info* type)
{
    if (type == nullptr) {
        return QStringLiteral("a foreign exception");
    }
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(type->name(), nullptr, nullptr, &status), &std::free);
    return QString::fromLatin1(status == 0 ? name.get() : type->name());
}

} // namespace

QString currentExceptionText()
{
    QString type = typeName(abi::__cxa_current_exception_type());
    try {
        throw;
    } catch (const ProjectException& exception) {
        return type + QStringLiteral(": ") + exception.Message();
    } catch (const std::exception& exception) {
        return type + QStringLiteral(": ") + QString::fromLocal8Bit(exception.what());
    } catch (...) {
        return type; // what it says is not known: it has no common base
    }
}

} // namespace Terminal
} // namespace Brimvale
