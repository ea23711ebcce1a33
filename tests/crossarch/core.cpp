// SPDX-License-Identifier: BSD-3-Clause
#include "CommandParameter.h"
#include "Error.h"
#include "FileUtils.h"
#include "ProjectException.h"
#include "ResultTable.h"
#include "SettingsProfile.h"
#include "Utility.h"
#include "core/PowerOfTen.h"
#include "core/SaturatingCast.h"
#include "operations.h"

#include <QTemporaryDir>

using namespace Brimvale;

void writeCore(ResultTable& table)
{
    Inputs in = table.begin("Utility::Round(double, int)");
    for (int i = 0; i < 20000; ++i) {
        const double value = in.number();
        const int places = in.places();
        table.row(line(value, places), Utility::Round(value, places));
    }

    in = table.begin("Utility::Round(double)");
    for (int i = 0; i < 5000; ++i) {
        const double value = in.number();
        table.row(line(value), Utility::Round(value));
    }

    in = table.begin("Utility::isEqual");
    for (int i = 0; i < 5000; ++i) {
        const double a = in.number();
        const double b = in.flag() ? in.number() : a * (1.0 + (in.below(5) - 2) * 5e-7);
        table.row(line(a, b), Utility::isEqual(a, b), Utility::isEqual(b, a));
    }

    in = table.begin("saturatingCast");
    for (int i = 0; i < 5000; ++i) {
        const double value = in.number();
        table.row(line(value), saturatingCast<qint8>(value), saturatingCast<quint8>(value),
                  saturatingCast<qint16>(value), saturatingCast<quint16>(value),
                  saturatingCast<qint32>(value), saturatingCast<quint32>(value),
                  saturatingCast<qint64>(value), saturatingCast<quint64>(value));
    }

    in = table.begin("powerOfTen");
    for (int exponent = -400; exponent <= 400; ++exponent)
        table.row(line(exponent), powerOfTen(exponent));
    for (int i = 0; i < 200; ++i) {
        const qint64 exponent = in.longInteger();
        table.row(line(exponent), powerOfTen(exponent));
    }

    in = table.begin("Utility: texts");
    for (int i = 0; i < 3000; ++i) {
        const QString text = in.text();
        table.row(line(text), Utility::SubscriptText(text), Utility::SuperscriptText(text),
                  Utility::ButtonText(text), Utility::removeSubOrSuperscriptText(text),
                  Utility::ByteArrayToDebug(text.toUtf8()), Utility::ReadApplicationVersionString(text));
    }

    in = table.begin("Utility::ByteArrayToDebug");
    for (int i = 0; i < 1000; ++i) {
        QByteArray bytes;
        const int size = in.below(12);
        for (int byte = 0; byte < size; ++byte)
            bytes += static_cast<char>(in.bits() & 0xFF);
        table.row(bytes.toHex(), Utility::ByteArrayToDebug(bytes));
    }

    in = table.begin("FileUtils: texts");
    const QTemporaryDir folder;
    for (int i = 0; i < 300; ++i) {
        const QString text = in.text();
        const QString path = folder.filePath(QStringLiteral("text"));
        FileUtils files;
        const bool created = files.CreateFile(path, text);
        const QString read = files.ReadFile(path);
        QFile file(path);
        const bool opened = file.open(QIODevice::ReadOnly);
        table.row(line(text), created, read, opened, file.readAll().toHex());
    }

    in = table.begin("Error, CommandParameter, ProjectException");
    for (int i = 0; i < 500; ++i) {
        const int code = in.integer();
        const int detail = in.integer();
        const QString text = in.text();
        const Error error(Error::Failure, Error::PluginSource, code, detail, true);
        const CommandParameter parameter(code, text);
        table.row(line(code, detail, text), error.code, error.detail, parameter.command, parameter.parameter,
                  ProjectException(text).Message());
    }

    in = table.begin("SettingsProfile");
    SettingsProfile profile;
    for (int i = 0; i < 2000; ++i) {
        const int id = in.flag() ? in.integer() : in.below(20);
        const int kind = in.below(4);
        const QVariant value = kind == 0   ? QVariant(in.number())
                               : kind == 1 ? QVariant(in.longInteger())
                               : kind == 2 ? QVariant(in.numberText())
                                           : QVariant(in.integer());
        const QVariant before = profile.GetProfileItem(id);
        profile.SetProfileItem(id, value);
        const QVariant after = profile.GetProfileItem(id);
        table.row(line(id, QByteArray(before.typeName()), QByteArray(value.typeName()), value.toString()),
                  QByteArray(after.typeName()), after.toString());
    }
}
