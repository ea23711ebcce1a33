// SPDX-License-Identifier: BSD-3-Clause
#include "TerminalWindow.h"

#include "BenchModel.h"
#include "InstrumentModel.h"
#include "PaperItems.h"
#include "WorkflowModel.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QFont>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QImage>
#include <QImageWriter>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlError>
#include <QQmlFile>
#include <QQuickItem>
#include <QQuickRenderControl>
#include <QQuickWindow>
#include <QSaveFile>
#include <QThread>
#include <QTranslator>
#include <QUrl>

// Resources of a static library are registered by hand, outside any namespace.
static void initResources()
{
    Q_INIT_RESOURCE(terminal_ui);
    Q_INIT_RESOURCE(terminal_core_translations);
}

namespace Brimvale
{
namespace Terminal
{

namespace
{

const int s_pendingTimeout = 2000; // ms that grab() waits for images and loaders
const int s_statusLoading = 2;     // Image.Loading and Loader.Loading
constexpr int MaximumQmlWarnings = 100;

void setError(QString* error, const QString& text)
{
    if (error) {
        *error = text;
    }
}

QString textOf(const QList<QQmlError>& errors)
{
    QStringList lines;
    for (const QQmlError& error : errors) {
        lines.append(error.toString());
    }
    return lines.join(QLatin1Char('\n'));
}

void useTerminalFonts()
{
    const QStringList installed = QFontDatabase().families();
    if (!installed.contains(QStringLiteral("Inter Display"))) {
        qWarning("The font Inter Display is not installed, another one shows the weight; "
                 "install the Debian package fonts-inter.");
    }
    QFont font(QStringLiteral("Roboto"));
    if (!installed.contains(font.family())) {
        qWarning("The font Roboto is not installed, another one takes its place; "
                 "install the Debian package fonts-roboto-unhinted.");
        font = QGuiApplication::font();
    }
    // Unhinted, letters have the same shapes and places whatever the desktop's settings are.
    font.setHintingPreference(QFont::PreferNoHinting);
    QGuiApplication::setFont(font);
}

/// Whether \a item, or an item in it, is an image or a loader that has not finished.
bool isPending(const QQuickItem* item)
{
    if (item->inherits("QQuickImageBase") || item->inherits("QQuickLoader")) {
        if (item->property("status").toInt() == s_statusLoading) {
            return true;
        }
    }
    const QList<QQuickItem*> children = item->childItems();
    for (const QQuickItem* child : children) {
        if (isPending(child)) {
            return true;
        }
    }
    return false;
}

} // namespace

TerminalWindow::TerminalWindow(InstrumentModel& instrument, BenchModel& bench, WorkflowModel& workflow)
    : m_instrument(instrument)
    , m_bench(bench)
    , m_workflow(workflow)
{
}

TerminalWindow::~TerminalWindow()
{
    disconnect(&m_instrument, nullptr, this, nullptr);
    for (const Published& published : qAsConst(m_contextObjects)) {
        disconnect(published.end);
    }
    unloadPluginScreen();
    for (const QPointer<QQuickItem>& screen : qAsConst(m_unloadedScreens)) {
        delete screen.data();
    }
    if (m_renderControl && m_root) {
        // The textures of pictures go only with the frame that follows the pictures, and after this none would.
        m_root.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_window->releaseResources();
        m_renderControl->sync();
    }
    if (m_translator) {
        QCoreApplication::removeTranslator(m_translator.get());
    }
}

bool TerminalWindow::load(QString* error)
{
    if (m_root) {
        return true;
    }
    initResources();

    const bool offscreen = QGuiApplication::platformName() == QLatin1String("offscreen");
    const bool choiceIsOurs = offscreen || qEnvironmentVariableIsEmpty("QT_QUICK_BACKEND");
    if (choiceIsOurs && QQuickWindow::sceneGraphBackend() != QLatin1String("software")) {
        QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
    }

    useTerminalFonts();

    // For the values of InstrumentModel::Severity.
    registerPaperItems();
    qmlRegisterUncreatableType<InstrumentModel>("Brimvale.Terminal", 1, 0, "InstrumentModel",
                                                QStringLiteral("The terminal makes it."));
    m_engine = std::make_unique<QQmlEngine>();
    connect(m_engine.get(), &QQmlEngine::warnings, this, &TerminalWindow::onQmlWarnings);
    m_engine->rootContext()->setContextProperty(QStringLiteral("instrument"), &m_instrument);
    m_engine->rootContext()->setContextProperty(QStringLiteral("bench"), &m_bench);
    m_engine->rootContext()->setContextProperty(QStringLiteral("workflow"), &m_workflow);

    followLanguage();
    if (!createRootItem(error)) {
        m_root.reset();
        m_engine.reset();
        return false;
    }

    if (offscreen) {
        m_renderControl = std::make_unique<QQuickRenderControl>();
        m_window = std::make_unique<QQuickWindow>(m_renderControl.get());
    } else {
        m_window = std::make_unique<QQuickWindow>();
    }
    m_window->setTitle(QStringLiteral("Brimvale Terminal"));
    m_window->installEventFilter(this);
    m_root->setParentItem(m_window->contentItem());
    setBenchVisible(m_benchVisible);
    if (m_renderControl) {
        m_renderControl->initialize(nullptr);
    }

    connect(&m_instrument, &InstrumentModel::languageChanged, this, &TerminalWindow::followLanguage);
    connect(&m_instrument, &InstrumentModel::pluginScreenChanged, this, &TerminalWindow::followPluginScreen);
    if (!m_instrument.pluginScreen().isEmpty()) {
        followPluginScreen();
    }
    return true;
}

bool TerminalWindow::createRootItem(QString* error)
{
    QQmlComponent component(m_engine.get(), QUrl(QStringLiteral("qrc:/terminal/ui/Main.qml")));
    std::unique_ptr<QObject> root(component.isReady() ? component.create() : nullptr);
    if (!root) {
        setError(error,
                 QStringLiteral("The terminal's screen cannot be loaded:\n") + textOf(component.errors()));
        return false;
    }
    m_root.reset(qobject_cast<QQuickItem*>(root.release()));
    m_root->setProperty("animationsEnabled", m_animationsEnabled);
    m_pluginArea = m_root->findChild<QQuickItem*>(QStringLiteral("pluginArea"));
    Q_ASSERT(m_pluginArea);
    connect(m_pluginArea.data(), &QQuickItem::widthChanged, this, &TerminalWindow::fitPluginScreen);
    connect(m_pluginArea.data(), &QQuickItem::heightChanged, this, &TerminalWindow::fitPluginScreen);
    return true;
}

void TerminalWindow::show()
{
    if (m_window && !m_renderControl) {
        m_window->show();
    }
}

bool TerminalWindow::grab(const QString& pngFile, QString* error)
{
    if (!m_root) {
        setError(error, QStringLiteral("There is no picture of the terminal: its screen is not loaded."));
        return false;
    }
    waitForPendingItems();

    QImage image;
    if (m_renderControl) {
        m_renderControl->polishItems();
        m_renderControl->sync();
        image = m_renderControl->grab();
    } else {
        image = m_window->grabWindow();
    }
    if (image.isNull()) {
        setError(error, QStringLiteral("There is no picture of the terminal: its window is not shown."));
        return false;
    }

    // Qt's writer of PNG files leaves memory behind where the disk is full: it writes into the memory.
    QBuffer png;
    QImageWriter writer(&png, "png");
    if (!png.open(QIODevice::WriteOnly) || !writer.write(image.convertToFormat(QImage::Format_RGB32))) {
        setError(error,
                 QStringLiteral("The picture %1 cannot be made: %2").arg(pngFile, writer.errorString()));
        return false;
    }
    // A disk that is full is noticed, and leaves an earlier picture alone.
    QSaveFile file(pngFile);
    if (!file.open(QIODevice::WriteOnly) || file.write(png.data()) != png.size() || !file.commit()) {
        setError(error,
                 QStringLiteral("The picture %1 cannot be written: %2").arg(pngFile, file.errorString()));
        return false;
    }
    return true;
}

QSize TerminalWindow::size() const
{
    return QSize(m_benchVisible ? 1360 : 1024, 600);
}

bool TerminalWindow::benchVisible() const
{
    return m_benchVisible;
}

void TerminalWindow::setBenchVisible(bool visible)
{
    m_benchVisible = visible;
    if (m_root) {
        m_root->setProperty("benchVisible", visible);
    }
    if (m_window) {
        m_window->setMinimumSize(size());
        m_window->setMaximumSize(size());
        m_window->resize(size());
    }
}

bool TerminalWindow::animationsEnabled() const
{
    return m_animationsEnabled;
}

void TerminalWindow::setAnimationsEnabled(bool enabled)
{
    m_animationsEnabled = enabled;
    if (m_root) {
        m_root->setProperty("animationsEnabled", enabled);
    }
}

void TerminalWindow::setContextObject(const QString& name, QObject* object)
{
    disconnect(m_contextObjects.take(name).end);
    if (object) {
        const auto forget = [this, name] { onContextObjectDestroyed(name); };
        m_contextObjects.insert(name, {object, connect(object, &QObject::destroyed, this, forget)});
    }
    if (m_pluginContext) {
        m_pluginContext->setContextProperty(name, object);
    }
}

void TerminalWindow::clearPluginScreen()
{
    unloadPluginScreen();
    m_instrument.setPluginScreen(QUrl());
    for (const Published& published : qAsConst(m_contextObjects)) {
        disconnect(published.end);
    }
    m_contextObjects.clear();
}

QQmlEngine* TerminalWindow::engine() const
{
    return m_engine.get();
}

QQuickItem* TerminalWindow::pluginScreen() const
{
    return m_pluginScreen.data();
}

QQuickWindow* TerminalWindow::window() const
{
    return m_window.get();
}

QQuickItem* TerminalWindow::rootItem() const
{
    return m_root.get();
}

QStringList TerminalWindow::takeQmlWarnings()
{
    QStringList warnings = m_qmlWarnings;
    m_qmlWarnings.clear();
    return warnings;
}

void TerminalWindow::retranslate()
{
    if (m_engine) {
        m_engine->retranslate();
    }
}

bool TerminalWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Close) {
        emit closed();
    }
    return QObject::eventFilter(watched, event);
}

