#include "identity/QrCode.h"

#include <QBuffer>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

QByteArray png(const QImage &image)
{
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return data;
}

// Black and white squares of one pixel.
QImage chequered(int side)
{
    QImage image(side, side, QImage::Format_Mono);
    image.setColorTable({qRgb(255, 255, 255), qRgb(0, 0, 0)});
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            image.setPixel(x, y, uint(x + y) % 2);
        }
    }
    return image;
}

QImage painted(QrCode &code)
{
    QImage canvas(140, 140, QImage::Format_ARGB32);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    code.paint(&painter);
    return canvas;
}

} // namespace

class tst_QrCode : public QObject {
    Q_OBJECT

private slots:
    void drawsItsModulesWithHardEdges()
    {
        QrCode code;
        code.setSize({140, 140});
        // Neither side divides the other: smoothing would give grays.
        code.setImageData(png(chequered(33)));
        QVERIFY(code.isImage());
        const QImage canvas = painted(code);
        bool hasBlack = false;
        bool hasWhite = false;
        for (int y = 10; y < 130; ++y) {
            for (int x = 10; x < 130; ++x) {
                const QRgb pixel = canvas.pixel(x, y);
                hasBlack = hasBlack || pixel == qRgb(0, 0, 0);
                hasWhite = hasWhite || pixel == qRgb(255, 255, 255);
                QVERIFY2(pixel == qRgb(0, 0, 0) || pixel == qRgb(255, 255, 255),
                    qPrintable(u"%1,%2: %3"_s.arg(x).arg(y).arg(pixel, 0, 16)));
            }
        }
        QVERIFY(hasBlack && hasWhite);
    }

    void leavesTheCornersOfItsGroundFree()
    {
        QrCode code;
        code.setSize({140, 140});
        code.setImageData(png(chequered(35)));
        const QImage canvas = painted(code);
        for (const QPoint corner : {QPoint(0, 0), QPoint(139, 0), QPoint(0, 139), QPoint(139, 139)}) {
            QCOMPARE(qAlpha(canvas.pixel(corner)), 0);
        }
        QCOMPARE(qAlpha(canvas.pixel(70, 0)), 255);
        QCOMPARE(qAlpha(canvas.pixel(0, 70)), 255);
    }

    void staysEmptyForWhatIsNoImage_data()
    {
        QTest::addColumn<QByteArray>("data");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("words") << QByteArray("no image");
        QTest::newRow("the front half of an image") << png(chequered(33)).first(40);
        QTest::newRow("a side of 4,097 pixels") << png(QImage(4097, 1, QImage::Format_Mono));
    }
    void staysEmptyForWhatIsNoImage()
    {
        QFETCH(QByteArray, data);
        QrCode code;
        code.setSize({140, 140});
        code.setImageData(png(chequered(33)));
        code.setImageData(data);
        QVERIFY(!code.isImage());
        QCOMPARE(code.imageData(), data);
        QCOMPARE(qAlpha(painted(code).pixel(70, 70)), 0);
    }

    void takesAnImageOfFourThousandPixels()
    {
        QrCode code;
        code.setImageData(png(QImage(4096, 1, QImage::Format_Mono)));
        QVERIFY(code.isImage());
    }

    void tellsAChangeOnce()
    {
        QrCode code;
        QSignalSpy changed(&code, &QrCode::imageDataChanged);
        const QByteArray data = png(chequered(33));
        code.setImageData(data);
        code.setImageData(data);
        QCOMPARE(changed.size(), 1);
    }
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_QrCode)
#include "tst_QrCode.moc"
