#include "identity/AuthManager.h"
#include "identity/LoginViewModel.h"
#include "support/ViewTest.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>

using namespace Qt::StringLiterals;
using namespace quillmere::testing;

namespace quillmere {

namespace {

const auto gray = u"#ff98989d"_s;
const auto white = u"#ffffffff"_s;
const auto blue = u"#ff0a84ff"_s;
const auto dimmedBlue = u"#660a84ff"_s;
const auto thinOutline = u"#26ffffff 1"_s;
const auto textSecondary = u"#ffa1a1aa"_s;

const auto wrongCodeText = u"Invalid authenticator code. Please try again."_s;

QByteArray qrCode()
{
    QImage image(21, 21, QImage::Format_Mono);
    image.fill(1);
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return "data:image/png;base64," + png.toBase64();
}

QByteArray setupReply(const QByteArray &qrCode, const QByteArray &secret)
{
    return "{\"mode\":\"setup\",\"qrCode\":\"" + qrCode + "\",\"secret\":\"" + secret + "\"}";
}

} // namespace

class tst_LoginView : public ViewTest {
    Q_OBJECT

private slots:
    void init()
    {
        ViewTest::init();
        open(u"Identity/LoginView.qml"_s, {1000, 720});
    }

    // The e-mail step

    void takesAnAddressAtOnce()
    {
        m_window->type(u"Ada"_s);
        QCOMPARE(model().email(), u"Ada"_s);
        QCOMPARE(emailField()->property("text").toString(), u"Ada"_s);
    }

    void takesATextThatAnAssistiveProgramSets()
    {
        emailField()->setProperty("text", u"ada@example.org"_s);
        QCOMPARE(model().email(), u"ada@example.org"_s);
        QVERIFY(submit(u"Continue"_s)->isEnabled());
    }

    void enablesContinueForAValidAddressOnly()
    {
        QVERIFY(!submit(u"Continue"_s)->isEnabled());
        m_window->type(u"a@b"_s);
        QVERIFY(!submit(u"Continue"_s)->isEnabled());
        m_window->type(u".c"_s);
        QVERIFY(submit(u"Continue"_s)->isEnabled());
        m_window->press(Qt::Key_A, Qt::ControlModifier);
        m_window->press(Qt::Key_Delete);
        QVERIFY(!submit(u"Continue"_s)->isEnabled());
    }

    void changesNothingVisibleWhenReturnIsPressedInAnEmptyField()
    {
        const QStringList before = m_window->texts();
        m_window->press(Qt::Key_Return);
        settle();
        QCOMPARE(m_window->texts(), before);
        QVERIFY(!submit(u"Continue"_s)->isEnabled());
        QVERIFY(m_world->service.requests().isEmpty());
    }

    void changesNothingWhenTheDisabledButtonIsClicked()
    {
        m_window->type(u"a@b"_s);
        m_window->click(submit(u"Continue"_s));
        settle();
        QVERIFY(m_world->service.requests().isEmpty());
        QVERIFY(m_window->shows(u"Access your Quillmere account"_s));
    }

    void goesOnByReturnAndByClick_data()
    {
        QTest::addColumn<bool>("byClick");
        QTest::newRow("Return") << false;
        QTest::newRow("click") << true;
    }
    void goesOnByReturnAndByClick()
    {
        QFETCH(bool, byClick);
        onInit().answers(200, R"({"mode":"login"})");
        m_window->type(u"ada@example.org"_s);
        if (byClick) {
            m_window->click(submit(u"Continue"_s));
        } else {
            m_window->press(Qt::Key_Return);
        }
        QVERIFY(eventually([this] { return isAtTheCode(); }));
        QCOMPARE(m_world->service.requests("POST", "/api/auth/user/login-init").size(), 1);
        QVERIFY(!m_window->shows(u"Email"_s));
        // The next thing to type goes into the field of the code.
        m_window->type(u"1"_s);
        QCOMPARE(model().authenticatorCode(), u"1"_s);
        QCOMPARE(model().email(), u"ada@example.org"_s);
    }