void TerminalWindow::followLanguage()
{
    if (m_translator) {
        QCoreApplication::removeTranslator(m_translator.get());
        m_translator.reset();
    }
    // The texts in the sources are English.
    if (m_instrument.language() != QLatin1String("en")) {
        m_translator = std::make_unique<QTranslator>();
        if (m_translator->load(
                QStringLiteral(":/translations/terminal_%1.qm").arg(m_instrument.language()))) {
            QCoreApplication::installTranslator(m_translator.get());
        } else {
            m_translator.reset();
        }
    }
    retranslate();
}

void TerminalWindow::followPluginScreen()
{
    unloadPluginScreen();
    const QUrl screen = m_instrument.pluginScreen();
    const QString errors = screen.isEmpty() ? QString() : createPluginScreen(screen);
    m_root->setProperty("screenErrors", errors);
    if (!screen.isEmpty()) {
        emit m_instrument.screenLoaded(errors.isEmpty(), errors);
    }
}

/// Creates the screen in the application area. Returns why it failed, the empty text on success.
QString TerminalWindow::createPluginScreen(const QUrl& screen)
{
    QString fromNetwork =
        QStringLiteral("%1: a screen is loaded from a file or a resource, not from a network.")
            .arg(screen.toString());
    if (!QQmlFile::isSynchronous(screen)) {
        return fromNetwork; // nothing is asked of the network
    }
    QQmlComponent component(m_engine.get(), screen);
    if (component.isLoading()) {
        return fromNetwork; // something that it imports
    }

    if (!component.isReady()) {
        return textOf(component.errors());
    }

    // A context of its own: what one plug-in publishes does not reach the terminal's screen, and deleting the
    // context silences every binding of the plug-in's screen at once.
    m_pluginContext = std::make_unique<QQmlContext>(m_engine->rootContext());
    for (auto published = m_contextObjects.cbegin(); published != m_contextObjects.cend(); ++published) {
        m_pluginContext->setContextProperty(published.key(), published->object.data());
    }

    std::unique_ptr<QObject> root(component.beginCreate(m_pluginContext.get()));
    QQuickItem* item = qobject_cast<QQuickItem*>(root.get());
    if (!item) {
        QString errors = root ? QStringLiteral("%1: the root of a screen must be an Item, this one is a %2.")
                                    .arg(screen.toString(), QLatin1String(root->metaObject()->className()))
                              : textOf(component.errors());
        if (root) {
            component.completeCreate();
        }
        root.reset();
        m_pluginContext.reset();
        return errors;
    }

    // The screen knows its place and its size before it evaluates its first binding.
    static_cast<void>(root.release());
    QQmlEngine::setObjectOwnership(item, QQmlEngine::CppOwnership);
    m_pluginScreen = item;
    item->setParentItem(m_pluginArea);
    fitPluginScreen();
    component.completeCreate();
    return QString();
}

