// SPDX-License-Identifier: BSD-3-Clause
#include "Batch.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSaveFile>

#include <cmath>

namespace
{

const char* const StateNames[] = {"unfinished", "complete", "aborted"};

QByteArray toJson(const Batch& batch)
{
    QJsonArray components;
    for (int index = 0; index < batch.recipe.components.size(); ++index) {
        const Component& component = batch.recipe.components.at(index);
        QJsonObject object{{QStringLiteral("name"), component.name},
                           {QStringLiteral("target_g"), component.target},
                           {QStringLiteral("tolerance_percent"), component.tolerance}};
        if (index < batch.weighed.size()) {
            object.insert(QStringLiteral("weighed_g"), batch.weighed.at(index));
        }
        components.append(object);
    }
    const QJsonObject root{
        {QStringLiteral("batch"), batch.number},
        {QStringLiteral("state"), QLatin1String(StateNames[batch.state])},
        {QStringLiteral("recipe"), batch.recipe.name},
        {QStringLiteral("vessel_g"), batch.vessel},
        {QStringLiteral("components"), components},
        {QStringLiteral("written"), QDateTime::currentDateTimeUtc().toString(Qt::ISODate)},
    };
    return QJsonDocument(root).toJson();
}

std::optional<Batch> fromJson(const QByteArray& text)
{
    const QJsonObject root = QJsonDocument::fromJson(text).object();
    Batch batch;
    batch.number = root.value(QStringLiteral("batch")).toInt();
    batch.recipe.name = root.value(QStringLiteral("recipe")).toString();
    batch.vessel = root.value(QStringLiteral("vessel_g")).toDouble(-1.0);
    const QJsonArray components = root.value(QStringLiteral("components")).toArray();
    bool isGap = false;
    for (const QJsonValue& value : components) {
        const QJsonObject object = value.toObject();
        Component component;
        component.name = object.value(QStringLiteral("name")).toString();
        component.target = object.value(QStringLiteral("target_g")).toDouble();
        component.tolerance = object.value(QStringLiteral("tolerance_percent")).toDouble();
        if (component.name.isEmpty() || !(component.target > 0.0) || !(component.tolerance > 0.0)) {
            return std::nullopt;
        }
        batch.recipe.components.append(component);
        const QJsonValue weighed = object.value(QStringLiteral("weighed_g"));
        if (weighed.isDouble() && !isGap) {
            batch.weighed.append(weighed.toDouble());
        } else if (weighed.isUndefined()) {
            isGap = true;
        } else {
            return std::nullopt;
        }
    }
    if (root.value(QStringLiteral("state")).toString() != QLatin1String(StateNames[Batch::Unfinished])
        || batch.number < 1 || batch.recipe.name.isEmpty() || batch.vessel < 0.0
        || batch.recipe.components.isEmpty()) {
        return std::nullopt;
    }
    return batch;
}

} // namespace

double Batch::total() const
{
    double sum = 0.0;
    for (const double grams : weighed) {
        sum += grams;
    }
    return sum;
}

double Batch::deviation(int component) const
{
    return weighed.at(component) - recipe.components.at(component).target;
}

bool Batch::isWithinTolerance(int component, int decimals) const
{
    return ::isWithinTolerance(recipe.components.at(component), weighed.at(component), decimals);
}

QString Batch::numberText() const
{
    return QStringLiteral("%1").arg(number, 4, 10, QLatin1Char('0'));
}

double lowestReading(const Component& component, int decimals)
{
    // A millionth of an increment, so that a limit that is a reading counts as within.
    const double scale = std::pow(10.0, decimals);
    return std::ceil(component.lowerLimit() * scale - 1e-6) / scale;
}

double highestReading(const Component& component, int decimals)
{
    const double scale = std::pow(10.0, decimals);
    return std::floor(component.upperLimit() * scale + 1e-6) / scale;
}

bool isWithinTolerance(const Component& component, double weighed, int decimals)
{
    const double rounded = roundedWeight(weighed, decimals);
    const double half = 0.5 * std::pow(10.0, -decimals);
    return rounded > lowestReading(component, decimals) - half
           && rounded < highestReading(component, decimals) + half;
}

BatchStore::BatchStore(const QString& folder)
    : m_folder(folder)
{
}

QString BatchStore::unfinishedFile() const
{
    return QDir(m_folder).filePath(QStringLiteral("unfinished.json"));
}

QString BatchStore::finishedFile(int number) const
{
    return QDir(m_folder).filePath(QStringLiteral("batch-%1.json").arg(number, 4, 10, QLatin1Char('0')));
}

std::optional<Batch> BatchStore::unfinished(QString* error)
{
    QFile file(unfinishedFile());
    if (!file.exists()) {
        return std::nullopt;
    }
    std::optional<Batch> batch;
    QString reason;
    if (file.open(QIODevice::ReadOnly)) {
        batch = fromJson(file.readAll());
        file.close();
        reason = tr("it is damaged");
    } else {
        reason = file.errorString();
    }
    if (batch && QFile::exists(finishedFile(batch->number))) {
        // The power went between the two steps of save().
        QFile::remove(unfinishedFile());
        return std::nullopt;
    }
    if (!batch) {
        QString aside;
        int number = 0;
        do {
            aside = QDir(m_folder).filePath(QStringLiteral("damaged-%1.json").arg(++number));
        } while (QFile::exists(aside));
        const bool moved = QFile::rename(unfinishedFile(), aside);
        *error = tr("The unfinished batch in %1 cannot be read: %2.").arg(unfinishedFile(), reason);
        if (moved) {
            *error += QLatin1Char(' ') + tr("It is kept as %1.").arg(aside);
        }
    }
    return batch;
}

int BatchStore::nextNumber() const
{
    static const QRegularExpression pattern(QStringLiteral("^batch-(\\d{1,9})\\.json$"));
    int largest = 0;
    const QStringList files = QDir(m_folder).entryList({QStringLiteral("batch-*.json")}, QDir::Files);
    for (const QString& file : files) {
        largest = qMax(largest, pattern.match(file).captured(1).toInt());
    }
    return largest + 1;
}

bool BatchStore::save(const Batch& batch, QString* error)
{
    const QString name = batch.state == Batch::Unfinished ? unfinishedFile() : finishedFile(batch.number);
    QString reason;
    if (!QDir().mkpath(m_folder)) {
        reason = tr("the folder cannot be made");
    } else {
        QSaveFile file(name);
        const QByteArray text = toJson(batch);
        if (file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit()) {
            if (batch.state != Batch::Unfinished) {
                QFile::remove(unfinishedFile());
            }
            return true;
        }
        reason = file.errorString();
    }
    *error = tr("The batch cannot be written to %1: %2.").arg(name, reason);
    return false;
}