    void isBusyButTakesTypingWhileTheServiceIsAsked()
    {
        onInit().hangsBeforeReply();
        m_window->type(u"ada@example.org"_s);
        QQuickItem *button = submit(u"Continue"_s);
        const double height = button->height();
        m_window->press(Qt::Key_Return);
        QVERIFY(eventually([this] { return model().isLoading(); }));
        QVERIFY(!button->isEnabled());
        QCOMPARE(spinnersIn(button), 1);
        QCOMPARE(colorOf(m_window->all(u"Spokes"_s, button).constFirst()), white);
        QVERIFY(m_window->text(u"Continue"_s, button) == nullptr);
        QCOMPARE(colorOf(backgroundOf(button)), dimmedBlue);
        QCOMPARE(button->height(), height);
        m_window->click(button);
        m_window->click(emailField());
        m_window->press(Qt::Key_End);
        m_window->type(u"!"_s);
        QCOMPARE(model().email(), u"ada@example.org!"_s);
        QVERIFY(eventually([this] { return m_world->service.requests().size() == 1; }));
        m_world->service.release();
        QVERIFY(eventually([this] { return isAtTheCode(); }));
        QCOMPARE(m_world->service.requests().size(), 1);
    }

    // The step of the code

    void enablesItsButtonFromSixCharactersUp_data()
    {
        QTest::addColumn<QString>("code");
        QTest::addColumn<bool>("isEnabled");
        QTest::newRow("nothing") << u""_s << false;
        QTest::newRow("five") << u"12345"_s << false;
        QTest::newRow("six") << u"123456"_s << true;
        QTest::newRow("seven") << u"1234567"_s << true;
        QTest::newRow("letters") << u"abc-de"_s << true;
        QTest::newRow("thirty") << QString(30, u'7') << true;
    }
    void enablesItsButtonFromSixCharactersUp()
    {
        QFETCH(QString, code);
        QFETCH(bool, isEnabled);
        goesToTheCode();
        m_window->type(code);
        QCOMPARE(model().authenticatorCode(), code);
        QQuickItem *button = submit(u"Sign In"_s);
        QCOMPARE(button->isEnabled(), isEnabled);
        QCOMPARE(colorOf(backgroundOf(button)), isEnabled ? blue : dimmedBlue);

        onCode().answers(401);
        m_window->click(button);
        settle();
        QCOMPARE(model().isLoading() || m_window->shows(wrongCodeText), isEnabled);
    }

    void sendsWhateverTheFieldHoldsOnReturn_data()
    {
        QTest::addColumn<QString>("code");
        QTest::newRow("nothing") << u""_s;
        QTest::newRow("five") << u"12345"_s;
        QTest::newRow("eight") << u"12345678"_s;
    }
    void sendsWhateverTheFieldHoldsOnReturn()
    {
        QFETCH(QString, code);
        goesToTheCode();
        onCode().answers(401);
        m_window->type(code);
        m_window->press(Qt::Key_Return);
        QVERIFY(eventually([this] { return m_window->shows(wrongCodeText); }));
        const auto requests = m_world->service.requests("POST", "/api/auth/user/totp-login-v2");
        QCOMPARE(requests.size(), 1);
        QVERIFY(requests.constFirst().body.contains("\"code\":\"" + code.toUtf8() + '"'));
        QCOMPARE(codeField()->property("text").toString(), code);
    }

    void isBusyButTakesTypingWhileTheCodeIsChecked()
    {
        goesToTheCode();
        onCode().hangsBeforeReply();
        m_window->type(u"123456"_s);
        QQuickItem *button = submit(u"Sign In"_s);
        m_window->click(button);
        QVERIFY(eventually([this] { return model().isLoading(); }));
        QVERIFY(!button->isEnabled());
        QCOMPARE(spinnersIn(button), 1);
        m_window->click(codeField());
        m_window->press(Qt::Key_End);
        m_window->type(u"7"_s);
        QCOMPARE(model().authenticatorCode(), u"1234567"_s);
    }

    void keepsEverythingOnTheWayBackAndForth()
    {
        goesToTheSetup();
        onCode().answers(401);
        m_window->type(u"123456"_s);
        m_window->press(Qt::Key_Return);
        QVERIFY(eventually([this] { return m_window->shows(wrongCodeText); }));
        m_world->service.forgetRequests();

        m_window->click(m_window->button(u"← Back to Email"_s));
        QVERIFY(eventually([this] { return !isAtTheCode() && emailField(); }));
        QVERIFY(m_window->shows(wrongCodeText));
        QVERIFY(m_window->shows(u"Access your Quillmere account"_s));
        QCOMPARE(emailField()->property("text").toString(), u"ada@example.org"_s);
        QVERIFY(m_world->service.requests().isEmpty());

        // An address that is not valid leaves the line where it is.
        m_window->press(Qt::Key_A, Qt::ControlModifier);
        m_window->type(u"ada"_s);
        m_window->press(Qt::Key_Return);
        settle();
        QVERIFY(m_window->shows(wrongCodeText));
        QVERIFY(m_world->service.requests().isEmpty());

        model().setLoginStep(LoginViewModel::LoginStep::Authenticator);
        QVERIFY(eventually([this] { return isAtTheCode(); }));
        QCOMPARE(codeField()->property("text").toString(), u"123456"_s);
        QVERIFY(m_window->shows(wrongCodeText));
        QVERIFY(m_window->shows(u"S3CRET"_s));
        QCOMPARE(m_window->all(u"QrCode"_s).size(), 1);
    }

