// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_INSTRUMENTMODEL_H
#define BRIMVALE_INSTRUMENTMODEL_H

#include "ActionListModel.h"
#include "ProtocolModel.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QUrl>
#include <QVariantList>
#include <QVector>

namespace Brimvale
{
namespace Terminal
{

/// One entry of the list from which the person chooses the application.
struct PluginEntry
{
    QString id;   ///< Identifier of the plug-in.
    QString name; ///< Name as the plug-in gives it, translated.
    QString icon; ///< URL or resource path (":/…" or "qrc:/…") of its icon; empty shows a neutral mark.
    bool active = false; ///< Whether this is the application that is running.

    bool operator==(const PluginEntry& other) const;
    bool operator!=(const PluginEntry& other) const { return !(*this == other); }
};

/// Everything that the terminal's screen shows, and everything that a person does on it.
///
/// The model is passive: the host sets its properties, the screen binds to them (context property "instrument"),
/// and what the person does comes back as signals. Setters emit only when the value differs. It knows nothing of
/// the scale or of the host's classes; display and warnings are plain QObjects whose properties are read by name.
/// All of it is used on the GUI thread.
class InstrumentModel : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(InstrumentModel)

    /// The display model that is shown, an object with the properties of MesswertInfo. The plug-in's while there is
    /// one, else the terminal's own; null only when neither was set. Never points to a destroyed object.
    Q_PROPERTY(QObject* display READ display NOTIFY displayChanged)
    /// The terminal's own display model, whichever is shown. Its small display stands in where that of an application
    /// shows nothing.
    Q_PROPERTY(QObject* terminalDisplay READ terminalDisplay NOTIFY displayChanged)
    /// The levelling and calibration warnings, an object with the properties of WarnInfo; null when there is none.
    Q_PROPERTY(QObject* warnings READ warnings NOTIFY warningsChanged)
    /// Buttons of the active plug-in. Constant; its rows change.
    Q_PROPERTY(Brimvale::Terminal::ActionListModel* actions READ actions CONSTANT)
    /// Buttons of the terminal itself (zero, tare), shown while no plug-in is active. Constant; its rows change.
    Q_PROPERTY(Brimvale::Terminal::ActionListModel* hostActions READ hostActions CONSTANT)
    /// The protocol menu. Constant; what it holds changes.
    Q_PROPERTY(Brimvale::Terminal::ProtocolModel* protocol READ protocol CONSTANT)
    /// Whether the print button can be pressed.
    Q_PROPERTY(bool printEnabled READ printEnabled WRITE setPrintEnabled NOTIFY printEnabledChanged)

    /// The loaded plug-ins as a list of maps with the keys id, name, icon and active.
    Q_PROPERTY(QVariantList plugins READ plugins NOTIFY pluginsChanged)
    /// Name of the active plug-in; empty when none is active.
    Q_PROPERTY(QString activePluginName READ activePluginName NOTIFY pluginsChanged)
    /// Icon of the active plug-in; empty when none is active or it has none.
    Q_PROPERTY(QUrl activePluginIcon READ activePluginIcon NOTIFY pluginsChanged)
    /// Whether a plug-in is active.
    Q_PROPERTY(bool pluginActive READ pluginActive NOTIFY pluginsChanged)
    /// Screen file of the active plug-in, shown in the application area; an empty URL shows none.
    Q_PROPERTY(QUrl pluginScreen READ pluginScreen WRITE setPluginScreen NOTIFY pluginScreenChanged)
    /// Lines of the info area, objects with the properties of InfoboxListItem. Destroyed ones drop out.
    Q_PROPERTY(QList<QObject*> infoItems READ infoItems NOTIFY infoItemsChanged)

    /// The settings of the active plug-in, an object with the properties of SettingsModel; null when the terminal has
    /// none.
    Q_PROPERTY(QObject* settings READ settings NOTIFY settingsChanged)

