// SPDX-License-Identifier: BSD-3-Clause
#ifndef JSONLINES_H
#define JSONLINES_H

#include <QByteArray>
#include <QHash>
#include <QString>

/// Where the values of a JSON text stand: QJsonDocument reads them, but keeps no places.
class JsonLines
{
public:
    /// @param text what QJsonDocument has read without an error.
    explicit JsonLines(const QByteArray& text);

    /// The line, from 1, of the value at a path such as "recipes/0/name"; that of the nearest value around it when there
    /// is none.
    int line(const QString& path) const;

    /// The line of a place in the text.
    static int lineAt(const QByteArray& text, int offset);

private:
    void value(const QString& path);
    QString string();
    void skipBlanks();
    char next() const { return m_at < m_text.size() ? m_text.at(m_at) : '\0'; }

    const QByteArray m_text;
    int m_at = 0;
    int m_line = 1;
    QHash<QString, int> m_lines;
};

#endif
