#include "identity/AuthManager.h"
#include "identity/LoginViewModel.h"
#include "service/APIError.h"
#include "support/CapturedOutput.h"
#include "support/TestEnvironment.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QUuid>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using quillmere::testing::eventually;
using quillmere::testing::settle;

namespace quillmere {

namespace {

using LoginStep = LoginViewModel::LoginStep;

const auto networkErrorText = u"Network error. Please check your connection."_s;
const auto unexpectedText = u"An unexpected error occurred: "_s;
const auto noTokensText = u"Failed to extract authentication tokens"_s;
const auto invalidUrlText = u"Invalid authentication URL"_s;
const auto page = u"https://login.quillmere.example/desktop-login?ticket=t"_s;

const QByteArray setupReply = R"({"mode":"setup","qrCode":"data:image/png;base64,UVI=","secret":"S3CRET"})";
const QByteArray loginReply = R"({"mode":"login"})";

} // namespace

class tst_LoginViewModel : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_world = std::make_unique<testing::TestEnvironment>();
        m_model = std::make_unique<LoginViewModel>();
    }
    void cleanup()
    {
        m_model.reset();
        m_world.reset();
    }

    void startsAtTheEmailWithNothingTyped()
    {
        QCOMPARE(m_model->loginStep(), LoginStep::Email);
        QCOMPARE(m_model->email(), u""_s);
        QCOMPARE(m_model->authenticatorCode(), u""_s);
        QVERIFY(!m_model->isLoading());
        QVERIFY(!m_model->errorMessage());
        QVERIFY(!m_model->isNewUser());
        QVERIFY(!m_model->qrCodeData());
        QCOMPARE(m_model->totpSecret(), u""_s);
        QVERIFY(!m_model->isEmailValid());
    }

    // The e-mail address

    void takesAnAddressWithAtSignAndDotForValid_data()
    {
        QTest::addColumn<QString>("email");
        QTest::addColumn<bool>("isValid");
        QTest::newRow("nothing") << u""_s << false;
        QTest::newRow("an at sign without a dot") << u"a@b"_s << false;
        QTest::newRow("a dot without an at sign") << u"a.b"_s << false;
        QTest::newRow("both and nothing else") << u"@."_s << true;
        QTest::newRow("dot before at sign") << u"a.b@c"_s << true;
        QTest::newRow("an ordinary one") << u"ada@example.org"_s << true;
        QTest::newRow("blanks around it") << u" a@b.c "_s << true;
    }
    void takesAnAddressWithAtSignAndDotForValid()
    {
        QFETCH(QString, email);
        QFETCH(bool, isValid);
        m_model->setEmail(email);
        QCOMPARE(m_model->isEmailValid(), isValid);
    }

    void isSilentAboutAnInvalidAddress_data()
    {
        QTest::addColumn<QString>("email");
        QTest::newRow("nothing") << u""_s;
        QTest::newRow("no dot") << u"a@b"_s;
        QTest::newRow("no at sign") << u"a.b"_s;
    }
    void isSilentAboutAnInvalidAddress()
    {
        QFETCH(QString, email);
        failsAtTheEmail();
        const qsizetype before = m_world->service.requests().size();
        m_model->setEmail(email);

        QStringList writes;
        connect(m_model.get(), &LoginViewModel::willChange, this, [&](const QString &field) { writes.append(field); });
        m_model->submitEmail();
        settle();
        QCOMPARE(writes, QStringList());
        QVERIFY(!m_model->isLoading());
        QCOMPARE(m_model->errorMessage().value_or(u"none"_s), u"Nope"_s);
        QCOMPARE(m_world->service.requests().size(), before);
    }

    void sendsTheAddressAsTyped()
    {
        // A stored token is no business of the login host.
        m_world->isSignedIn();
        onInit().answers(200, loginReply);
        const auto typed = u" Ada \"q\" ü@Example.ORG "_s;
        submitEmail(typed);

        const auto requests = m_world->service.requests();
        QCOMPARE(requests.size(), 1);
        const auto &request = requests.constFirst();
        QCOMPARE(request.method, QByteArray("POST"));
        QCOMPARE(request.target, QByteArray("/api/auth/user/login-init"));
        QCOMPARE(request.header("Content-Type"), QByteArray("application/json"));
        QCOMPARE(request.header("User-Agent"), QByteArray("Quillmere-Studio/1.0"));
        QVERIFY(!request.hasHeader("Authorization"));
        QCOMPARE(bodyOf(request), (QJsonObject{{u"email"_s, typed}}));
        QCOMPARE(m_model->email(), typed);
    }

    void takesTheSetUpOfANewAccount()
    {
        QStringList writes;
        connect(m_model.get(), &LoginViewModel::willChange, this, [&](const QString &field) { writes.append(field); });
        onInit().answers(200, setupReply);
        submitEmail();

        QVERIFY(m_model->isNewUser());
        QCOMPARE(m_model->totpSecret(), u"S3CRET"_s);
        QCOMPARE(m_model->qrCodeData().value_or("none"), QByteArray("QR"));
        QCOMPARE(m_model->loginStep(), LoginStep::Authenticator);
        QVERIFY(!m_model->errorMessage());
        QCOMPARE(writes,
            QStringList({u"email"_s, u"isLoading"_s, u"errorMessage"_s, u"isNewUser"_s, u"totpSecret"_s,
                u"qrCodeData"_s, u"loginStep"_s, u"isLoading"_s}));
    }

    void setsANewAccountUpWithoutAQrCode()
    {
        onInit().answers(200, R"({"mode":"setup","secret":"S3CRET"})");
        submitEmail();
        QVERIFY(m_model->isNewUser());
        QCOMPARE(m_model->totpSecret(), u"S3CRET"_s);
        QVERIFY(!m_model->qrCodeData());
        QCOMPARE(m_model->loginStep(), LoginStep::Authenticator);
    }

    void emptiesTheSecretThatASetUpDoesNotTell()
    {
        onInit(1).answers(200, setupReply);
        submitEmail();
        onInit(1).answers(200, R"({"mode":"setup"})");
        submitEmail();
        QCOMPARE(m_model->totpSecret(), u""_s);
        QCOMPARE(m_model->qrCodeData().value_or("none"), QByteArray("QR"));
    }

    void takesEveryOtherModeForAKnownAccount_data()
    {
        QTest::addColumn<QString>("mode");
        QTest::newRow("login") << u"login"_s;
        QTest::newRow("one not heard of") << u"passkey"_s;
        QTest::newRow("other case") << u"Setup"_s;
        QTest::newRow("nothing") << u""_s;
    }
    void takesEveryOtherModeForAKnownAccount()
    {
        QFETCH(QString, mode);
        onInit(1).answers(200, setupReply);
        submitEmail();
        m_model->setLoginStep(LoginStep::Email);
        onInit(1).answers(
            200, "{\"mode\":\"" + mode.toUtf8() + "\",\"qrCode\":\"data:image/png;base64,TkVX\",\"secret\":\"OTHER\"}");
        submitEmail();
        QVERIFY(!m_model->isNewUser());
        QCOMPARE(m_model->totpSecret(), u"S3CRET"_s);
        QCOMPARE(m_model->qrCodeData().value_or("none"), QByteArray("QR"));
        QCOMPARE(m_model->loginStep(), LoginStep::Authenticator);
    }

    void takesTheImageOfADataUrl_data()
    {
        QTest::addColumn<QByteArray>("qrCode");
        QTest::addColumn<QByteArray>("kept"); // "none" for no data; what was there before is "QR"
        QTest::newRow("base64 of a PNG") << QByteArray("data:image/png;base64,TkVX") << QByteArray("NEW");
        QTest::newRow("no media type") << QByteArray("data:,TkVX") << QByteArray("NEW");
        QTest::newRow("scheme in capitals") << QByteArray("DATA:image/png;base64,TkVX") << QByteArray("NEW");
        QTest::newRow("plus and slash") << QByteArray("data:;base64,+/+/") << QByteArray("\xfb\xff\xbf");
        QTest::newRow("nothing behind the comma") << QByteArray("data:image/png;base64,") << QByteArray("");
        QTest::newRow("a broken tail") << QByteArray("data:image/png;base64,TkVX!") << QByteArray("none");
        QTest::newRow("a character that is not base64")
            << QByteArray("data:image/png;base64,TkV-") << QByteArray("none");
        QTest::newRow("padding forgotten") << QByteArray("data:image/png;base64,UVI") << QByteArray("none");
        QTest::newRow("a second comma") << QByteArray("data:image/png;base64,TkVX,TkVX") << QByteArray("none");
        QTest::newRow("no comma") << QByteArray("data:image/png;base64") << QByteArray("QR");
        QTest::newRow("another scheme") << QByteArray("https://a.example/,TkVX") << QByteArray("QR");
        QTest::newRow("no URL") << QByteArray("data:image png,TkVX") << QByteArray("QR");
        QTest::newRow("nothing") << QByteArray("") << QByteArray("QR");
    }
    void takesTheImageOfADataUrl()
    {
        QFETCH(QByteArray, qrCode);
        QFETCH(QByteArray, kept);
        onInit(1).answers(200, setupReply);
        submitEmail();
        onInit(1).answers(200, "{\"mode\":\"setup\",\"qrCode\":\"" + qrCode + "\",\"secret\":\"S\"}");
        submitEmail();
        QCOMPARE(m_model->qrCodeData().value_or("none"), kept);
        QVERIFY(!m_model->errorMessage());
        QCOMPARE(m_model->loginStep(), LoginStep::Authenticator);
        QVERIFY(m_model->isNewUser());
    }

    void saysWhyTheEmailDidNotGoThrough_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QString>("text");
        const QByteArray nope = R"({"error":"Nope"})";
        QTest::newRow("404") << 404 << nope
                             << u"No account found with this email. Please sign up at https://signup.example"_s;
        QTest::newRow("500 with an error") << 500 << nope << u"Nope"_s;
        QTest::newRow("500 with HTML") << 500 << QByteArray("<html>down</html>") << networkErrorText;
        QTest::newRow("500 with other JSON") << 500 << QByteArray(R"({"detail":"Nope"})") << networkErrorText;
        QTest::newRow("401 with an error") << 401 << nope << u"Nope"_s;
        QTest::newRow("201 with a good reply") << 201 << setupReply << networkErrorText;
        QTest::newRow("204 without a body") << 204 << QByteArray() << networkErrorText;
        QTest::newRow("302") << 302 << QByteArray("{}") << networkErrorText;
        QTest::newRow("an empty error") << 400 << QByteArray(R"({"error":""})") << u""_s;
    }
    void saysWhyTheEmailDidNotGoThrough()
    {
        QFETCH(int, status);
        QFETCH(QByteArray, body);
        QFETCH(QString, text);
        m_world->environment.hosts.signUpHost = u"https://signup.example"_s;
        onInit().answers(status, body);
        submitEmail(u"ada@example.org"_s);
        QVERIFY(m_model->errorMessage());
        QCOMPARE(m_model->errorMessage().value_or(u"none"_s), text);
        QCOMPARE(m_model->loginStep(), LoginStep::Email);
        QCOMPARE(m_model->email(), u"ada@example.org"_s);
        QVERIFY(!m_model->isNewUser());
    }

    void keepsWhatWasTypedWhenTheReplyCannotBeRead_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("no JSON") << QByteArray("OK");
        QTest::newRow("no mode") << QByteArray(R"({"secret":"S"})");
        QTest::newRow("mode of another type") << QByteArray(R"({"mode":1})");
        QTest::newRow("secret of another type") << QByteArray(R"({"mode":"setup","secret":1})");
    }
    void keepsWhatWasTypedWhenTheReplyCannotBeRead()
    {
        QFETCH(QByteArray, body);
        onInit().answers(200, body);
        m_model->setAuthenticatorCode(u"12"_s);
        submitEmail(u"ada@example.org"_s);
        QVERIFY(saysSomethingUnexpected());
        QCOMPARE(m_model->loginStep(), LoginStep::Email);
        QCOMPARE(m_model->email(), u"ada@example.org"_s);
        QCOMPARE(m_model->authenticatorCode(), u"12"_s);
        QVERIFY(!m_model->isNewUser());
    }

    void saysThatTheConnectionFailed()
    {
        onInit().closesWithoutReply();
        submitEmail();
        QVERIFY(saysSomethingUnexpected());
        QCOMPARE(m_model->loginStep(), LoginStep::Email);
    }

    void waitsSixtySecondsForAReply()
    {
        onInit().hangsBeforeReply();
        m_model->setEmail(u"ada@example.org"_s);
        m_model->submitEmail();
        QVERIFY(eventually([this] { return m_world->service.requests().size() == 1; }));
        m_world->clock.advance(59'999ms);
        settle();
        QVERIFY(m_model->isLoading());
        m_world->clock.advance(1ms);
        QVERIFY(eventually([this] { return !m_model->isLoading(); }));
        QVERIFY(saysSomethingUnexpected());
    }

    void saysNetworkErrorForAHostThatIsNone()
    {
        m_world->environment.hosts.loginHost = u"not a host"_s;
        submitEmail();
        QCOMPARE(m_model->errorMessage().value_or(u"none"_s), networkErrorText);
        submitCode(u"123456"_s);
        QCOMPARE(m_model->errorMessage().value_or(u"none"_s), networkErrorText);
    }

    void forgetsTheFailureAsSoonAsItTriesAgain()
    {
        failsAtTheEmail();
        m_world->service.clearFaults();
        onInit().hangsBeforeReply();
        m_model->submitEmail();
        QVERIFY(!m_model->errorMessage());
        QVERIFY(m_model->isLoading());
        m_model->submitCode();
        QVERIFY(m_model->isLoading());
    }

    void keepsEverythingButTheStepOnTheWayBack()
    {
        onInit(1).answers(200, setupReply);
        submitEmail();
        onCode().answers(401);
        submitCode(u"123456"_s);
        m_model->setLoginStep(LoginStep::Email);
        QCOMPARE(m_model->authenticatorCode(), u"123456"_s);
        QVERIFY(m_model->errorMessage());
        QVERIFY(m_model->isNewUser());
        QCOMPARE(m_model->qrCodeData().value_or("none"), QByteArray("QR"));
        QCOMPARE(m_model->totpSecret(), u"S3CRET"_s);

        onInit(1).answers(200, R"({"mode":"setup","secret":"NEXT"})");
        submitEmail();
        QCOMPARE(m_model->qrCodeData().value_or("none"), QByteArray("QR"));
        QCOMPARE(m_model->totpSecret(), u"NEXT"_s);
    }

    void doesNotStopASecondSubmit()
    {
        onInit().hangsBeforeReply();
        m_model->setEmail(u"ada@example.org"_s);
        m_model->submitEmail();
        m_model->submitEmail();
        QVERIFY(eventually([this] { return m_world->service.requests("POST", initPath).size() == 2; }));
        m_world->service.release();
        QVERIFY(eventually([this] { return m_model->loginStep() == LoginStep::Authenticator; }));
    }

    // The code

    void sendsAnyCodeAsTyped_data()
    {
        QTest::addColumn<QString>("code");
        QTest::newRow("nothing") << u""_s;
        QTest::newRow("one digit") << u"1"_s;
        QTest::newRow("five digits") << u"12345"_s;
        QTest::newRow("six digits") << u"123456"_s;
        QTest::newRow("leading zeros") << u"000000"_s;
        QTest::newRow("twenty digits") << u"12345678901234567890"_s;
        QTest::newRow("no digits") << u" ab\"ü "_s;
    }
    void sendsAnyCodeAsTyped()
    {
        QFETCH(QString, code);
        m_world->isSignedIn();
        onCode().answers(401);
        m_model->setEmail(u" Ada@Example.ORG"_s);
        submitCode(code);

        const auto requests = m_world->service.requests();
        QCOMPARE(requests.size(), 1);
        const auto &request = requests.constFirst();
        QCOMPARE(request.method, QByteArray("POST"));
        QCOMPARE(request.target, QByteArray("/api/auth/user/totp-login-v2"));
        QCOMPARE(request.header("Content-Type"), QByteArray("application/json"));
        QCOMPARE(request.header("User-Agent"), QByteArray("Quillmere-Studio/1.0"));
        QVERIFY(!request.hasHeader("Authorization"));
        QCOMPARE(bodyOf(request),
            (QJsonObject{{u"email"_s, u" Ada@Example.ORG"_s}, {u"code"_s, code}, {u"is_desktop"_s, true}}));
    }

    void countsTheCharactersThatAReaderSees_data()
    {
        QTest::addColumn<QString>("code");
        QTest::addColumn<bool>("isLongEnough");
        QTest::newRow("five") << u"12345"_s << false;
        QTest::newRow("six") << u"123456"_s << true;
        QTest::newRow("seven") << u"1234567"_s << true;
        QTest::newRow("six letters") << u"abcdef"_s << true;
        QTest::newRow("three beyond the basic plane") << u"\U0001F600\U0001F600\U0001F600"_s << false;
    }
    void countsTheCharactersThatAReaderSees()
    {
        QFETCH(QString, code);
        QFETCH(bool, isLongEnough);
        m_model->setAuthenticatorCode(code);
        QCOMPARE(m_model->isCodeLongEnough(), isLongEnough);
    }

    void saysWhyTheCodeDidNotGoThrough_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QString>("text");
        const QByteArray nope = R"({"error":"Nope"})";
        const QByteArray good = "{\"redirectUrl\":\"https://a.example/\"}";
        QTest::newRow("401") << 401 << nope << u"Invalid authenticator code. Please try again."_s;
        QTest::newRow("404 with an error") << 404 << nope << u"Nope"_s;
        QTest::newRow("404 without one") << 404 << QByteArray() << networkErrorText;
        QTest::newRow("500 with an error") << 500 << nope << u"Nope"_s;
        QTest::newRow("500 with HTML") << 500 << QByteArray("<html>down</html>") << networkErrorText;
        QTest::newRow("201 with a good reply") << 201 << good << networkErrorText;
    }
    void saysWhyTheCodeDidNotGoThrough()
    {
        QFETCH(int, status);
        QFETCH(QByteArray, body);
        QFETCH(QString, text);
        const QString token = m_world->isSignedIn();
        m_model->setLoginStep(LoginStep::Authenticator);
        onCode().answers(status, body);
        submitCode(u"123456"_s);
        QVERIFY(m_model->errorMessage());
        QCOMPARE(m_model->errorMessage().value_or(u"none"_s), text);
        QCOMPARE(m_model->authenticatorCode(), u"123456"_s);
        QCOMPARE(m_model->loginStep(), LoginStep::Authenticator);
        QVERIFY(m_world->urlOpener.opened.isEmpty());
        // A wrong code is nobody's logout.
        QVERIFY(auth().isAuthenticated());
        QCOMPARE(m_world->secrets.peek(auth().tokenKey).value_or(u"none"_s), token);
    }

    void saysThatTheReplyToTheCodeCannotBeRead()
    {
        onCode().answers(200, "{}");
        submitCode(u"123456"_s);
        QVERIFY(saysSomethingUnexpected());
        QCOMPARE(m_model->authenticatorCode(), u"123456"_s);
    }

    // The browser

    void opensThePageAndStaysBusyUntilTheBrowserIsDone()
    {
        opensTheBrowser();
        QCOMPARE(m_world->urlOpener.opened, QList<QUrl>{QUrl(page)});
        settle();
        QVERIFY(m_model->isLoading());
        QVERIFY(!m_model->errorMessage());

        BrowserSession::shared().deliver(u"com.quillmere.studio://callback"_s);
        QVERIFY(eventually([this] { return !m_model->isLoading(); }));
    }

    void waitsForTheSchemeOfTheProgram()
    {
        QUrl asked;
        QString scheme;
        m_world->environment.authenticateInBrowser = [&](QUrl url,
                                                         QString callbackScheme) -> QCoro::Task<BrowserOutcome> {
            asked = url;
            scheme = callbackScheme;
            co_return BrowserOutcome{BrowserOutcome::Kind::Canceled, {}, {}};
        };
        redirectsTo(page);
        submitCode(u"123456"_s);
        QCOMPARE(asked, QUrl(page));
        QCOMPARE(scheme, u"com.quillmere.studio"_s);
    }

    void saysNothingOfACanceledSignIn()
    {
        opensTheBrowser();
        BrowserSession::shared().cancel();
        QVERIFY(eventually([this] { return !m_model->isLoading(); }));
        settle();
        QVERIFY(!m_model->errorMessage());
        QVERIFY(!auth().isAuthenticated());
        QCOMPARE(m_model->loginStep(), LoginStep::Authenticator);
    }

    void leavesAMessageThatStandsWhenCanceled()
    {
        m_model->handleMagicLink(page);
        m_model->handleCallback(QUrl(u"com.quillmere.studio://callback#foo=1"_s));
        settle();
        BrowserSession::shared().cancel();
        settle();
        QCOMPARE(m_model->errorMessage().value_or(u"none"_s), noTokensText);
    }

    void saysWhyTheBrowserFailed()
    {
        m_world->environment.authenticateInBrowser = [](QUrl, QString) -> QCoro::Task<BrowserOutcome> {
            co_return BrowserOutcome{BrowserOutcome::Kind::Failed, {}, u"no screen"_s};
        };
        redirectsTo(page);
        submitCode(u"123456"_s);
        QVERIFY(eventually([this] { return m_model->errorMessage().has_value(); }));
        QCOMPARE(m_model->errorMessage().value_or(u"none"_s), u"Authentication failed: no screen"_s);
        QVERIFY(!auth().isAuthenticated());
    }

    void refusesAnAddressThatIsNoUrl_data()
    {
        QTest::addColumn<QString>("url");
        QTest::newRow("words") << u"not a url"_s;
        QTest::newRow("nothing") << u""_s;
        QTest::newRow("a blank in it") << u"https://a.example/ b"_s;
        QTest::newRow("no scheme") << u"a.example/b"_s;
        QTest::newRow("a file") << u"file:///etc/passwd"_s;
    }
    void refusesAnAddressThatIsNoUrl()
    {
        QFETCH(QString, url);
        redirectsTo(url);
        submitCode(u"123456"_s);
        QVERIFY(m_model->errorMessage());
        QCOMPARE(m_model->errorMessage().value_or(u"none"_s), invalidUrlText);
        QVERIFY(m_world->urlOpener.opened.isEmpty());
        QVERIFY(!BrowserSession::shared().isWaiting());
    }

    void cancelsTheBrowserWhenItGoes()
    {
        opensTheBrowser();
        m_model.reset();
        QVERIFY(!BrowserSession::shared().isWaiting());
    }

    void cancelsTheLaterBrowserSessionWhenItGoes()
    {
        opensTheBrowser();
        // Return in the code's field sends once more although the first session still waits.
        m_model->submitCode();
        QVERIFY(eventually([this] { return m_world->urlOpener.opened.size() == 2; }));
        settle();
        QVERIFY(BrowserSession::shared().isWaiting());
        m_model.reset();
        QVERIFY(!BrowserSession::shared().isWaiting());
    }

    void leavesTheSessionsOfOthersAloneWhenItGoes()
    {
        LoginViewModel other;
        other.handleMagicLink(page);
        m_model.reset();
        QVERIFY(BrowserSession::shared().isWaiting());
    }

    void mayGoWhileTheServiceIsAsked()
    {
        onInit().hangsBeforeReply();
        onCode().hangsBeforeReply();
        m_model->setEmail(u"ada@example.org"_s);
        m_model->submitEmail();
        m_model->submitCode();
        QVERIFY(eventually([this] { return m_world->service.requests().size() == 2; }));
        m_model.reset();
        QSignalSpy answered(&m_world->service, &StandIn::replySent);
        m_world->service.release();
        QVERIFY(eventually([&] { return answered.size() == 2; }));
        settle();
        QVERIFY(!auth().isAuthenticated());
        QVERIFY(m_world->urlOpener.opened.isEmpty());
    }

    // What comes back

    void takesTheTokensOutOfTheCallback_data()
    {
        QTest::addColumn<QString>("rest");
        QTest::addColumn<QString>("accessToken");  // "none" where nobody gets signed in
        QTest::addColumn<QString>("refreshToken"); // stored afterwards; "old" stood there before
        QTest::addColumn<QString>("message");
        const auto none = u"none"_s;
        const auto old = u"old"_s;
        const auto row = [](const char *name, const QString &rest, const QString &access, const QString &refresh,
                             const QString &message) { QTest::newRow(name) << rest << access << refresh << message; };
        row("fragment with access token", u"#access_token=a"_s, u"a"_s, none, none);
        row("fragment with both", u"#access_token=a&refresh_token=b"_s, u"a"_s, u"b"_s, none);
        row("fragment with both the other way round", u"#refresh_token=b&x=1&access_token=a"_s, u"a"_s, u"b"_s, none);
        row("fragment with other things", u"#foo=1"_s, none, old, noTokensText);
        row("fragment with the refresh token alone", u"#refresh_token=b"_s, none, old, noTokensText);
        row("empty fragment", u"#"_s, none, old, noTokensText);
        row("fragment with a name without a value", u"#access_token"_s, none, old, noTokensText);
        row("fragment with another case", u"#Access_Token=a"_s, none, old, noTokensText);
        row("query with both", u"?access_token=a&refresh_token=b"_s, u"a"_s, none, none);
        row("query with other things", u"?foo=1"_s, none, old, none);
        row("query with a name without a value", u"?access_token"_s, none, old, none);
        row("neither", u""_s, none, old, none);
        row("fragment that hides the query", u"?access_token=a#x=1"_s, none, old, noTokensText);
        row("first of two", u"#access_token=a&access_token=z"_s, u"a"_s, none, none);
        row("escaped characters", u"#access_token=a%20b%2Bc+d%3D%26&refresh_token=%C3%BC"_s, u"a b+c+d=&"_s, u"ü"_s,
            none);
        row("escaped characters in the query", u"?access_token=a%20b+c"_s, u"a b+c"_s, none, none);
        row("escaped name", u"#access%5Ftoken=a"_s, u"a"_s, none, none);
        row("an equals sign in the value", u"#access_token=a=="_s, u"a=="_s, none, none);
    }
    void takesTheTokensOutOfTheCallback()
    {
        QFETCH(QString, rest);
        QFETCH(QString, accessToken);
        QFETCH(QString, refreshToken);
        QFETCH(QString, message);
        const auto none = u"none"_s;
        m_world->service.on("GET /v1/auth/me").answers(500);
        m_world->secrets.save(u"old"_s, auth().refreshTokenKey);
        testing::CapturedOutput output;

        opensTheBrowser();
        QVERIFY(BrowserSession::shared().deliver(u"com.quillmere.studio://callback"_s + rest));
        QVERIFY(eventually([this] { return !m_model->isLoading(); }));
        settle();
        QCOMPARE(auth().isAuthenticated(), accessToken != none);
        QCOMPARE(m_world->secrets.peek(auth().tokenKey).value_or(none), accessToken);
        QCOMPARE(m_world->secrets.peek(auth().refreshTokenKey).value_or(none), refreshToken);
        QCOMPARE(m_model->errorMessage().value_or(none), message);
        if (accessToken != none) {
            QVERIFY(eventually([&] { return output.lines().size() == 1; }));
        }
    }

    void signsInWithTheTokensFirstAndTheUserLast()
    {
        m_world->service.on("GET /v1/auth/me").hangsBeforeReply();
        QStringList order;
        connect(&auth(), &AuthManager::willChange, this, [&](const QString &field) {
            order.append(field);
            QCOMPARE(m_world->secrets.peek(auth().tokenKey).value_or(u"none"_s), u"a"_s);
            QCOMPARE(m_world->secrets.peek(auth().refreshTokenKey).value_or(u"none"_s), u"b"_s);
            QVERIFY(!auth().currentUser());
        });
        m_model->setEmail(u"ada@example.org"_s);
        callsBack(u"#access_token=a&refresh_token=b"_s);
        QCOMPARE(order, QStringList({u"isAuthenticated"_s, u"currentUser"_s}));
        QVERIFY(auth().isAuthenticated());
    }

    void showsAProvisionalProfileUntilTheServiceAnswers()
    {
        const QString token = m_world->service.signsIn(u"ada@example.org"_s);
        m_world->service.hasUser(
            "{\"id\":\"u1\",\"email\":\"ada@example.org\",\"name\":\"Ada L\",\"avatar_url\":\"https://a.example/\"}");
        m_world->service.on("GET /v1/auth/me").hangsBeforeReply();
        m_model->setEmail(u"ada@example.org"_s);
        callsBack(u"#access_token="_s + token);

        QVERIFY(auth().currentUser());
        const UserProfile provisional = *auth().currentUser();
        QVERIFY(!QUuid(provisional.id).isNull());
        QCOMPARE(QUuid(provisional.id).version(), QUuid::Random);
        QCOMPARE(provisional.email, u"ada@example.org"_s);
        QCOMPARE(provisional.name.value_or(u"none"_s), u"ada"_s);
        QVERIFY(!provisional.avatarUrl);

        QVERIFY(eventually([this] { return m_world->service.requests("GET", "/v1/auth/me").size() == 1; }));
        QCOMPARE(m_world->service.requests().constLast().header("Authorization"), "Bearer " + token.toUtf8());
        m_world->service.release();
        QVERIFY(eventually([&] { return auth().currentUser()->id != provisional.id; }));
        QCOMPARE(auth().currentUser()->id, u"u1"_s);
        QCOMPARE(auth().currentUser()->name.value_or(u"none"_s), u"Ada L"_s);
        QCOMPARE(auth().currentUser()->avatarUrl.value_or(u"none"_s), u"https://a.example/"_s);
    }

    void givesEachProvisionalProfileAnIdOfItsOwn()
    {
        m_world->service.on("GET /v1/auth/me").hangsBeforeReply();
        callsBack(u"#access_token=a"_s);
        const QString first = auth().currentUser()->id;
        callsBack(u"#access_token=a"_s);
        QVERIFY(auth().currentUser()->id != first);
    }

    void onlyPrintsThatTheProfileCouldNotBeFetched()
    {
        m_world->service.on("GET /v1/auth/me").answers(500, R"({"detail":"Down"})");
        testing::CapturedOutput output;
        m_model->setEmail(u"ada@example.org"_s);
        callsBack(u"#access_token=a"_s);
        QVERIFY(eventually([&] { return !output.lines().isEmpty(); }));
        settle();
        QCOMPARE(output.lines(), QStringList{u"Failed to fetch user profile: Down"_s});
        QVERIFY(auth().isAuthenticated());
        QCOMPARE(auth().currentUser()->name.value_or(u"none"_s), u"ada"_s);
        QVERIFY(!m_model->errorMessage());
    }

    void signsInWholeAlthoughTheScreenGoesAtOnce()
    {
        m_world->service.on("GET /v1/auth/me").hangsBeforeReply();
        m_model->setEmail(u"ada@example.org"_s);
        connect(&auth(), &AuthManager::isAuthenticatedChanged, this, [this] { m_model.reset(); });
        redirectsTo(page);
        m_model->submitCode();
        QVERIFY(eventually([] { return BrowserSession::shared().isWaiting(); }));
        BrowserSession::shared().deliver(u"com.quillmere.studio://callback#access_token=a"_s);
        QVERIFY(eventually([this] { return m_model == nullptr; }));
        settle();
        QCOMPARE(auth().currentUser()->email, u"ada@example.org"_s);
        QVERIFY(eventually([this] { return m_world->service.requests("GET", "/v1/auth/me").size() == 1; }));
    }

    void goesAllTheWayWithTheServicesOwnCode()
    {
        m_world->service.hasAccount(u"ada@example.org"_s, u"JBSWY3DPEHPK3PXP"_s);
        submitEmail();
        QCOMPARE(m_model->loginStep(), LoginStep::Authenticator);
        QVERIFY(!m_model->isNewUser());
        m_model->setAuthenticatorCode(StandIn::totp(u"JBSWY3DPEHPK3PXP"_s, m_world->clock.now()));
        m_model->submitCode();
        QVERIFY(eventually([] { return BrowserSession::shared().isWaiting(); }));
        QCOMPARE(m_world->urlOpener.opened.size(), 1);
        QVERIFY(m_world->urlOpener.opened.constFirst().toString().startsWith(
            m_world->service.origin() + u"/desktop-login?ticket="_s));
        const QString token = m_world->service.signsIn(u"ada@example.org"_s);
        m_world->service.hasUser(R"({"id":"u1","email":"ada@example.org"})");
        BrowserSession::shared().deliver(u"com.quillmere.studio://callback#access_token="_s + token);
        QVERIFY(eventually([this] { return m_world->service.requests("GET", "/v1/auth/me").size() == 1; }));
        QVERIFY(auth().isAuthenticated());
        QVERIFY(eventually([] { return auth().currentUser()->id == u"u1"_s; }));
    }