    /// What the scale's plate says, e.g. "Max 3200 g   d = 0.1 g".
    Q_PROPERTY(QString scalePlate READ scalePlate WRITE setScalePlate NOTIFY scalePlateChanged)
    /// Where the weights come from, in words, e.g. "Simulated scale".
    Q_PROPERTY(QString sourceText READ sourceText WRITE setSourceText NOTIFY sourceTextChanged)
    /// Whether the weight source delivers readings; false while the connection is lost. Initially true.
    Q_PROPERTY(bool sourceOk READ sourceOk WRITE setSourceOk NOTIFY sourceOkChanged)
    /// Date and time of the terminal's clock as shown on the status line.
    Q_PROPERTY(QString dateTimeText READ dateTimeText WRITE setDateTimeText NOTIFY dateTimeTextChanged)
    /// A short text of the host on the status line, e.g. the user or the mode; empty shows nothing.
    Q_PROPERTY(QString statusText READ statusText WRITE setStatusText NOTIFY statusTextChanged)
    /// Number of the computers that are connected to the SICS server; -1 while there is no server, as initially.
    Q_PROPERTY(int sicsClients READ sicsClients WRITE setSicsClients NOTIFY sicsClientsChanged)
    /// Number of the print-outs that have failed and wait to be repeated.
    Q_PROPERTY(int failedPrints READ failedPrints WRITE setFailedPrints NOTIFY failedPrintsChanged)
    /// Whether the scale stands level. Initially true.
    Q_PROPERTY(bool levelOk READ levelOk WRITE setLevelOk NOTIFY levelOkChanged)
    /// Language of the terminal's texts: "en" or "de". Initially "en".
    Q_PROPERTY(QString language READ language WRITE setLanguage NOTIFY languageChanged)

    /// Whether a notice is shown.
    Q_PROPERTY(bool noticeVisible READ noticeVisible NOTIFY noticeChanged)
    /// Text of the notice, e.g. "Tare refused: the weight is not stable".
    Q_PROPERTY(QString noticeText READ noticeText NOTIFY noticeChanged)
    /// Optional title of the notice; empty shows the text alone.
    Q_PROPERTY(QString noticeTitle READ noticeTitle NOTIFY noticeChanged)
    /// How often it has come, when that is more than once; otherwise 0.
    Q_PROPERTY(int noticeCount READ noticeCount NOTIFY noticeChanged)
    /// The notice is about the application that runs, and the person may close it.
    Q_PROPERTY(bool noticeOffersClose READ noticeOffersClose NOTIFY noticeChanged)
    /// How grave the notice is.
    Q_PROPERTY(
        Brimvale::Terminal::InstrumentModel::Severity noticeSeverity READ noticeSeverity NOTIFY noticeChanged)

public:
    /// How grave a notice is. Information goes away by itself on an attended screen; warnings and errors stay until
    /// the person or the host takes them away.
    enum class Severity
    {
        Info,
        Warning,
        Error
    };
    Q_ENUM(Severity)

    explicit InstrumentModel(QObject* parent = nullptr);

    /// The URL of a screen or picture that a plug-in names by \a path: a resource (":/x.qml", "qrc:/x.qml"), a file
    /// URL, or a file path, which is taken from the working directory unless absolute. An empty path gives an empty
    /// URL.
    static QUrl urlFromPath(const QString& path);

    QObject* display() const;
    QObject* terminalDisplay() const;
    QObject* warnings() const;
    ActionListModel* actions();
    ActionListModel* hostActions();
    ProtocolModel* protocol();
    bool printEnabled() const;
    QVariantList plugins() const;
    QString activePluginName() const;
    QUrl activePluginIcon() const;
    bool pluginActive() const;
    QUrl pluginScreen() const;
    QList<QObject*> infoItems() const;
    QObject* settings() const { return m_settings; }
    QString scalePlate() const;
    QString sourceText() const;
    bool sourceOk() const;
    QString dateTimeText() const;
    QString statusText() const;
    int sicsClients() const;
    int failedPrints() const { return m_failedPrints; }
    bool levelOk() const;
    QString language() const;
    bool noticeVisible() const;
    QString noticeText() const;
    QString noticeTitle() const;
    Severity noticeSeverity() const;
    int noticeCount() const { return m_noticeCount; }
    bool noticeOffersClose() const { return m_noticeOffersClose; }

