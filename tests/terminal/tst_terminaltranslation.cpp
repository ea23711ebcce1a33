// SPDX-License-Identifier: BSD-3-Clause
#include <QDir>
#include <QFile>
#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <QtTest>

/// One text of a translation file.
struct Text
{
    QString translation;
    bool finished = false;
};

/// The German texts of the terminal against the texts in its sources, which lupdate collects.
class tst_TerminalTranslation : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void everyTextIsTranslated();
    void everyTextIsInTheSources();
    void placesOfArgumentsAreKept();

private:
    using Texts = QMap<QString, Text>;
    static Texts read(const QString& path);

    Texts m_texts;   // as the repository has them
    Texts m_updated; // as the sources have them now
};

tst_TerminalTranslation::Texts tst_TerminalTranslation::read(const QString& path)
{
    Texts texts;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return texts;
    }
    QXmlStreamReader xml(&file);
    QString context;
    QString source;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        if (xml.name() == QLatin1String("name")) {
            context = xml.readElementText();
        } else if (xml.name() == QLatin1String("source")) {
            source = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            const bool finished = !xml.attributes().hasAttribute(QLatin1String("type"));
            texts.insert(context + QStringLiteral(": ") + source, {xml.readElementText(), finished});
        }
    }
    return xml.hasError() ? Texts() : texts;
}

void tst_TerminalTranslation::initTestCase()
{
    QTemporaryDir directory;
    QVERIFY(directory.isValid());
    const QString sources = QStringLiteral(TERMINAL_SOURCES);
    const QString copy = directory.filePath(QStringLiteral("terminal_de.ts"));
    const QString original = sources + QStringLiteral("/ui/translations/terminal_de.ts");
    QVERIFY(QFile::copy(original, copy));

    QProcess lupdate;
    lupdate.start(QStringLiteral(LUPDATE),
                  {QStringLiteral("-silent"), QStringLiteral("-no-obsolete"), QStringLiteral("-locations"),
                   QStringLiteral("none"), sources, QStringLiteral("-ts"), copy});
    QVERIFY2(lupdate.waitForFinished(60000), qPrintable(lupdate.errorString()));
    QCOMPARE(lupdate.exitCode(), 0);

    m_texts = read(original);
    m_updated = read(copy);
    QVERIFY(m_texts.size() > 20);
    QVERIFY(m_updated.size() > 20);
}

void tst_TerminalTranslation::everyTextIsTranslated()
{
    QStringList missing;
    for (auto text = m_updated.cbegin(); text != m_updated.cend(); ++text) {
        if (!text->finished || text->translation.isEmpty()) {
            missing.append(text.key());
        }
    }
    // The mend: tools/update-translations, then translate what it has marked "unfinished".
    QVERIFY2(missing.isEmpty(), qPrintable(missing.join(QLatin1Char('\n'))));
}

void tst_TerminalTranslation::everyTextIsInTheSources()
{
    QStringList gone;
    for (auto text = m_texts.cbegin(); text != m_texts.cend(); ++text) {
        if (!m_updated.contains(text.key())) {
            gone.append(text.key());
        }
    }
    QVERIFY2(gone.isEmpty(), qPrintable(gone.join(QLatin1Char('\n'))));
}

void tst_TerminalTranslation::placesOfArgumentsAreKept()
{
    const QRegularExpression place(QStringLiteral("%\\d"));
    const auto placesOf = [&place](const QString& text) {
        QStringList places;
        auto match = place.globalMatch(text);
        while (match.hasNext()) {
            places.append(match.next().captured());
        }
        places.removeDuplicates();
        places.sort();
        return places;
    };
    QVERIFY(!placesOf(QStringLiteral("%1")).isEmpty());
    for (auto text = m_texts.cbegin(); text != m_texts.cend(); ++text) {
        const QString source = text.key().mid(text.key().indexOf(QStringLiteral(": ")) + 2);
        QVERIFY2(placesOf(source) == placesOf(text->translation), qPrintable(text.key()));
    }
}

QTEST_GUILESS_MAIN(tst_TerminalTranslation)
#include "tst_terminaltranslation.moc"
