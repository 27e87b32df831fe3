#include "charts/RingKernel.h"

#include <QTest>

#include <cmath>
#include <limits>
#include <numbers>

namespace quillmere {

namespace {

const RingKernel::Shape shape{100, 8, 6, qRgba(255, 255, 255, 26), 1};
const QColor blue(0x0A, 0x84, 0xFF);

// The pixel at that place along the ring's middle line (0 to 1), or so many points outside of it.
QColor at(const QImage &picture, double place, double outside = 0)
{
    const double angle = (135 + 270 * place) * std::numbers::pi / 180;
    const double radius = (50 + outside) * picture.devicePixelRatio();
    const double middle = picture.width() / 2.0;
    return picture.pixelColor(
        int(std::floor(middle + radius * std::cos(angle))), int(std::floor(middle + radius * std::sin(angle))));
}

bool isUnlit(const QColor &pixel)
{
    return pixel.red() == pixel.blue() && pixel.red() == pixel.green();
}

} // namespace

class tst_RingKernel : public QObject {
    Q_OBJECT

private slots:
    void drawsOnlyTheTrackAtZero()
    {
        const QImage picture = RingKernel(shape).draw(0, blue);
        for (const double place : {0.0, 0.25, 0.5, 0.75, 1.0}) {
            QCOMPARE(at(picture, place), QColor(255, 255, 255, 26));
        }
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                QVERIFY(isUnlit(picture.pixelColor(x, y)));
            }
        }
    }

    void isOpenAtTheBottom()
    {
        const QImage picture = RingKernel(shape).draw(1, blue);
        // The four ends of the cross: the top, the sides, and nothing below.
        QVERIFY(at(picture, 0.5).alpha() > 0);
        QVERIFY(at(picture, 1 / 6.0).alpha() > 0);
        QVERIFY(at(picture, 5 / 6.0).alpha() > 0);
        const double bottom = -1 / 6.0; // a quarter of the circle before the start's right neighbour
        QCOMPARE(at(picture, bottom).alpha(), 0);
        QCOMPARE(picture.pixelColor(picture.width() / 2, picture.height() / 2).alpha(), 0);
    }

    void lightsUpToItsFractionAndNotBeyondItsRoundEnd_data()
    {
        QTest::addColumn<double>("fraction");
        for (const double fraction : {0.2, 0.45, 0.8}) {
            QTest::addRow("%.2f", fraction) << fraction;
        }
    }

    void lightsUpToItsFractionAndNotBeyondItsRoundEnd()
    {
        QFETCH(double, fraction);
        const QImage picture = RingKernel(shape).draw(fraction, blue);
        const double cap = 4 / (50 * 1.5 * std::numbers::pi); // half of the stroke, along the ring
        QVERIFY(!isUnlit(at(picture, fraction - 0.02)));
        QVERIFY(at(picture, fraction + 0.7 * cap).alpha() > 100);
        // At the cap's side there is less of it than in its middle.
        QVERIFY(at(picture, fraction + 0.9 * cap, 3).alpha() < 100);
        QCOMPARE(at(picture, fraction + 5 * cap), QColor(255, 255, 255, 26));
    }

    void gathersColourOnItsWay()
    {
        const QImage picture = RingKernel(shape).draw(1, blue);
        QCOMPARE(at(picture, 1), blue);
        const auto opacity = [&](double place) { return at(picture, place).alpha(); };
        // At the start half of it, over the track (26 of 255) and the glow (0.82 of 0.3 of a half): 128 + (31 + 23) / 2.
        QVERIFY(std::abs(opacity(0.005) - 155) < 4);
        QVERIFY(opacity(0.25) < opacity(0.5) && opacity(0.5) < opacity(0.75) && opacity(0.75) < opacity(1));
    }

    void glowsBesideTheLitPartOnly()
    {
        const QImage picture = RingKernel(shape).draw(0.5, blue);
        const QColor glow = at(picture, 0.3, 7);
        QVERIFY(glow.alpha() > 2 && glow.alpha() < 50);
        QVERIFY(glow.blue() > glow.red());
        QVERIFY(at(picture, 0.3, 9).alpha() < glow.alpha());
        QCOMPARE(at(picture, 0.3, 12.5).alpha(), 0);
        QCOMPARE(at(picture, 0.8, 7).alpha(), 0);
        RingKernel dull({100, 8, 0, qRgba(255, 255, 255, 26), 1});
        QCOMPARE(at(dull.draw(0.5, blue), 0.3, 7).alpha(), 0);
    }

    void neverGoesBeyondItsEnd()
    {
        RingKernel kernel(shape);
        QCOMPARE(kernel.draw(7, blue), kernel.draw(1, blue));
        QCOMPARE(kernel.draw(std::numeric_limits<double>::infinity(), blue), kernel.draw(1, blue));
    }

    void takesWhatIsNoFractionForNone()
    {
        RingKernel kernel(shape);
        QCOMPARE(kernel.draw(-1, blue), kernel.draw(0, blue));
        QCOMPARE(kernel.draw(std::numeric_limits<double>::quiet_NaN(), blue), kernel.draw(0, blue));
    }

    void movesWithoutAJump()
    {
        // Small steps change little, wherever the end stands: no seam between the lit part and its round end.
        RingKernel kernel(shape);
        QImage before = kernel.draw(0.001, blue);
        for (double fraction = 0.003; fraction <= 1; fraction += 0.002) {
            const QImage now = kernel.draw(fraction, blue);
            int most = 0;
            for (int y = 0; y < now.height(); ++y) {
                for (int x = 0; x < now.width(); ++x) {
                    most = std::max(most, std::abs(now.pixelColor(x, y).alpha() - before.pixelColor(x, y).alpha()));
                }
            }
            QVERIFY2(most < 140, qPrintable(QString::number(fraction)));
            before = now;
        }
    }

    void isDrawnInTheScreensPixels()
    {
        RingKernel kernel({100, 8, 6, qRgba(255, 255, 255, 26), 2});
        const QImage picture = kernel.draw(0.5, blue);
        QCOMPARE(picture.devicePixelRatio(), 2.0);
        QCOMPARE(kernel.side(), 2 * RingKernel(shape).side());
        QVERIFY(!isUnlit(at(picture, 0.4)));
        QVERIFY(isUnlit(at(picture, 0.7)));
    }

    void isMadeOnceForAllRingsOfAShape()
    {
        const auto one = RingKernel::of(shape);
        const auto other = RingKernel::of(shape);
        QCOMPARE(one.get(), other.get());
        QVERIFY(RingKernel::of({60, 8, 6, qRgba(255, 255, 255, 26), 1}) != one);
    }

    void goesWithTheLastOfItsRings()
    {
        auto kernel = RingKernel::of(shape);
        const std::weak_ptr<RingKernel> watched = kernel;
        kernel.reset();
        QVERIFY(watched.expired());
    }

    void bearsMoreColoursThanItKeeps()
    {
        RingKernel kernel(shape);
        const QImage first = kernel.draw(0.5, blue);
        for (int hue = 0; hue < 360; hue += 30) {
            kernel.draw(0.5, QColor::fromHsv(hue, 255, 255));
        }
        QCOMPARE(kernel.draw(0.5, blue), first);
    }
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_RingKernel)
#include "tst_RingKernel.moc"