    /// Shows the display model of a plug-in; null returns to the terminal's own. The object stays the caller's; when
    /// it is destroyed the terminal's own is shown from that moment.
    void setDisplay(QObject* display);
    /// Sets the terminal's own display model, shown while no plug-in has set one. The object stays the caller's.
    void setTerminalDisplay(QObject* display);
    /// Shows the warnings of a WarnInfo-like object; null shows none. The object stays the caller's; when it is
    /// destroyed no warnings are shown.
    void setWarnings(QObject* warnings);
    void setPrintEnabled(bool enabled);
    /// Replaces the list of applications.
    void setPlugins(const QVector<PluginEntry>& plugins);
    /// Sets the screen of the active plug-in; the window loads it at once and answers with screenLoaded().
    void setPluginScreen(const QUrl& screen);
    /// Replaces the lines of the info area; null pointers are left out. The objects stay the caller's.
    void setInfoItems(const QList<QObject*>& items);
    /// Sets the settings that are shown. The object stays the caller's and must outlive the screen.
    void setSettings(QObject* settings);
    void setScalePlate(const QString& text);
    void setSourceText(const QString& text);
    void setSourceOk(bool ok);
    void setDateTimeText(const QString& text);
    void setStatusText(const QString& text);
    void setSicsClients(int count);
    void setFailedPrints(int count);
    void setLevelOk(bool ok);
    /// Switches the language of the terminal's texts; any other language than those offered counts as "en".
    void setLanguage(const QString& language);

    /// Shows a notice over the application area, in place of an earlier one; an empty text takes it away.
    void showNotice(Severity severity, const QString& text, const QString& title = QString());

public slots:
    /// Adds to the notice that is shown how often it has come, and whether the application can be closed.
    void setNoticeCount(int count);
    void setNoticeOffersClose(bool offers);
    /// The person wants the application closed that the notice is about.
    Q_INVOKABLE void closeFromNotice();

    /// Takes the notice away; nothing happens when there is none.
    void clearNotice();

signals:
    // Changes of the properties.
    void displayChanged();
    void warningsChanged();
    void printEnabledChanged();
    void pluginsChanged();
    void pluginScreenChanged();
    void infoItemsChanged();
    void settingsChanged();
    void scalePlateChanged();
    void sourceTextChanged();
    void sourceOkChanged();
    void dateTimeTextChanged();
    void statusTextChanged();
    void sicsClientsChanged();
    void failedPrintsChanged();
    void levelOkChanged();
    void languageChanged();
    void noticeChanged();
    /// The application that the notice is about is to be closed.
    void closeRequested();

    // What the person does. Presses of action buttons are signalled by actions() and hostActions().
    /// The print button was pressed.
    void printPressed();
    /// The print-outs that have failed are to be repeated.
    void repeatPrintsPressed();
    /// The unit of the main display was touched: the next one is asked for.
    void unitPressed();
    /// It was held: the next one for the small display is asked for.
    void smallUnitPressed();
    /// The application \a index of plugins() was chosen.
    void pluginSelected(int index);
    /// The language \a language ("en" or "de") was chosen; the host answers with setLanguage().
    void languageSelected(const QString& language);

    // What the window reports.
    /// The screen set with setPluginScreen() is shown (\a ok) or could not be loaded; \a errors then says why, one
    /// line per error with file and line.
    void screenLoaded(bool ok, const QString& errors);

private:
    /// An object of somebody else, and the connection that tells of its end.
    struct Watched
    {
        QPointer<QObject> object;
        QMetaObject::Connection end;
    };

    const PluginEntry* activePlugin() const;
    void watchDisplay(Watched& watched, QObject* display);

    Watched m_display;
    Watched m_terminalDisplay;
    Watched m_warnings;
    ActionListModel m_actions;
    ActionListModel m_hostActions;
    ProtocolModel m_protocol;
    bool m_printEnabled = false;
    QVector<PluginEntry> m_plugins;
    QUrl m_pluginScreen;
    QVector<Watched> m_infoItems;
    QPointer<QObject> m_settings;
    QString m_scalePlate;
    QString m_sourceText;
    bool m_sourceOk = true;
    QString m_dateTimeText;
    QString m_statusText;
    int m_sicsClients = -1;
    int m_failedPrints = 0;
    bool m_levelOk = true;
    QString m_language = QStringLiteral("en");
    QString m_noticeText;
    QString m_noticeTitle;
    Severity m_noticeSeverity = Severity::Info;
    int m_noticeCount = 0;
    bool m_noticeOffersClose = false;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_INSTRUMENTMODEL_H
