#include "charts/ArcGauge.h"

#include <QQuickWindow>
#include <QTest>

namespace quillmere {

class tst_ArcGauge : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<QQuickWindow> m_window;
    ArcGauge *m_gauge = nullptr;
    int m_frames = 0;

    // Until the frames that something asks for have passed.
    void rest()
    {
        for (int before = -1; before != m_frames;) {
            before = m_frames;
            QTest::qWait(50);
        }
    }

private slots:
    void init()
    {
        m_window = std::make_unique<QQuickWindow>();
        m_window->setColor(Qt::black);
        m_window->resize(200, 200);
        m_gauge = new ArcGauge(m_window->contentItem());
        m_gauge->setPosition({50, 50});
        m_gauge->setSize({101, 100});
        m_gauge->setColor(Qt::red);
        m_window->show();
        QVERIFY(QTest::qWaitFor([this] { return m_gauge->drawings() > 0; }, 30'000));
        connect(m_window.get(), &QQuickWindow::afterRendering, this, [this] { ++m_frames; });
        rest();
        m_frames = 0;
    }
    void cleanup() { m_window.reset(); }

    void drawsOnceAndInOneFrameForAChange()
    {
        const int before = m_gauge->drawings();
        m_gauge->setFraction(0.25);
        m_gauge->setFraction(0.5);
        m_gauge->setColor(Qt::blue);
        rest();
        QCOMPARE(m_gauge->drawings(), before + 1);
        QCOMPARE(m_frames, 1);
    }

    void drawsNothingWhereNothingChanged()
    {
        const int before = m_gauge->drawings();
        m_gauge->setFraction(0);
        m_gauge->setColor(Qt::red);
        m_gauge->setX(51);
        m_gauge->ensurePolished();
        rest();
        QCOMPARE(m_gauge->drawings(), before);
    }

    void standsInTheMiddleOfItsItemAndReachesBeyondIt()
    {
        m_gauge->setFraction(1);
        rest();
        const QImage picture = m_window->grabWindow();
        // The top of the stroke lies four points above the item; its middle line is the item's edge.
        QVERIFY(picture.pixelColor(100, 50).green() < 20);
        QVERIFY(picture.pixelColor(100, 50).red() > 150);
        QVERIFY(picture.pixelColor(100, 47).red() > 150);
        QVERIFY(picture.pixelColor(100, 44).red() < 100);
        QCOMPARE(picture.pixelColor(100, 100), QColor(Qt::black));
        QCOMPARE(picture.pixelColor(100, 150), QColor(Qt::black));
    }

    void followsItsSize()
    {
        m_gauge->setFraction(1);
        m_gauge->setSize({60, 80});
        rest();
        const QImage picture = m_window->grabWindow();
        // As large a circle as fits: from 60 to 120 down.
        QVERIFY(picture.pixelColor(80, 60).red() > 150);
        QVERIFY(picture.pixelColor(80, 50).red() < 20);
        m_gauge->setSize({0, 80});
        rest();
        QCOMPARE(m_window->grabWindow().pixelColor(80, 60), QColor(Qt::black));
    }
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_ArcGauge)
#include "tst_ArcGauge.moc"
