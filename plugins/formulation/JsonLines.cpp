// SPDX-License-Identifier: BSD-3-Clause
#include "JsonLines.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cstring>

JsonLines::JsonLines(const QByteArray& text)
    : m_text(text)
{
    value(QString());
}

int JsonLines::line(const QString& path) const
{
    QString place = path;
    while (!place.isEmpty() && !m_lines.contains(place)) {
        place.truncate(qMax(0, place.lastIndexOf(QLatin1Char('/'))));
    }
    return m_lines.value(place, 1);
}

int JsonLines::lineAt(const QByteArray& text, int offset)
{
    return text.left(offset).count('\n') + 1;
}

void JsonLines::value(const QString& path)
{
    const QString prefix = path.isEmpty() ? QString() : path + QLatin1Char('/');
    skipBlanks();
    m_lines.insert(path, m_line); // the last of equal keys counts, as in QJsonDocument
    const char first = next();
    if (first == '"') {
        string();
        return;
    }
    if (first != '{' && first != '[') {
        while (m_at < m_text.size() && !std::strchr(",]} \t\r\n", m_text.at(m_at))) {
            ++m_at;
        }
        return;
    }
    const char last = first == '{' ? '}' : ']';
    ++m_at;
    for (int index = 0;; ++index) {
        skipBlanks();
        if (next() == last || next() == '\0') {
            ++m_at;
            return;
        }
        QString name = QString::number(index);
        if (first == '{') {
            name = string();
            skipBlanks();
            ++m_at; // the colon
        }
        value(prefix + name);
        skipBlanks();
        if (next() == ',') {
            ++m_at;
        }
    }
}

QString JsonLines::string()
{
    const int begin = m_at++;
    while (m_at < m_text.size() && m_text.at(m_at) != '"') {
        m_at += m_text.at(m_at) == '\\' ? 2 : 1;
    }
    ++m_at;
    const QByteArray quoted = '[' + m_text.mid(begin, m_at - begin) + ']';
    return QJsonDocument::fromJson(quoted).array().at(0).toString();
}

void JsonLines::skipBlanks()
{
    for (; m_at < m_text.size() && std::strchr(" \t\r\n", m_text.at(m_at)); ++m_at) {
        m_line += m_text.at(m_at) == '\n' ? 1 : 0;
    }
}
