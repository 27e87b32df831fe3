#include "controls/GalleryPicture.h"

#include <QPainter>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quillmere::testing {

namespace {

const QPoint away(1, 1);
constexpr int margin = 6; // a focus ring lies outside of its control

} // namespace

QImage galleryPicture(QQuickWindow &view)
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

} // namespace quillmere::testing
