// Shows the shared controls in their states in a window: "quillmere_gallery", or a page of it, "quillmere_gallery Popups". With
// the name of a file behind the page it writes a picture there.

#include "app/theme/Theme.h"
#include "platform/Environment.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmere;

namespace {

const QPoint away(1, 1);
constexpr int margin = 6; // a focus ring lies outside of its control

// One pointer and one keyboard cannot be everywhere at once: each control that is to be seen hovered, pressed or focused
// is brought there by itself, and its place is cut out of a picture of its own.
QImage withStates(QQuickWindow &view)
{
    QTest::mouseMove(&view, away);
    QImage picture = view.grabWindow();
    // The picture is worked on in its own pixels.
    const double ratio = double(picture.width()) / view.width();
    picture.setDevicePixelRatio(1);
    for (const QString &state : {u"hovered"_s, u"pressed"_s, u"focused"_s, u"field"_s}) {
        for (auto *item : view.findChildren<QQuickItem *>(state)) {
            const QRectF place = item->mapRectToScene(item->boundingRect());
            const QPoint middle = place.center().toPoint();
            if (state == u"hovered"_s || state == u"pressed"_s) {
                QTest::mouseMove(&view, middle);
            }
            if (state == u"pressed"_s) {
                QTest::mousePress(&view, Qt::LeftButton, {}, middle);
            }
            if (state == u"focused"_s) {
                QTest::keyClick(&view, Qt::Key_Escape); // the ring shows after a key only
                item->forceActiveFocus(Qt::TabFocusReason);
            }
            if (state == u"field"_s) {
                QTest::mouseDClick(&view, Qt::LeftButton, {}, QPoint(int(place.left()) + 20, middle.y()));
            }
            const QRect cut = place.adjusted(-margin, -margin, margin, margin).toAlignedRect();
            const QRect pixels((QPointF(cut.topLeft()) * ratio).toPoint(), cut.size() * ratio);
            QImage now = view.grabWindow();
            now.setDevicePixelRatio(1);
            QPainter painter(&picture);
            painter.drawImage(pixels, now, pixels);
            if (state == u"pressed"_s) {
                QTest::mouseRelease(&view, Qt::LeftButton, {}, middle);
            }
            QTest::mouseMove(&view, away);
        }
    }
    return picture;
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QML_DISABLE_DISK_CACHE", "1");
    QGuiApplication application(argc, argv);
    const auto environment = Environment::real();
    const QString page = argc > 1 ? QString::fromLocal8Bit(argv[1]) : u"Gallery"_s;
    const bool takesPicture = argc > 2;
    environment->animations = !takesPicture;
    Theme::registerFonts();

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
        return withStates(*window).save(QString::fromLocal8Bit(argv[2])) ? 0 : 1;
    }
    return QGuiApplication::exec();
}
