#include "app/Quillmere_StudioApp.h"

#include "app/LifecycleManager.h"
#include "app/UpdateManager.h"
#include "app/theme/Theme.h"
#include "controls/Keyboard.h"
#include "platform/ApplicationId.h"
#include "platform/BrowserSession.h"
#include "platform/Console.h"
#include "platform/Environment.h"
#include "platform/MainQueue.h"
#include "platform/SingleInstance.h"
#include "platform/Urls.h"

#include <QDir>
#include <QGuiApplication>
#include <QQuickWindow>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

// Without a graphics processor Qt's software renderer starts several times faster than OpenGL, and draws for less.
void chooseRenderer()
{
    const bool hasRenderNode = !QDir(u"/dev/dri"_s).entryList({u"renderD*"_s}, QDir::System).isEmpty();
    if (!hasRenderNode && !qEnvironmentVariableIsSet("QT_QUICK_BACKEND")) {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    }
}

} // namespace

int Quillmere_StudioApp::run(
    int &argc, char *argv[], const std::function<std::unique_ptr<Environment>()> &makeEnvironment)
{
    SingleInstance instance(applicationId);
    if (!instance.claim(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString())) {
        return 0;
    }
    QGuiApplication::setDesktopFileName(applicationId);
    QGuiApplication application(argc, argv);
    // The window's class under X11 is the application's name, and desktops look for an entry of that name.
    QGuiApplication::setApplicationName(applicationId);
    QGuiApplication::setApplicationVersion(QStringLiteral(QUILLMERE_VERSION));
    chooseRenderer();

    const auto environment = makeEnvironment();
    environment->relaunch = [&instance, start = environment->relaunch](const QString &program) {
        // Or the program started would find this one running, hand over to it and end.
        instance.release();
        start(program);
    };
    Quillmere_StudioApp studio;
    if (!studio.open()) {
        return 1;
    }
    connect(&instance, &SingleInstance::received, &studio, &Quillmere_StudioApp::receive);
    instance.listen();
    if (argc > 1) {
        studio.receive(QString::fromLocal8Bit(argv[1]));
    }
    return QGuiApplication::exec();
}

Quillmere_StudioApp::Quillmere_StudioApp()
{
    m_engine.addImportPath(u"qrc:/qt/qml"_s);
}

Quillmere_StudioApp::~Quillmere_StudioApp() = default;

bool Quillmere_StudioApp::open()
{
    // It sees the keys from the first one on; QML would ask for it when the first control has the focus already.
    Keyboard::shared();
    m_engine.load(QUrl(u"qrc:/qt/qml/Quillmere/App/MainWindow.qml"_s));
    if (m_engine.rootObjects().isEmpty()) {
        return false;
    }
    const auto once = Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection);
    connect(window(), &QQuickWindow::frameSwapped, this, &Quillmere_StudioApp::goOn, once);
    auto &queue = MainQueue::shared();
    queue.asyncAfter(std::chrono::seconds(1), this, [] { LifecycleManager::checkLocation(); });
    queue.asyncAfter(std::chrono::seconds(3), this, [] { UpdateManager::shared().checkForUpdates(); });
    return true;
}

void Quillmere_StudioApp::goOn()
{
    // With the list of the system's faces, which the toolkit makes first, this takes half as long as all that comes before the first
    // frame.
    Theme::registerFaces();
    // Once the window has been told of the faces, at which it sets its texts anew.
    QMetaObject::invokeMethod(
        this, [this] { window()->setProperty("isUp", true); }, Qt::QueuedConnection);
}

QQuickWindow *Quillmere_StudioApp::window() const
{
    return qobject_cast<QQuickWindow *>(m_engine.rootObjects().value(0));
}

void Quillmere_StudioApp::receive(const QString &message)
{
    const auto url = parseUrl(message);
    if (url && url->scheme() == applicationId && !BrowserSession::shared().deliver(message)) {
        print(u"Received URL: "_s + message);
    }
    // Out of the dock as well, which showing alone does not do.
    window()->setWindowStates(window()->windowStates() & ~Qt::WindowMinimized);
    window()->show();
    window()->raise();
    window()->requestActivate();
}

} // namespace quillmere