void TerminalWindow::unloadPluginScreen()
{
    m_unloadedScreens.removeAll(nullptr);
    // The context goes first: no binding of the screen is evaluated from here on.
    m_pluginContext.reset();
    if (m_pluginScreen) {
        QQuickItem* screen = m_pluginScreen.data();
        m_pluginScreen.clear();
        screen->setParentItem(nullptr);
        // Not deleted at once, since one of its own handlers may have led here.
        screen->deleteLater();
        m_unloadedScreens.append(screen);
    }
}

void TerminalWindow::fitPluginScreen()
{
    if (m_pluginScreen && m_pluginArea) {
        m_pluginScreen->setSize(QSizeF(m_pluginArea->width(), m_pluginArea->height()));
    }
}

void TerminalWindow::onContextObjectDestroyed(const QString& name)
{
    m_contextObjects.remove(name);
    if (m_pluginContext) {
        unloadPluginScreen();
        m_instrument.setPluginScreen(QUrl());
    }
}

void TerminalWindow::onQmlWarnings(const QList<QQmlError>& warnings)
{
    for (const QQmlError& warning : warnings) {
        // A screen that warns at every reading must not fill the memory.
        if (m_qmlWarnings.size() < MaximumQmlWarnings)
            m_qmlWarnings.append(warning.toString());
    }
}

void TerminalWindow::waitForPendingItems() const
{
    QElapsedTimer waiting;
    waiting.start();
    while (m_pluginScreen && isPending(m_pluginScreen) && waiting.elapsed() < s_pendingTimeout) {
        QThread::msleep(1);
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents,
                                        50);
    }
}

} // namespace Terminal
} // namespace Brimvale
