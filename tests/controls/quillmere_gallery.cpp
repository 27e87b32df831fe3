// Shows every shared control in its states in a window, or with the name of a file as its argument writes a picture of them there.

#include "app/theme/Theme.h"
#include "platform/Environment.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmere;

namespace {

constexpr int margin = 5; // a focus ring lies outside of its control

// One pointer and one keyboard cannot be everywhere at once: each control that is to be seen hovered, pressed or focused
// is brought there by itself, and its place is cut out of a picture of its own.
QImage withStates(QQuickView &view)
{
    QTest::mouseMove(&view, QPoint(1, 1));
    QImage picture = view.grabWindow();
    const double ratio = picture.devicePixelRatio();
    for (const QString &state : {u"hovered"_s, u"pressed"_s, u"focused"_s, u"field"_s}) {
        for (auto *item : view.rootObject()->findChildren<QQuickItem *>(state)) {
            const QRectF place = item->mapRectToScene(item->boundingRect());
            const QPoint middle = place.center().toPoint();
            if (state == u"hovered"_s || state == u"pressed"_s) {
                QTest::mouseMove(&view, middle);
            }
            if (state == u"pressed"_s) {
                QTest::mousePress(&view, Qt::LeftButton, {}, middle);
            }
            if (state == u"focused"_s) {
                item->forceActiveFocus(Qt::TabFocusReason);
            }
            if (state == u"field"_s) {
                QTest::mouseDClick(&view, Qt::LeftButton, {}, QPoint(int(place.left()) + 20, middle.y()));
            }
            const QRect cut = place.adjusted(-margin, -margin, margin, margin).toAlignedRect();
            const QImage part = view.grabWindow().copy(
                QRect((QPointF(cut.topLeft()) * ratio).toPoint(), cut.size() * ratio));
            QPainter painter(&picture);
            painter.drawImage(cut.topLeft(), part);
            if (state == u"pressed"_s) {
                QTest::mouseRelease(&view, Qt::LeftButton, {}, middle);
            }
            QTest::mouseMove(&view, QPoint(1, 1));
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
    const bool takesPicture = argc > 1;
    environment->animations = !takesPicture;
    Theme::registerFonts();

    QQuickView view;
    view.engine()->addImportPath(u"qrc:/qt/qml"_s);
    view.setSource(QUrl(u"qrc:/Gallery.qml"_s));
    view.show();
    if (view.status() != QQuickView::Ready || !QTest::qWaitForWindowExposed(&view)) {
        return 1;
    }
    if (takesPicture) {
        return withStates(view).save(QString::fromLocal8Bit(argv[1])) ? 0 : 1;
    }
    return QGuiApplication::exec();
}