    void takesTheFailureAwayWhenItTriesAgain()
    {
        goesToTheCode();
        onCode().answers(401);
        m_window->press(Qt::Key_Return);
        QVERIFY(eventually([this] { return m_window->shows(wrongCodeText); }));
        m_world->service.clearFaults();
        onCode().hangsBeforeReply();
        m_window->press(Qt::Key_Return);
        QVERIFY(eventually([this] { return !m_window->shows(wrongCodeText); }));
        QVERIFY(model().isLoading());
    }

    void showsWhatTheServiceSaysAsItStands()
    {
        const auto said = u"<b>No</b> &amp; <img src='http://127.0.0.1:1/x'>"_s;
        onInit().answers(500, "{\"error\":\"" + said.toUtf8() + "\"}");
        m_window->type(u"ada@example.org"_s);
        m_window->press(Qt::Key_Return);
        QVERIFY(eventually([&] { return m_window->shows(said); }));
        QCOMPARE(m_window->text(said)->property("textFormat").toInt(), int(Qt::PlainText));
    }

    void wrapsALongFailure()
    {
        onInit().answers(500, "{\"error\":\"" + QByteArray("Words without end. ").repeated(20) + "\"}");
        m_window->type(u"ada@example.org"_s);
        m_window->press(Qt::Key_Return);
        QVERIFY(eventually([this] { return model().errorMessage().has_value(); }));
        const auto lines = m_window->all(u"FailureLine"_s);
        QCOMPARE(lines.size(), 1);
        QCOMPARE(placeOf(lines[0]).width(), 280.0);
        QQuickItem *text = m_window->text(*model().errorMessage());
        QVERIFY(placeOf(lines[0]).contains(placeOf(text)));
        QVERIFY(text->property("lineCount").toInt() > 3);
    }

    // Setting an authenticator up

    void showsNoSetUpToAKnownAccount()
    {
        goesToTheCode();
        QVERIFY(!m_window->shows(u"Set up Authenticator"_s));
        QVERIFY(!m_window->shows(u"Or enter manually:"_s));
        QVERIFY(submit(u"Sign In"_s));
        QVERIFY(!m_window->button(u"Verify & Create Account"_s));
    }

    void showsTheSetUpToANewAccount()
    {
        goesToTheSetup();
        QQuickItem *heading = m_window->text(u"Set up Authenticator"_s);
        QCOMPARE(fontOf(heading), u"Inter 12 500"_s);
        QCOMPARE(colorOf(heading), gray);

        const QQuickItem *code = m_window->all(u"QrCode"_s).value(0);
        QCOMPARE(placeOf(code).size(), QSizeF(140, 140));
        QCOMPARE(colorOf(code->parentItem()), white);
        QCOMPARE(code->parentItem()->property("radius").toDouble(), 8.0);
        QCOMPARE(placeOf(code->parentItem()).size(), QSizeF(140, 140));
        QCOMPARE(spinnersIn(code->parentItem()), 0);

        QQuickItem *scan = m_window->text(u"Scan with your authenticator app"_s);
        QCOMPARE(fontOf(scan), u"Inter 11 400"_s);
        QCOMPARE(colorOf(scan), gray);
        QQuickItem *manually = m_window->text(u"Or enter manually:"_s);
        QCOMPARE(fontOf(manually), u"Inter 10 400"_s);
        QCOMPARE(colorOf(manually), u"#b398989d"_s);
        QQuickItem *secret = m_window->text(u"S3CRET"_s);
        QCOMPARE(fontOf(secret), u"Geist Mono 10 400"_s);
        QCOMPARE(colorOf(secret), gray);
        const QQuickItem *ground = secret->parentItem();
        QCOMPARE(colorOf(ground), u"#0dffffff"_s);
        QCOMPARE(ground->property("radius").toDouble(), 4.0);
        QCOMPARE(placeOf(secret), placeOf(ground).adjusted(6, 6, -6, -6));

        QQuickItem *copy = m_window->button(u"Copy the secret"_s);
        QQuickItem *icon = m_window->symbol(u"doc.on.doc"_s, copy);
        QCOMPARE(icon->property("size").toDouble(), 10.0);
        QCOMPARE(colorOf(icon), gray);
        QVERIFY(placeOf(copy).left() >= placeOf(ground).right());

        // From top to bottom, above the field of the code.
        QQuickItem *back = m_window->button(u"← Back to Email"_s);
        const QList<const QQuickItem *> order{
            back, heading, code, scan, manually, ground, m_window->text(u"Authenticator Code"_s)};
        for (qsizetype i = 1; i < order.size(); ++i) {
            QCOMPARE(gapBetween(order[i - 1], order[i]), 8.0);
        }
        QVERIFY(m_window->button(u"Verify & Create Account"_s));
        QVERIFY(m_window->text(u"Verify & Create Account"_s));
        QVERIFY(!m_window->button(u"Sign In"_s));
    }

