#include "analytics/gauges/RollingNumber.h"

#include "app/theme/Theme.h"
#include "support/AnimationTime.h"
#include "support/PlatformEnvironment.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace quillmere {

using testing::PlatformEnvironment;

namespace {

QImage pictureOf(RollingNumber &number)
{
    QImage image(number.size().toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter painter(&image);
    number.paint(&painter);
    return image;
}

} // namespace

class tst_RollingNumber : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<PlatformEnvironment> m_world;
    std::unique_ptr<testing::AnimationTime> m_time;
    std::unique_ptr<RollingNumber> m_number;

    void show(const QString &text)
    {
        m_number->setText(text);
        testing::settle();
    }
    QImage settled(const QString &text)
    {
        RollingNumber other;
        other.setFont(m_number->font());
        other.setText(text);
        other.setSize(m_number->size());
        return pictureOf(other);
    }

private slots:
    void initTestCase() { Theme::registerFaces(); }
    void init()
    {
        m_world = std::make_unique<PlatformEnvironment>();
        m_world->environment.animations = true;
        m_time = std::make_unique<testing::AnimationTime>();
        m_number = std::make_unique<RollingNumber>();
        m_number->setFont(Theme::system(28, QFont::Bold));
        m_number->setSize({100, 40});
    }
    void cleanup()
    {
        m_number.reset();
        m_time.reset();
        m_world.reset();
    }

    void showsItsFirstFigureAtOnce()
    {
        show(u"65"_s);
        QCOMPARE(pictureOf(*m_number), settled(u"65"_s));
    }

    void rollsToTheNextInThreeTenthsOfASecond()
    {
        show(u"65"_s);
        show(u"72"_s);
        QCOMPARE(pictureOf(*m_number), settled(u"65"_s));
        m_time->pass(150);
        const QImage midway = pictureOf(*m_number);
        QVERIFY(midway != settled(u"65"_s));
        QVERIFY(midway != settled(u"72"_s));
        m_time->pass(150);
        QCOMPARE(pictureOf(*m_number), settled(u"72"_s));
    }

    void leavesADigitAloneThatStays()
    {
        show(u"65"_s);
        show(u"66"_s);
        m_time->pass(150);
        const QRect firstDigit(0, 0, 50, 40);
        QCOMPARE(pictureOf(*m_number).copy(firstDigit), settled(u"66"_s).copy(firstDigit));
    }

    void rollsUpWhenItRisesAndDownWhenItFalls()
    {
        // Of what is bright enough: soon after the start that is the figure that goes.
        const auto lowestRow = [](const QImage &image) {
            for (int y = image.height() - 1; y >= 0; --y) {
                for (int x = 0; x < image.width(); ++x) {
                    if (image.pixelColor(x, y).lightness() > 60) {
                        return y;
                    }
                }
            }
            return -1;
        };
        show(u"5"_s);
        show(u"6"_s);
        m_time->pass(90);
        QVERIFY(lowestRow(pictureOf(*m_number)) < lowestRow(settled(u"5"_s)));
        m_time->pass(210);
        show(u"5"_s);
        m_time->pass(90);
        QVERIFY(lowestRow(pictureOf(*m_number)) > lowestRow(settled(u"6"_s)));
    }

    void changesItsMindOnTheWay()
    {
        show(u"10"_s);
        show(u"20"_s);
        m_time->pass(100);
        show(u"30"_s);
        m_time->pass(300);
        QCOMPARE(pictureOf(*m_number), settled(u"30"_s));
    }

    void keepsItsWidthWhateverTheDigits()
    {
        show(u"1111"_s);
        const double width = m_number->implicitWidth();
        RollingNumber other;
        other.setFont(m_number->font());
        other.setText(u"8888"_s);
        QCOMPARE(other.implicitWidth(), width);
    }

    void showsNewFiguresAtOnceWithoutAnimations()
    {
        m_world->environment.animations = false;
        show(u"10"_s);
        show(u"20"_s);
        QCOMPARE(pictureOf(*m_number), settled(u"20"_s));
    }
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_RollingNumber)
#include "tst_RollingNumber.moc"
