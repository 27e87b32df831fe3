// Shows the shared controls in their states in a window: "quillmere_gallery", or a page of it, "quillmere_gallery Popups". With
// the name of a file behind the page it writes a picture there.

#include "app/theme/Theme.h"
#include "controls/GalleryPicture.h"
#include "platform/Environment.h"

#include <QGuiApplication>
#include <QImage>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmere;

int main(int argc, char *argv[])
{
    qputenv("QML_DISABLE_DISK_CACHE", "1");
    QGuiApplication application(argc, argv);
    const auto environment = Environment::real();
    const QString page = argc > 1 ? QString::fromLocal8Bit(argv[1]) : u"Gallery"_s;
    const bool takesPicture = argc > 2;
    environment->animations = !takesPicture;
    Theme::registerFaces();

    QQmlEngine engine;
    engine.addImportPath(u"qrc:/qt/qml"_s);
    QQmlComponent component(&engine, QUrl(u"qrc:/GalleryWindow.qml"_s));
    const std::unique_ptr<QObject> made(
        component.createWithInitialProperties({{u"page"_s, QUrl(u"qrc:/"_s + page + u".qml"_s)}}));
    auto *window = qobject_cast<QQuickWindow *>(made.get());
    if (!window || !QTest::qWaitForWindowExposed(window)) {
        qWarning("%s", qPrintable(component.errorString()));
        return 1;
    }
    if (takesPicture) {
        return testing::galleryPicture(*window).save(QString::fromLocal8Bit(argv[2])) ? 0 : 1;
    }
    return QGuiApplication::exec();
}