    void copiesTheSecret()
    {
        goesToTheSetup();
        QGuiApplication::clipboard()->setText(u"before"_s);
        m_window->click(m_window->button(u"Copy the secret"_s));
        QCOMPARE(QGuiApplication::clipboard()->text(), u"S3CRET"_s);
    }

    void showsNoSecretWhereThereIsNone()
    {
        onInit().answers(200, setupReply(qrCode(), ""));
        goesToTheCode();
        QVERIFY(m_window->shows(u"Set up Authenticator"_s));
        QVERIFY(!m_window->shows(u"Or enter manually:"_s));
        QVERIFY(!m_window->button(u"Copy the secret"_s));
    }

    void keepsALongSecretInTheForm()
    {
        onInit().answers(200, setupReply(qrCode(), QByteArray(200, 'W')));
        goesToTheCode();
        QQuickItem *secret = m_window->text(QString(200, u'W'));
        const QRectF form = placeOf(m_window->all(u"AuthenticatorStep"_s).value(0));
        QVERIFY(secret->property("lineCount").toInt() > 1);
        QVERIFY(placeOf(secret).left() >= form.left());
        QVERIFY(placeOf(m_window->button(u"Copy the secret"_s)).right() <= form.right());
    }

    void spinsForeverInPlaceOfAMissingImage_data()
    {
        QTest::addColumn<QByteArray>("reply");
        QTest::newRow("no QR code") << QByteArray(R"({"mode":"setup","secret":"S3CRET"})");
        QTest::newRow("broken base64") << setupReply("data:image/png;base64,AAAA!", "S3CRET");
        QTest::newRow("no image") << setupReply("data:image/png;base64,AAAA", "S3CRET");
    }
    void spinsForeverInPlaceOfAMissingImage()
    {
        QFETCH(QByteArray, reply);
        onInit().answers(200, reply);
        goesToTheCode();
        QVERIFY(m_window->all(u"QrCode"_s).isEmpty());
        const auto spinner = m_window->all(u"Spokes"_s, m_window->all(u"AuthenticatorSetup"_s).value(0));
        QCOMPARE(spinner.size(), 1);
        QCOMPARE(colorOf(spinner[0]), gray);
        const QQuickItem *box = spinner[0]->parentItem();
        QCOMPARE(colorOf(box), white);
        QCOMPARE(placeOf(box).size(), QSizeF(140, 140));
        QCOMPARE(placeOf(spinner[0]).center(), placeOf(box).center());

        onCode().answers(401);
        m_window->press(Qt::Key_Return);
        QVERIFY(eventually([this] { return m_window->shows(wrongCodeText); }));
        QVERIFY(spinner[0]->isVisible());
    }

    // While the browser is open

    void showsThePanelWhileTheBrowserIsOpen()
    {
        QVERIFY(m_window->all(u"BrowserPanel"_s).isEmpty());
        opensTheBrowser();
        QVERIFY(m_window->shows(u"Continue in your browser"_s));
        QCOMPARE(spinnersIn(m_window->all(u"AuthenticatorStep"_s).value(0)), 1);

        m_window->click(m_window->button(u"Open Again"_s));
        QCOMPARE(m_world->urlOpener.opened, QList<QUrl>({page(), page()}));
        QGuiApplication::clipboard()->setText(u"before"_s);
        m_window->click(m_window->button(u"Copy Link"_s));
        QCOMPARE(QGuiApplication::clipboard()->text(), page().toString());

        m_window->click(m_window->button(u"Cancel"_s));
        QVERIFY(eventually([this] { return !model().isLoading(); }));
        QVERIFY(m_window->all(u"BrowserPanel"_s).isEmpty());
        QVERIFY(m_window->all(u"FailureLine"_s).isEmpty());
        QVERIFY(submit(u"Sign In"_s)->isEnabled());
    }

