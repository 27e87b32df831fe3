#include "app/theme/Color.h"
#include "app/theme/Theme.h"
#include "identity/AuthManager.h"
#include "support/ViewTest.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmere::testing;

namespace quillmere {

namespace {

const QString gray = word(Color::gray());
const QString white = u"#ffffffff"_s;
const QString panel = word(Color::faded(Qt::white, 0.05));

} // namespace

class tst_UserProfileView : public ViewTest {
    Q_OBJECT

private:
    void open(QSize size = {980, 760}) { ViewTest::open(u"Identity/UserProfileView.qml"_s, size); }

    QQuickItem *text(const QString &text) const { return m_window->text(text); }

    const QStringList m_everything{u"JD"_s, u"John Doe"_s, u"john.doe@example.com"_s, u"Edit Profile"_s, u"PRO PLAN"_s,
        u"Member since 2024"_s, u"CURRENT USAGE"_s, u"GPU Hours"_s, u"Storage"_s, u"API Calls"_s, u"124 / 200"_s,
        u"45GB / 100GB"_s, u"12k / 50k"_s, u"BILLING"_s, u"Visa ending in 4242"_s, u"Manage Subscription"_s,
        u"Next billing date: Dec 15, 2025"_s};

    void showsEverything() const
    {
        QStringList shown = m_window->texts();
        QStringList expected = m_everything;
        shown.sort();
        expected.sort();
        QCOMPARE(shown, expected);
    }

private slots:
    void isTheSameForNobody()
    {
        open();
        QVERIFY(!AuthManager::shared().currentUser());
        showsEverything();
    }

    void isTheSameForASignedInUser()
    {
        m_world->isSignedIn();
        UserProfile user;
        user.email = u"ada@example.org"_s;
        user.name = u"Ada Lovelace"_s;
        AuthManager::shared().setCurrentUser(user);
        open();
        showsEverything();
        user.name = u"Grace Hopper"_s;
        AuthManager::shared().setCurrentUser(user);
        showsEverything();
        QVERIFY(m_world->service.requests().isEmpty());
        QVERIFY(m_world->secrets.reads.isEmpty());
    }

    void doesNothingWhenAButtonIsPressed_data()
    {
        QTest::addColumn<QString>("button");
        QTest::newRow("of the profile") << u"Edit Profile"_s;
        QTest::newRow("of the subscription") << u"Manage Subscription"_s;
    }

    void doesNothingWhenAButtonIsPressed()
    {
        QFETCH(QString, button);
        open();
        const QImage before = m_view->grabWindow();
        m_window->click(m_window->button(button));
        QTest::mouseMove(m_view.get(), QPoint(979, 759));
        showsEverything();
        QVERIFY(eventually([&] { return m_view->grabWindow() == before; }));
        QVERIFY(m_world->urlOpener.opened.isEmpty());
        QVERIFY(m_world->service.requests().isEmpty());
        QCOMPARE(m_world->clock.scheduledCount(), 0);
    }

    void keepsItsLookAtTheTop()
    {
        open();
        auto *initials = text(u"JD"_s);
        auto *avatar = initials->parentItem();
        QCOMPARE(placeOf(avatar), QRectF(40, 40, 80, 80));
        QCOMPARE(colorOf(avatar), word(Color::blue()));
        QCOMPARE(avatar->property("radius").toInt(), 40);
        QCOMPARE(fontOf(initials), u"Inter 32 700"_s);
        QCOMPARE(colorOf(initials), white);
        auto *name = text(u"John Doe"_s);
        QCOMPARE(fontOf(name), u"Inter 28 700"_s);
        QCOMPARE(colorOf(name), white);
        auto *address = text(u"john.doe@example.com"_s);
        QCOMPARE(fontOf(address), u"Inter 16 400"_s);
        QCOMPARE(colorOf(address), gray);
        QCOMPARE(placeOf(address).top(), placeOf(name).bottom() + 8);
        auto *edit = m_window->button(u"Edit Profile"_s);
        QCOMPARE(placeOf(edit).right(), 980 - 40);
        QCOMPARE(colorOf(edit, "fillColor"), word(Theme::bordered()));
    }

    void keepsItsLookAtThePlan()
    {
        open();
        auto *badge = m_window->all(u"Badge"_s).value(0);
        QCOMPARE(placeOf(badge).top(), 40 + 80 + 32);
        QCOMPARE(placeOf(badge).left(), 40);
        QCOMPARE(colorOf(badge), word(Color::yellow()));
        QCOMPARE(badge->property("radius").toInt(), 4);
        QCOMPARE(badge->property("horizontalPadding").toInt(), 8);
        QCOMPARE(badge->property("verticalPadding").toInt(), 4);
        QCOMPARE(fontOf(text(u"PRO PLAN"_s)), u"Inter 11 700"_s);
        QCOMPARE(colorOf(text(u"PRO PLAN"_s)), u"#ff000000"_s);
        QCOMPARE(fontOf(text(u"Member since 2024"_s)), u"Inter 13 400"_s);
        QCOMPARE(colorOf(text(u"Member since 2024"_s)), gray);
    }

