// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PAPERROLL_H
#define BRIMVALE_PAPERROLL_H

#include "print/PrintDevice.h"

#include <QAbstractListModel>
#include <QStringList>
#include <QVector>

namespace Brimvale
{
namespace Terminal
{

/// The paper that hangs out of a roll printer, line by line.
class PaperRoll : public QAbstractListModel
{
    Q_OBJECT
    Q_DISABLE_COPY(PaperRoll)

    /// The columns of the widest print-out on the paper, but MinimumColumns at least.
    Q_PROPERTY(int columns READ columns NOTIFY columnsChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    /// How many of count() are cuts.
    Q_PROPERTY(int cuts READ cuts NOTIFY countChanged)

public:
    enum Role
    {
        TextRole = Qt::UserRole, ///< "lineText": the line.
        CutRole ///< "cut": no line, but the place where the paper is torn between two print-outs.
    };

    static constexpr int MinimumColumns = 24;
    /// The most lines that hang out; what is older has been torn off.
    static constexpr int MaximumLines = 2000;

    explicit PaperRoll(QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    int columns() const { return m_columns; }
    int count() const { return m_lines.size(); }
    int cuts() const;
    /// The lines, each ended by '\n'; a cut is an empty line.
    QString text() const;

    void widen(int columns);
    void addLines(const QStringList& lines);
    void addCut();
    Q_INVOKABLE void tearOff();

signals:
    void columnsChanged();
    void countChanged();

private:
    struct Line
    {
        QString text;
        bool cut = false;
    };

    void add(const QVector<Line>& lines);

    QVector<Line> m_lines;
    int m_columns = MinimumColumns;
};

/// Prints on a PaperRoll. Everything succeeds, at once.
class RollPrinter : public PrintDevice
{
    Q_OBJECT

public:
    /// @param paper not owned, must outlive the printer.
    explicit RollPrinter(PaperRoll& paper);

    QString description() const override;
    void begin(const PrintJob& job, int firstBlock) override;
    void print(const QString& block) override;
    void end() override;
    void cancel() override { }

private:
    PaperRoll& m_paper;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PAPERROLL_H