    void saysThatNoBrowserCouldBeOpened()
    {
        m_world->urlOpener.opens = false;
        opensTheBrowser();
        QVERIFY(m_window->shows(u"No browser could be opened. Copy the link and open it in a browser yourself."_s));
        m_world->urlOpener.opens = true;
        m_window->click(m_window->button(u"Open Again"_s));
        QVERIFY(m_window->shows(u"The sign-in page is open there. This window goes on as soon as you are done."_s));
    }

    void takesAPastedAddressAndShowsItToNobody()
    {
        m_world->service.on("GET /v1/auth/me").hangsBeforeReply();
        opensTheBrowser();
        QQuickItem *field = addressField();
        const auto address = u"com.quillmere.studio://callback#access_token=x3p1"_s;
        QGuiApplication::clipboard()->setText(address);
        m_window->click(field);
        m_window->press(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(field->property("text").toString(), address);
        QCOMPARE(field->property("displayText").toString(), QString(address.size(), u'\u2022'));
        auto *accessible = QAccessible::queryAccessibleInterface(field);
        QVERIFY(accessible->state().passwordEdit);
        for (const auto kind : {QAccessible::Name, QAccessible::Description, QAccessible::Value, QAccessible::Help}) {
            QVERIFY(!accessible->text(kind).contains(u"x3p1"_s));
        }
        QCOMPARE(accessible->text(QAccessible::Value), u""_s);
        if (auto *text = accessible->textInterface()) {
            QVERIFY(!text->text(0, text->characterCount()).contains(u"x3p1"_s));
        }
        for (const QString &shown : m_window->texts()) {
            QVERIFY(!shown.contains(u"x3p1"_s));
        }

        // What is copied often brings a blank with it.
        m_window->press(Qt::Key_Space);
        m_window->press(Qt::Key_Home);
        m_window->press(Qt::Key_Space);
        m_window->press(Qt::Key_Return);
        QVERIFY(eventually([] { return AuthManager::shared().isAuthenticated(); }));
        QCOMPARE(m_world->secrets.peek(AuthManager::shared().tokenKey).value_or(u"none"_s), u"x3p1"_s);
        QVERIFY(m_window->all(u"BrowserPanel"_s).isEmpty());
        QCOMPARE(field->property("text").toString(), u""_s);
    }

    void clearsAnAddressThatDoesNotFitAndWaitsOn()
    {
        opensTheBrowser();
        QQuickItem *field = addressField();
        m_window->click(field);
        m_window->type(u"https://a.example/#access_token=x"_s);
        m_window->press(Qt::Key_Return);
        QCOMPARE(field->property("text").toString(), u""_s);
        QVERIFY(BrowserSession::shared().isWaiting());
        QVERIFY(!AuthManager::shared().isAuthenticated());
    }

    void forgetsWhatWasPastedWithThePanel()
    {
        opensTheBrowser();
        QQuickItem *field = addressField();
        m_window->click(field);
        m_window->type(u"secret"_s);
        BrowserSession::shared().cancel();
        QVERIFY(eventually([this] { return m_window->all(u"BrowserPanel"_s).isEmpty(); }));
        QCOMPARE(field->property("text").toString(), u""_s);
    }

    void takesTheKeyboardBackFromThePanel_data()
    {
        QTest::addColumn<bool>("isPasted");
        QTest::newRow("cancelled") << false;
        QTest::newRow("ended by what was pasted") << true;
    }
    void takesTheKeyboardBackFromThePanel()
    {
        QFETCH(bool, isPasted);
        opensTheBrowser();
        if (isPasted) {
            m_window->click(addressField());
            m_window->type(u"com.quillmere.studio://callback"_s);
        } else {
            m_window->button(u"Cancel"_s)->forceActiveFocus(Qt::TabFocusReason);
        }
        m_window->press(Qt::Key_Return);
        QVERIFY(eventually([this] { return m_window->all(u"BrowserPanel"_s).isEmpty(); }));
        QVERIFY(codeField()->hasActiveFocus());
    }

    void leavesTheKeyboardWhereItIsWhenThePanelGoes()
    {
        opensTheBrowser();
        QQuickItem *back = m_window->button(u"← Back to Email"_s);
        back->forceActiveFocus(Qt::TabFocusReason);
        BrowserSession::shared().cancel();
        QVERIFY(eventually([this] { return m_window->all(u"BrowserPanel"_s).isEmpty(); }));
        QVERIFY(back->hasActiveFocus());
    }

    // Composition

    void dividesTheScreenIntoTwoHalves()
    {
        QQuickItem *root = m_view->rootObject();
        QCOMPARE(colorOf(root), u"#ff09090b"_s);
        QCOMPARE(QSizeF(root->implicitWidth(), root->implicitHeight()), QSizeF(800, 600));
        const QQuickItem *brand = root->childItems().constFirst();
        QCOMPARE(colorOf(brand), u"#ff050506"_s);
        QCOMPARE(placeOf(brand), QRectF(0, 0, 500, 720));
        const QRectF form = placeOf(m_window->all(u"EmailStep"_s).value(0));
        QCOMPARE(form.width(), 280.0);
        QCOMPARE(form.center().x(), 750.0);
        QVERIFY(qAbs(form.center().y() - 360) <= 1);

        m_view->resize(801, 600);
        QVERIFY(eventually([&] { return root->width() == 801; }));
        QCOMPARE(placeOf(brand).width() + placeOf(root->childItems().at(1)).width(), 801.0);
    }

    void showsTheBrandInTheLeftColumn()
    {
        const auto images = m_window->all(u"QQuickImage"_s);
        QCOMPARE(images.size(), 1);
        const QQuickItem *logo = images[0];
        QCOMPARE(placeOf(logo).size(), QSizeF(100, 100));
        QCOMPARE(logo->property("status").toInt(), 1); // ready
        const QQuickItem *name = m_window->text(u"Quillmere Studio"_s);
        QCOMPARE(fontOf(name), u"Gabarito 28 700"_s);
        QCOMPARE(colorOf(name), white);
        const QQuickItem *claim = m_window->text(u"Custom LLMs: Finetune, Train, Deploy"_s);
        QCOMPARE(fontOf(claim), u"Inter 14 400"_s);
        QCOMPARE(colorOf(claim), textSecondary);
        QCOMPARE(gapBetween(logo, name), 32.0);
        QCOMPARE(gapBetween(name, claim), 12.0);

        const auto rows = m_window->all(u"FeatureRow"_s);
        QCOMPARE(rows.size(), 3);
        QCOMPARE(gapBetween(claim, rows[0]), 32.0 + 40.0);
        const QStringList icons{u"cpu.fill"_s, u"lock.shield.fill"_s, u"arrow.triangle.2.circlepath"_s};
        const QStringList texts{u"Local & Cloud Training"_s, u"Secure Authentication"_s, u"Seamless Model Sync"_s};
        for (qsizetype i = 0; i < rows.size(); ++i) {
            const QQuickItem *icon = m_window->symbol(icons[i], rows[i]);
            QCOMPARE(icon->property("size").toDouble(), 14.0);
            QCOMPARE(colorOf(icon), u"#ff06b6d4"_s);
            QCOMPARE(placeOf(icon).width(), 24.0);
            const QQuickItem *text = m_window->text(texts[i], rows[i]);
            QCOMPARE(fontOf(text), u"Inter 13 400"_s);
            QCOMPARE(colorOf(text), textSecondary);
            QVERIFY(placeOf(text).left() >= placeOf(icon).right());
            // Leading-aligned, whatever the length of their texts.
            QCOMPARE(placeOf(rows[i]).left(), placeOf(rows[0]).left());
        }
        for (const QQuickItem *item : {logo, name, claim, static_cast<const QQuickItem *>(rows[0]->parentItem())}) {
            QVERIFY(qAbs(placeOf(item).center().x() - 250) <= 1);
        }
    }

    void composesTheEmailStep()
    {
        const QQuickItem *title = m_window->text(u"Sign In"_s);
        QCOMPARE(fontOf(title), u"Inter 24 700"_s);
        QCOMPARE(colorOf(title), white);
        const QQuickItem *subtitle = m_window->text(u"Access your Quillmere account"_s);
        QCOMPARE(fontOf(subtitle), u"Inter 14 400"_s);
        QCOMPARE(colorOf(subtitle), gray);
        const QQuickItem *label = m_window->text(u"Email"_s);
        QCOMPARE(fontOf(label), u"Inter 12 500"_s);
        QCOMPARE(colorOf(label), gray);
        QQuickItem *field = emailField();
        QCOMPARE(fontOf(field), u"Inter 14 400"_s);
        QCOMPARE(colorOf(field), white);
        QVERIFY(m_window->shows(u"ada@example.org"_s));
        const QQuickItem *box = m_window->all(u"LoginField"_s).value(0);
        hasTheBoxOfAField(box, field);
        const QQuickItem *button = submit(u"Continue"_s);
        hasTheLookOfTheButton(button, u"Continue"_s);

        QCOMPARE(gapBetween(subtitle, label), 20.0);
        QCOMPARE(gapBetween(label, box), 8.0);
        QCOMPARE(gapBetween(box, button), 8.0);
    }

    void takesNoTextIntoAStepThatIsNotTheCurrentOne()
    {
        QQuickItem *field = emailField();
        goesToTheCode();
        const QString email = model().email();
        field->setProperty("text", u"eve@example.org"_s);
        QCOMPARE(model().email(), email);
        QCOMPARE(field->property("text").toString(), email);
    }

    void composesTheStepOfTheCode()
    {
        goesToTheCode();
        const QQuickItem *title = m_window->text(u"Enter Code"_s);
        QCOMPARE(fontOf(title), u"Inter 24 700"_s);
        QCOMPARE(colorOf(title), white);
        const QQuickItem *subtitle = m_window->text(u"Enter your authenticator code"_s);
        QCOMPARE(fontOf(subtitle), u"Inter 14 400"_s);
        QCOMPARE(colorOf(subtitle), gray);
        const QQuickItem *label = m_window->text(u"Authenticator Code"_s);
        QCOMPARE(fontOf(label), u"Inter 12 500"_s);
        QCOMPARE(colorOf(label), gray);
        QQuickItem *field = codeField();
        QCOMPARE(fontOf(field), u"Geist Mono 20 500"_s);
        QCOMPARE(colorOf(field), white);
        QVERIFY(m_window->shows(u"123456"_s));
        const QQuickItem *box = m_window->all(u"LoginField"_s).value(0);
        hasTheBoxOfAField(box, field);
        const QQuickItem *button = submit(u"Sign In"_s);
        hasTheLookOfTheButton(button, u"Sign In"_s);
        const QQuickItem *back = m_window->button(u"← Back to Email"_s);
        QCOMPARE(gapBetween(subtitle, back), 20.0);
        QCOMPARE(gapBetween(back, label), 8.0);
        QCOMPARE(gapBetween(label, box), 8.0);
        QCOMPARE(gapBetween(box, button), 8.0);
    }

    void composesTheFailureLine()
    {
        goesToTheCode();
        onCode().answers(401);
        m_window->press(Qt::Key_Return);
        QVERIFY(eventually([this] { return m_window->shows(wrongCodeText); }));
        const QQuickItem *text = m_window->text(wrongCodeText);
        QCOMPARE(fontOf(text), u"Inter 12 400"_s);
        QCOMPARE(colorOf(text), u"#ffff453a"_s);
        const QQuickItem *line = m_window->all(u"FailureLine"_s).value(0);
        QCOMPARE(colorOf(line), u"#1aff453a"_s);
        QCOMPARE(line->property("radius").toDouble(), 6.0);
        QCOMPARE(placeOf(line).width(), 280.0);
        QCOMPARE(placeOf(text), placeOf(line).adjusted(10, 10, -10, -10));
        QCOMPARE(gapBetween(m_window->all(u"AuthenticatorStep"_s).value(0), line), 24.0);
    }

    void isReadOutByAssistivePrograms()
    {
        QVERIFY(m_window->control(QAccessible::Heading, u"Sign In"_s));
        auto *email = QAccessible::queryAccessibleInterface(emailField());
        QVERIFY(email->state().focusable);
        QVERIFY(email->state().focused);
        onInit().answers(500, R"({"error":"Nope"})");
        m_window->type(u"ada@example.org"_s);
        m_window->press(Qt::Key_Return);
        QVERIFY(eventually([this] { return m_window->control(QAccessible::AlertMessage, u"Nope"_s) != nullptr; }));
    }

    void isWalkedThroughByTab()
    {
        goesToTheSetup();
        m_window->type(u"123456"_s);
        QQuickItem *back = m_window->button(u"← Back to Email"_s);
        QVERIFY(codeField()->hasActiveFocus());
        m_window->press(Qt::Key_Tab);
        QVERIFY(m_window->button(u"Verify & Create Account"_s)->hasActiveFocus());
        m_window->press(Qt::Key_Tab);
        QVERIFY(back->hasActiveFocus());
        m_window->press(Qt::Key_Tab);
        QVERIFY(m_window->button(u"Copy the secret"_s)->hasActiveFocus());
        m_window->press(Qt::Key_Backtab);
        m_window->press(Qt::Key_Space);
        QVERIFY(eventually([this] { return !isAtTheCode(); }));
        QVERIFY(emailField()->hasActiveFocus());
    }

private:
    LoginViewModel &model() const { return *m_view->rootObject()->findChild<LoginViewModel *>(); }
    static QUrl page() { return QUrl(u"https://login.quillmere.example/desktop-login?ticket=t"_s); }

    StandIn::Route onInit() { return m_world->service.on("POST /api/auth/user/login-init"); }
    StandIn::Route onCode() { return m_world->service.on("POST /api/auth/user/totp-login-v2"); }

    QQuickItem *emailField() const { return m_window->field(u"Email"_s); }
    QQuickItem *codeField() const { return m_window->field(u"Authenticator Code"_s); }
    // A field with a secret has no name itself, lest it be read out; what is around it has.
    QQuickItem *addressField() const
    {
        const auto *box = m_window->control(QAccessible::Grouping, u"Address that the browser ended at"_s);
        return box->property("field").value<QQuickItem *>();
    }
    QQuickItem *submit(const QString &name) const { return m_window->button(name); }
    // And at it alone: the step before has faded out.
    bool isAtTheCode() const { return m_window->shows(u"Enter Code"_s) && m_window->all(u"EmailStep"_s).isEmpty(); }
    qsizetype spinnersIn(const QQuickItem *item) const { return m_window->all(u"Spokes"_s, item).size(); }

    // With the reply ordered before, or that to a known account.
    void goesToTheCode()
    {
        m_world->service.hasAccount(u"ada@example.org"_s, u"JBSWY3DPEHPK3PXP"_s);
        m_window->type(u"ada@example.org"_s);
        m_window->press(Qt::Key_Return);
        QVERIFY(eventually([this] { return isAtTheCode() && !model().isLoading(); }));
    }

    void goesToTheSetup()
    {
        onInit().answers(200, setupReply(qrCode(), "S3CRET"));
        goesToTheCode();
    }

    void opensTheBrowser()
    {
        goesToTheCode();
        onCode().answers(200, "{\"redirectUrl\":\"" + page().toEncoded() + "\"}");
        m_window->type(u"123456"_s);
        m_window->press(Qt::Key_Return);
        QVERIFY(eventually([this] { return m_window->shows(u"Continue in your browser"_s); }));
    }

    static void hasTheBoxOfAField(const QQuickItem *box, QQuickItem *input)
    {
        QCOMPARE(placeOf(box).width(), 280.0);
        QCOMPARE(placeOf(input), placeOf(box).adjusted(14, 14, -14, -14));
        const QQuickItem *ground = box->childItems().constFirst();
        QCOMPARE(placeOf(ground), placeOf(box));
        QCOMPARE(ground->property("radius").toDouble(), 8.0);
        QCOMPARE(colorOf(ground), u"#0dffffff"_s);
        // Of a field without the focus.
        input->setFocus(false);
        QCOMPARE(strokeOf(ground), thinOutline);
    }

    void hasTheLookOfTheButton(const QQuickItem *button, const QString &text) const
    {
        QCOMPARE(placeOf(button).width(), 280.0);
        QCOMPARE(colorOf(backgroundOf(button)), dimmedBlue);
        QCOMPARE(button->opacity(), 1.0);
        QCOMPARE(backgroundOf(button)->opacity(), 1.0);
        QCOMPARE(backgroundOf(button)->property("radius").toDouble(), 8.0);
        const QQuickItem *label = m_window->text(text, button);
        QCOMPARE(fontOf(label), u"Inter 14 600"_s);
        QCOMPARE(colorOf(label), white);
        QCOMPARE(paddingOf(button).height(), 12.0);
        QVERIFY(qAbs(placeOf(label).center().x() - placeOf(button).center().x()) <= 1);
    }
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_LoginView)
#include "tst_LoginView.moc"
