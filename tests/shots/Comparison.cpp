#include "shots/Comparison.h"

#include <QPainter>

#include <algorithm>
#include <cstdlib>

namespace quillmere::testing {

namespace {

bool isOther(QRgb a, QRgb b)
{
    const auto off = [&](int (*channel)(QRgb)) { return std::abs(channel(a) - channel(b)) > roundingTolerance; };
    return a != b && (off(qRed) || off(qGreen) || off(qBlue));
}

} // namespace

Difference compare(const QImage &reference, const QImage &picture)
{
    const QImage a = reference.convertToFormat(QImage::Format_RGB32);
    const QImage b = picture.convertToFormat(QImage::Format_RGB32);
    Difference difference;
    if (a.size() != b.size()) {
        difference.pixels = std::max<qsizetype>(1, qsizetype(b.width()) * b.height());
        difference.place = b.rect();
    } else if (a == b) {
        return difference;
    }

    QImage marks(b.size(), QImage::Format_RGB32);
    marks.fill(Qt::black);
    if (a.size() == b.size()) {
        for (int y = 0; y < b.height(); ++y) {
            const auto *lineA = reinterpret_cast<const QRgb *>(a.constScanLine(y));
            const auto *lineB = reinterpret_cast<const QRgb *>(b.constScanLine(y));
            auto *mark = reinterpret_cast<QRgb *>(marks.scanLine(y));
            for (int x = 0; x < b.width(); ++x) {
                if (isOther(lineA[x], lineB[x])) {
                    mark[x] = qRgb(255, 64, 64);
                    difference.place |= QRect(x, y, 1, 1);
                    ++difference.pixels;
                } else {
                    mark[x] = qRgb(qRed(lineB[x]) / 3, qGreen(lineB[x]) / 3, qBlue(lineB[x]) / 3);
                }
            }
        }
    }
    if (!difference) {
        return difference;
    }

    difference.drawing =
        QImage(a.width() + b.width() + marks.width() + 2 * 8, std::max(a.height(), b.height()), QImage::Format_RGB32);
    difference.drawing.fill(Qt::white);
    QPainter painter(&difference.drawing);
    painter.drawImage(0, 0, a);
    painter.drawImage(a.width() + 8, 0, b);
    painter.drawImage(a.width() + b.width() + 16, 0, marks);
    painter.setPen(QColor(255, 214, 10));
    painter.drawRect(difference.place.translated(a.width() + b.width() + 16, 0).adjusted(-6, -6, 5, 5));
    return difference;
}

QRect changedPart(const QImage &one, const QImage &other)
{
    const QImage a = one.convertToFormat(QImage::Format_RGB32);
    const QImage b = other.convertToFormat(QImage::Format_RGB32);
    if (a.size() != b.size()) {
        return b.rect();
    }
    QRect part;
    for (int y = 0; y < b.height(); ++y) {
        for (int x = 0; x < b.width(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y)) {
                part |= QRect(x, y, 1, 1);
            }
        }
    }
    return part;
}

} // namespace quillmere::testing