    void keepsItsLookAtTheUsage_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("value");
        QTest::addColumn<double>("progress");
        QTest::addColumn<QColor>("color");
        QTest::newRow("hours") << 0 << u"GPU Hours"_s << u"124 / 200"_s << 0.62 << Color::blue();
        QTest::newRow("storage") << 1 << u"Storage"_s << u"45GB / 100GB"_s << 0.45 << Color::purple();
        QTest::newRow("calls") << 2 << u"API Calls"_s << u"12k / 50k"_s << 0.24 << Color::green();
    }

    void keepsItsLookAtTheUsage()
    {
        QFETCH(int, index);
        QFETCH(QString, title);
        QFETCH(QString, value);
        QFETCH(double, progress);
        QFETCH(QColor, color);
        open();
        QCOMPARE(fontOf(text(u"CURRENT USAGE"_s)), u"Inter 12 700"_s);
        QCOMPARE(colorOf(text(u"CURRENT USAGE"_s)), gray);
        const auto *badge = m_window->all(u"Badge"_s).value(0);
        QCOMPARE(placeOf(text(u"CURRENT USAGE"_s)).top(), placeOf(badge).bottom() + 32);

        const auto cards = m_window->all(u"UsageCard"_s);
        QCOMPARE(cards.size(), 3);
        auto *card = cards.at(index);
        auto *heading = m_window->text(title, card);
        auto *figure = m_window->text(value, card);
        QCOMPARE(placeIn(heading, card).topLeft(), QPointF(20, 20));
        QCOMPARE(fontOf(heading), u"Inter 12 400"_s);
        QCOMPARE(colorOf(heading), gray);
        QCOMPARE(fontOf(figure), u"Inter 20 600"_s);
        QCOMPARE(colorOf(figure), white);
        QCOMPARE(placeOf(figure).top(), placeOf(heading).bottom() + 12);
        QCOMPARE(colorOf(card), panel);
        QCOMPARE(card->property("radius").toInt(), 16);
        auto *bar = m_window->all(u"ProgressBar"_s).at(index);
        auto *filled = bar->childItems().value(0);
        QCOMPARE(bar->height(), 6);
        QCOMPARE(bar->width(), card->width() - 40);
        QCOMPARE(filled->width(), progress * bar->width());
        QCOMPARE(filled->height(), 6);
        QCOMPARE(colorOf(filled), word(color));
        QCOMPARE(placeOf(bar).top(), placeOf(figure).bottom() + 12);
        QCOMPARE(placeIn(bar, card).bottom(), card->height() - 20);
        if (index > 0) {
            QCOMPARE(placeOf(card).left(), placeOf(cards.at(index - 1)).right() + 16);
        }
        QCOMPARE(placeOf(cards.last()).right(), 980 - 40);
    }

    void keepsItsLookAtTheBilling()
    {
        open();
        auto *heading = text(u"BILLING"_s);
        QCOMPARE(fontOf(heading), u"Inter 12 700"_s);
        QCOMPARE(colorOf(heading), gray);
        QCOMPARE(placeOf(heading).top(), placeOf(m_window->all(u"UsageCard"_s).value(0)).bottom() + 32);
        auto *icon = m_window->symbol(u"creditcard.fill"_s);
        auto *ground = icon->parentItem();
        QCOMPARE(icon->property("size").toInt(), 24);
        QCOMPARE(colorOf(icon), white);
        QCOMPARE(colorOf(ground), panel);
        QCOMPARE(ground->property("radius").toInt(), 16);
        QCOMPARE(placeOf(ground).width(), 980 - 80);
        QCOMPARE(placeIn(icon, ground).left(), 24);
        auto *visa = text(u"Visa ending in 4242"_s);
        QCOMPARE(fontOf(visa), u"Inter 16 500"_s);
        QCOMPARE(colorOf(visa), white);
        QCOMPARE(placeIn(visa, ground).top(), 24);
        auto *date = text(u"Next billing date: Dec 15, 2025"_s);
        QCOMPARE(fontOf(date), u"Inter 13 400"_s);
        QCOMPARE(colorOf(date), gray);
        QCOMPARE(placeIn(date, ground).bottom(), ground->height() - 24);
        auto *manage = m_window->button(u"Manage Subscription"_s);
        QCOMPARE(placeIn(manage, ground).right(), ground->width() - 24);
        QCOMPARE(colorOf(manage, "fillColor"), word(Theme::bordered()));
    }

    void scrollsWhereTheWindowIsLow()
    {
        open({600, 300});
        auto *heading = text(u"BILLING"_s);
        QVERIFY(placeOf(heading).top() > 300);
        m_window->press(Qt::Key_Tab);
        m_window->press(Qt::Key_End);
        const auto *ground = m_window->symbol(u"creditcard.fill"_s)->parentItem();
        QCOMPARE(placeOf(ground).bottom(), 300 - 40);
    }
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_UserProfileView)
#include "tst_UserProfileView.moc"
