#include "platform/ExternalLinks.h"
#include "support/CapturedOutput.h"
#include "support/TestEnvironment.h"
#include "workspace/settings/AboutLinks.h"
#include "workspace/settings/SettingsViewModel.h"

#include <QMetaProperty>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmere;
using namespace quillmere::testing;

namespace {

const QByteArray grace = "{\"id\": \"u1\", \"email\": \"grace@example.org\", \"name\": \"Grace Hopper\"}";

UserProfile ada()
{
    return {.id = u"u0"_s, .email = u"ada@example.org"_s, .name = u"Ada"_s, .avatarUrl = {}};
}

} // namespace

class tst_SettingsViewModel : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        world = std::make_unique<TestEnvironment>();
        model = std::make_unique<SettingsViewModel>();
    }
    void cleanup()
    {
        model.reset();
        world.reset();
    }

    void startsWithoutUserAndSubscription()
    {
        QVERIFY(!model->user());
        QVERIFY(!model->hasUser());
        QVERIFY(!model->subscription());
        QVERIFY(!model->isLoading());
        QCOMPARE(model->maskedToken(), u"Not authenticated"_s);
        QCOMPARE(&model->api, &QuillmereAPIClient::shared());
        QCOMPARE(&model->authManager, &AuthManager::shared());
    }

    void announcesEachWriteOfALoad()
    {
        world->isSignedIn();
        AuthManager::shared().setCurrentUser(ada());
        world->service.on("GET /v1/auth/me").answers(200, grace);
        QStringList announced;
        connect(model.get(), &Observable::willChange, this, [&](const QString &field) { announced += field; });
        model->loadUserData();
        QCOMPARE(announced, QStringList({u"isLoading"_s, u"user"_s}));
        QVERIFY(eventually([&] { return !model->isLoading(); }));
        QCOMPARE(announced, QStringList({u"isLoading"_s, u"user"_s, u"user"_s, u"isLoading"_s}));
    }

    void namesTheFourSections()
    {
        using Section = SettingsVocabulary::SettingsSection;
        const QList<Section> sections{Section::Account, Section::Subscription, Section::Preferences, Section::About};
        QStringList words;
        for (const Section section : sections) {
            QCOMPARE(model->sectionTitle(section), SettingsVocabulary::rawValue(section));
            words += SettingsVocabulary::rawValue(section) + u" "_s + model->sectionIcon(section);
        }
        QCOMPARE(words,
            QStringList({u"Account person.circle"_s, u"Subscription creditcard"_s, u"Preferences gearshape"_s,
                u"About info.circle"_s}));
    }

    // The record of the user

    void showsTheKnownUserAtOnceAndThenTheServicesRecord()
    {
        world->isSignedIn();
        world->service.hasUser(grace);
        model->authManager.setCurrentUser(ada());
        model->loadUserData();
        QVERIFY(model->isLoading());
        QCOMPARE(model->userName(), u"Ada"_s);

        QVERIFY(eventually([&] { return !model->isLoading(); }));
        QCOMPARE(model->user()->id, u"u1"_s);
        QCOMPARE(model->userName(), u"Grace Hopper"_s);
        QCOMPARE(model->userEmail(), u"grace@example.org"_s);
        QCOMPARE(model->authManager.currentUser()->name, u"Grace Hopper"_s);
        QCOMPARE(world->service.requests("GET", "/v1/auth/me").size(), 1);
    }

    void asksNothingSignedOutAndKeepsLoading()
    {
        model->loadUserData();
        settle();
        QVERIFY(world->service.requests().isEmpty());
        QVERIFY(model->isLoading());
        QVERIFY(!model->hasUser());
    }

    void showsAKnownUserEvenSignedOut()
    {
        model->authManager.setCurrentUser(ada());
        model->loadUserData();
        QCOMPARE(model->userName(), u"Ada"_s);
        QVERIFY(model->isLoading());
    }

    void keepsTheLastUserAndPrintsOneLineWhenTheServiceFails_data()
    {
        QTest::addColumn<QString>("failure");
        for (const char *failure : {"500", "503 with detail", "bad JSON", "missing field", "cut connection"}) {
            QTest::newRow(failure) << QString::fromLatin1(failure);
        }
    }
    void keepsTheLastUserAndPrintsOneLineWhenTheServiceFails()
    {
        QFETCH(QString, failure);
        const auto route = world->service.on("GET /v1/auth/me");
        if (failure == u"500"_s) {
            route.answers(500);
        } else if (failure == u"503 with detail"_s) {
            route.answers(503, "{\"detail\": \"<b>Back soon</b>\"}");
        } else if (failure == u"bad JSON"_s) {
            route.givesBadJson();
        } else if (failure == u"missing field"_s) {
            route.omitsField("email");
        } else {
            route.cutsConnection(3);
        }
        world->isSignedIn();
        model->authManager.setCurrentUser(ada());
        CapturedOutput output;
        model->loadUserData();
        QVERIFY(eventually([&] { return !model->isLoading(); }));
        const QStringList lines = output.lines();
        QCOMPARE(lines.size(), 1);
        QVERIFY2(lines.first().startsWith(u"Failed to fetch fresh user data: "_s), qPrintable(lines.first()));
        QVERIFY(lines.first().size() > u"Failed to fetch fresh user data: "_s.size());
        QCOMPARE(model->userName(), u"Ada"_s);
        QCOMPARE(model->authManager.currentUser()->name, u"Ada"_s);
        QVERIFY(model->authManager.isAuthenticated());
    }

    void loadsAgainAfterAFailure()
    {
        world->isSignedIn();
        world->service.hasUser(grace);
        world->service.on("GET /v1/auth/me", 1).answers(500);
        CapturedOutput output;
        model->loadUserData();
        QVERIFY(eventually([&] { return !model->isLoading(); }));
        model->loadUserData();
        QVERIFY(eventually([&] { return !model->isLoading(); }));
        QCOMPARE(model->userName(), u"Grace Hopper"_s);
        QCOMPARE(output.lines().size(), 1);
    }

    void endsTheSessionAndKeepsItsUserOnA401()
    {
        world->isSignedIn();
        world->service.revokesTokens();
        model->authManager.setCurrentUser(ada());
        CapturedOutput output;
        model->loadUserData();
        QVERIFY(eventually([&] { return !model->isLoading(); }));
        QVERIFY(!model->authManager.isAuthenticated());
        QVERIFY(!model->authManager.currentUser());
        QCOMPARE(model->userName(), u"Ada"_s);
        QCOMPARE(output.lines().size(), 1);
    }

    void tellsTheSessionTheUserEvenWhenTheScreenIsGone()
    {
        world->isSignedIn();
        world->service.hasUser(grace);
        AuthManager &session = model->authManager;
        model->loadUserData();
        model.reset();
        QVERIFY(eventually([&] { return session.hasCurrentUser(); }));
        QCOMPARE(session.currentUser()->name, u"Grace Hopper"_s);
    }

    void printsAFailureEvenWhenTheScreenIsGone()
    {
        world->isSignedIn();
        world->service.on("GET /v1/auth/me").answers(500);
        CapturedOutput output;
        model->loadUserData();
        model.reset();
        QVERIFY(eventually([&] { return !output.lines().isEmpty(); }));
        QCOMPARE(output.lines().size(), 1);
    }

    void doesNotGiveAUserToASessionThatHasEndedMeanwhile()
    {
        world->isSignedIn();
        world->service.hasUser(grace);
        world->service.on("GET /v1/auth/me").hangsBeforeReply();
        model->loadUserData();
        QVERIFY(eventually([&] { return !world->service.requests("GET", "/v1/auth/me").isEmpty(); }));
        model->logout();
        world->service.release();
        QVERIFY(eventually([&] { return !model->isLoading(); }));
        QVERIFY(!model->authManager.hasCurrentUser());
    }

    void namesTheUser_data()
    {
        QTest::addColumn<std::optional<QString>>("name");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("initial");
        using Name = std::optional<QString>;
        QTest::newRow("small letter") << Name(u"ada"_s) << u"ada"_s << u"A"_s;
        QTest::newRow("no name") << Name() << u"User"_s << u"G"_s;
        QTest::newRow("empty name") << Name(QString()) << QString() << QString();
        QTest::newRow("markup") << Name(u"<b>x</b>"_s) << u"<b>x</b>"_s << u"<"_s;
        QTest::newRow("several code points") << Name(u"👩‍👩‍👧‍👧 family"_s)
                                             << u"👩‍👩‍👧‍👧 family"_s << u"👩‍👩‍👧‍👧"_s;
        QTest::newRow("accent") << Name(u"e\u0301mile"_s) << u"e\u0301mile"_s << u"E\u0301"_s;
        QTest::newRow("right to left") << Name(u"عائشة"_s) << u"عائشة"_s << u"ع"_s;
        QTest::newRow("long") << Name(QString(10'000, u'y')) << QString(10'000, u'y') << u"Y"_s;
    }
    void namesTheUser()
    {
        QFETCH(std::optional<QString>, name);
        QFETCH(QString, title);
        QFETCH(QString, initial);
        QSignalSpy changed(model.get(), &SettingsViewModel::userChanged);
        model->authManager.setCurrentUser(UserProfile{u"u1"_s, u"grace@example.org"_s, name, {}});
        model->loadUserData();
        QCOMPARE(changed.size(), 1);
        QVERIFY(model->hasUser());
        QCOMPARE(model->userName(), title);
        QCOMPARE(model->userInitial(), initial);
        QCOMPARE(model->userEmail(), u"grace@example.org"_s);
    }

    // The token

    void masksTheToken_data()
    {
        QTest::addColumn<std::optional<QString>>("token");
        QTest::addColumn<QString>("masked");
        using Token = std::optional<QString>;
        const QString none = u"Not authenticated"_s;
        const QString family = u"👩‍👩‍👧‍👧"_s;
        QTest::newRow("none") << Token() << none;
        QTest::newRow("empty") << Token(QString()) << none;
        QTest::newRow("one character") << Token(u"a"_s) << none;
        QTest::newRow("eight characters") << Token(u"12345678"_s) << none;
        QTest::newRow("nine characters") << Token(u"123456789"_s) << u"1234••••••••6789"_s;
        QTest::newRow("ten characters") << Token(u"abcdefghij"_s) << u"abcd••••••••ghij"_s;
        QTest::newRow("long") << Token(u"head"_s + QString(10'000, u'x') + u"tail"_s) << u"head••••••••tail"_s;
        QTest::newRow("eight characters of several code points") << Token(family.repeated(8)) << none;
        QTest::newRow("nine characters of several code points")
            << Token(family.repeated(9)) << family.repeated(4) + u"••••••••"_s + family.repeated(4);
    }
    void masksTheToken()
    {
        QFETCH(std::optional<QString>, token);
        QFETCH(QString, masked);
        if (token) {
            world->secrets.save(*token, u"quillmere_auth_token"_s);
        }
        world->secrets.save(u"the refresh token"_s, u"quillmere_refresh_token"_s);
        model->updateMaskedToken();
        settle();
        QCOMPARE(model->maskedToken(), masked);
        QCOMPARE(world->secrets.reads, QStringList{u"quillmere_auth_token"_s});
    }

    void waitsForTheStoreWithoutAToken()
    {
        world->secrets.save(u"123456789"_s, u"quillmere_auth_token"_s);
        world->secrets.hold();
        model->updateMaskedToken();
        settle();
        QCOMPARE(model->maskedToken(), u"Not authenticated"_s);
        QSignalSpy changed(model.get(), &SettingsViewModel::maskedTokenChanged);
        world->secrets.answer();
        QVERIFY(eventually([&] { return changed.size() == 1; }));
        QCOMPARE(model->maskedToken(), u"1234••••••••6789"_s);
    }

    void readsTheStoreEachTime()
    {
        world->secrets.save(u"123456789"_s, u"quillmere_auth_token"_s);
        model->updateMaskedToken();
        settle();
        world->secrets.save(u"abcdefghi"_s, u"quillmere_auth_token"_s);
        model->updateMaskedToken();
        settle();
        QCOMPARE(model->maskedToken(), u"abcd••••••••fghi"_s);
        model->logout();
        model->updateMaskedToken();
        settle();
        QCOMPARE(model->maskedToken(), u"Not authenticated"_s);
    }

    void takesAnAnswerOfTheStoreThatComesTooLate()
    {
        world->secrets.save(u"123456789"_s, u"quillmere_auth_token"_s);
        world->secrets.hold();
        model->updateMaskedToken();
        model.reset();
        world->secrets.answer();
        settle();
        QVERIFY(!model);
    }

    void showsTheTokenInNoProperty()
    {
        const QString token = world->isSignedIn();
        model->loadUserData();
        model->updateMaskedToken();
        QVERIFY(eventually([&] { return !model->isLoading(); }));
        settle();
        QVERIFY(model->maskedToken() != u"Not authenticated"_s);
        for (int i = 0; i < model->metaObject()->propertyCount(); ++i) {
            const QMetaProperty property = model->metaObject()->property(i);
            QVERIFY2(!property.read(model.get()).toString().contains(token.mid(4, 3)), property.name());
        }
    }

    // The subscription

    void showsThePlan_data()
    {
        QTest::addColumn<QString>("plan");
        QTest::addColumn<QString>("badge");
        QTest::addColumn<QString>("color");
        QTest::addColumn<int>("limit");
        QTest::newRow("enterprise") << u"enterprise"_s << u"ENTERPRISE"_s << u"#a855f7"_s << 100;
        QTest::newRow("pro") << u"pro"_s << u"PRO"_s << u"#3b82f6"_s << 20;
        QTest::newRow("free") << u"free"_s << u"FREE"_s << u"#a1a1aa"_s << 3;
        QTest::newRow("any other") << u"team-2"_s << u"TEAM-2"_s << u"#a1a1aa"_s << 3;
        QTest::newRow("other letters are another plan") << u"Pro"_s << u"PRO"_s << u"#a1a1aa"_s << 3;
        QTest::newRow("empty") << QString() << QString() << u"#a1a1aa"_s << 3;
    }
    void showsThePlan()
    {
        QFETCH(QString, plan);
        QSignalSpy changed(model.get(), &SettingsViewModel::subscriptionChanged);
        model->setSubscription(SubscriptionInfo{true, plan, {}, {u"One"_s, u"<b>Two</b>"_s}});
        QCOMPARE(changed.size(), 1);
        QTEST(model->planBadge(), "badge");
        QTEST(model->planColor().name(), "color");
        QTEST(model->modelLimit(), "limit");
        QVERIFY(model->isSubscriptionActive());
        QCOMPARE(model->features(), QStringList({u"One"_s, u"<b>Two</b>"_s}));
    }

    void isFreeWithoutASubscription()
    {
        QCOMPARE(model->planBadge(), u"FREE"_s);
        QCOMPARE(model->planColor().name(), u"#a1a1aa"_s);
        QCOMPARE(model->modelLimit(), 3);
        QVERIFY(!model->isSubscriptionActive());
        QCOMPARE(model->features(), QStringList({u"Local fine-tuning"_s, u"3 models max"_s, u"Community support"_s}));
    }

    void isNotActiveWhenTheSubscriptionIsNot()
    {
        model->setSubscription(SubscriptionInfo{false, u"pro"_s, {}, {}});
        QVERIFY(!model->isSubscriptionActive());
        QVERIFY(model->features().isEmpty());
    }

    void getsNoSubscriptionFromTheService()
    {
        world->isSignedIn();
        model->loadUserData();
        QVERIFY(eventually([&] { return !model->isLoading(); }));
        QVERIFY(!model->subscription());
    }

    // The way out

    void logsOutAtOnce()
    {
        world->isSignedIn();
        world->secrets.save(u"the refresh token"_s, u"quillmere_refresh_token"_s);
        model->authManager.setCurrentUser(ada());
        model->logout();
        QVERIFY(!world->secrets.peek(u"quillmere_auth_token"_s));
        QVERIFY(!world->secrets.peek(u"quillmere_refresh_token"_s));
        QVERIFY(!model->authManager.isAuthenticated());
        QVERIFY(!model->authManager.currentUser());
        settle();
        QVERIFY(world->service.requests().isEmpty());
    }

    void opensTheLinksOfAboutInTheDesktopsPrograms()
    {
        world->environment.hosts.webSite = u"https://site.example"_s;
        world->environment.hosts.supportAddress = u"help@site.example"_s;
        ExternalLinks::open(AboutLinks::documentation());
        ExternalLinks::open(AboutLinks::privacyPolicy());
        ExternalLinks::open(AboutLinks::termsOfService());
        ExternalLinks::open(AboutLinks::contactSupport());
        QCOMPARE(world->urlOpener.opened,
            QList<QUrl>({QUrl(u"https://site.example/docs"_s), QUrl(u"https://site.example/privacy"_s),
                QUrl(u"https://site.example/terms"_s), QUrl(u"mailto:help@site.example"_s)}));
    }

    void ignoresATextThatIsNoUrl_data()
    {
        QTest::addColumn<QString>("url");
        QTest::newRow("empty") << QString();
        QTest::newRow("blanks") << u"not a url"_s;
        QTest::newRow("bad escape") << u"https://site.example/%zz"_s;
        QTest::newRow("bad port") << u"https://site.example:port/"_s;
    }
    void ignoresATextThatIsNoUrl()
    {
        QFETCH(QString, url);
        CapturedOutput output;
        ExternalLinks::open(url);
        QVERIFY(world->urlOpener.opened.isEmpty());
        QVERIFY(output.lines().isEmpty());
    }

private:
    std::unique_ptr<TestEnvironment> world;
    std::unique_ptr<SettingsViewModel> model;
};

QTEST_MAIN(tst_SettingsViewModel)
#include "tst_SettingsViewModel.moc"
