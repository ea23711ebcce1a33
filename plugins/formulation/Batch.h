// SPDX-License-Identifier: BSD-3-Clause
#ifndef BATCH_H
#define BATCH_H

#include "Recipe.h"

#include <QCoreApplication>
#include <QString>
#include <QVector>

#include <optional>

/// One run of a recipe: what was weighed in so far. Weights are grams.
struct Batch
{
    enum State
    {
        Unfinished,
        Complete,
        Aborted
    };

    int number = 0;
    State state = Unfinished;
    Recipe recipe;           ///< As it was at the start, whatever becomes of the recipe file.
    double vessel = 0.0;     ///< Gross weight of the empty vessel.
    QVector<double> weighed; ///< Of the first components, in the order of the recipe.

    int nextComponent() const { return weighed.size(); }
    bool isWeighedIn() const { return weighed.size() == recipe.components.size(); }
    /// What was weighed in so far.
    double total() const;
    double deviation(int component) const;
    bool isWithinTolerance(int component, int decimals) const;
    /// "0012".
    QString numberText() const;
};

/// The smallest and the largest weight within the tolerance that a scale with so many decimal places can show. There is
/// none when the first is larger than the second.
double lowestReading(const Component& component, int decimals);
double highestReading(const Component& component, int decimals);

/// Whether a weight, as a scale with so many decimal places shows it, is within the tolerance of a component.
bool isWithinTolerance(const Component& component, double weighed, int decimals);

/// Keeps batches as JSON files in a folder: the unfinished one as "unfinished.json", each other one as
/// "batch-NNNN.json".
///
/// A file is written beside the old one, brought to the disk and then put in its place, so that a power cut leaves the
/// old or the new one, whole.
class BatchStore
{
    Q_DECLARE_TR_FUNCTIONS(BatchStore)

public:
    explicit BatchStore(const QString& folder);

    QString folder() const { return m_folder; }

    /// The batch that was not finished. One that cannot be read is put aside under another name, and @p error says so.
    std::optional<Batch> unfinished(QString* error);

    /// The number after the largest one in the folder.
    int nextNumber() const;

    /// Writes a batch; one that is complete or aborted takes the place of the unfinished one. Returns false, with the
    /// reason in @p error, when it cannot be written; what was written before is then still there.
    bool save(const Batch& batch, QString* error);

private:
    QString unfinishedFile() const;
    QString finishedFile(int number) const;

    const QString m_folder;
};

#endif
