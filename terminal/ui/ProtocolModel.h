// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PROTOCOLMODEL_H
#define BRIMVALE_PROTOCOLMODEL_H

#include <QAbstractListModel>
#include <QString>
#include <QVector>

namespace Brimvale
{
namespace Terminal
{

/// One print item of the protocol menu.
struct ProtocolRow
{
    QString uid;
    QString name;
    QString section; ///< Title of the rows that stand together.
    bool chosen = false;

    bool operator==(const ProtocolRow& other) const;
    bool operator!=(const ProtocolRow& other) const { return !(*this == other); }
};

/// What the protocol menu shows: the print items in the order in which they are printed, and the present kind, part
/// and trigger. It is fed by the host; what the person does comes back as signals. Roles: uid, name, section, chosen.
class ProtocolModel : public QAbstractListModel
{
    Q_OBJECT
    Q_DISABLE_COPY(ProtocolModel)
    /// Whether the menu is shown.
    Q_PROPERTY(bool open READ isOpen WRITE setOpen NOTIFY openChanged)
    Q_PROPERTY(QString kind READ kind NOTIFY selectionChanged)
    Q_PROPERTY(QString part READ part NOTIFY selectionChanged)
    Q_PROPERTY(QString trigger READ trigger NOTIFY selectionChanged)
    /// Who works at the terminal, which print-outs bear.
    Q_PROPERTY(QString operatorName READ operatorName NOTIFY operatorNameChanged)
    /// How many items there are, and how many of them are chosen.
    Q_PROPERTY(int count READ count NOTIFY rowsChanged)
    Q_PROPERTY(int chosenCount READ chosenCount NOTIFY rowsChanged)

public:
    enum Role
    {
        UidRole = Qt::UserRole + 1,
        NameRole,
        SectionRole,
        ChosenRole
    };
    Q_ENUM(Role)

    explicit ProtocolModel(QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

    bool isOpen() const { return m_open; }
    void setOpen(bool open);
    QString kind() const { return m_kind; }
    QString part() const { return m_part; }
    QString trigger() const { return m_trigger; }
    QString operatorName() const { return m_operatorName; }
    void setOperatorName(const QString& name);
    int count() const { return m_rows.size(); }
    int chosenCount() const;

    const QVector<ProtocolRow>& rows() const { return m_rows; }
    /// Replaces all rows. When the sequence of uids is unchanged, only the rows that differ are refreshed, so that the
    /// list stays where the person has scrolled it.
    void setRows(const QVector<ProtocolRow>& rows);
    /// Sets the names of the present kind, part and trigger.
    void setSelection(const QString& kind, const QString& part, const QString& trigger);

signals:
    void openChanged();
    void rowsChanged();
    void selectionChanged();
    void operatorNameChanged();

    // What the person does.
    /// The item @p uid is to be chosen, or not any more.
    void itemToggled(const QString& uid, bool chosen);
    /// The next (@p step 1) or previous (-1) kind, part or trigger is wanted.
    void kindStepped(int step);
    void partStepped(int step);
    void triggerStepped(int step);
    /// Another person works at the terminal; an empty name: nobody is named.
    void operatorEntered(const QString& name);

private:
    bool m_open = false;
    QString m_kind;
    QString m_part;
    QString m_trigger;
    QString m_operatorName;
    QVector<ProtocolRow> m_rows;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PROTOCOLMODEL_H