private:
    static constexpr auto initPath = "/api/auth/user/login-init";

    static AuthManager &auth() { return AuthManager::shared(); }

    StandIn::Route onInit(int times = StandIn::Always)
    {
        return m_world->service.on("POST /api/auth/user/login-init", times);
    }
    StandIn::Route onCode() { return m_world->service.on("POST /api/auth/user/totp-login-v2"); }

    static QJsonObject bodyOf(const StandIn::Request &request)
    {
        return QJsonDocument::fromJson(request.body).object();
    }

    void submitEmail(const QString &email = u"ada@example.org"_s)
    {
        m_model->setEmail(email);
        m_model->submitEmail();
        QVERIFY(eventually([this] { return !m_model->isLoading(); }));
    }

    void submitCode(const QString &code)
    {
        m_model->setAuthenticatorCode(code);
        m_model->submitCode();
        QVERIFY(eventually([this] { return !m_model->isLoading(); }));
    }

    void failsAtTheEmail()
    {
        onInit().answers(500, R"({"error":"Nope"})");
        submitEmail();
        QCOMPARE(m_model->errorMessage().value_or(u"none"_s), u"Nope"_s);
    }

    bool saysSomethingUnexpected() const
    {
        const QString message = m_model->errorMessage().value_or(QString());
        return message.startsWith(unexpectedText) && message.size() > unexpectedText.size();
    }

    void redirectsTo(const QString &url)
    {
        onCode().answers(200, QJsonDocument(QJsonObject{{u"redirectUrl"_s, url}}).toJson());
    }

    // The code was right, and the browser is open.
    void opensTheBrowser()
    {
        redirectsTo(page);
        m_model->setLoginStep(LoginStep::Authenticator);
        m_model->setAuthenticatorCode(u"123456"_s);
        m_model->submitCode();
        QVERIFY(eventually([] { return BrowserSession::shared().isWaiting(); }));
    }

    void callsBack(const QString &rest)
    {
        m_model->handleCallback(QUrl(u"com.quillmere.studio://callback"_s + rest));
        settle();
    }

    std::unique_ptr<testing::TestEnvironment> m_world;
    std::unique_ptr<LoginViewModel> m_model;
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_LoginViewModel)
#include "tst_LoginViewModel.moc"
