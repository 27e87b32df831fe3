#include "identity/LoginViewModel.h"

#include "identity/AuthError.h"
#include "identity/AuthManager.h"
#include "identity/DataUrl.h"
#include "identity/LoginRecords.h"
#include "platform/ApplicationId.h"
#include "platform/BrowserSession.h"
#include "platform/Environment.h"
#include "platform/Http.h"
#include "platform/MainQueue.h"
#include "platform/Text.h"
#include "platform/Urls.h"
#include "service/Json.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QPointer>
#include <QScopeGuard>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

QCoro::Task<Result<HttpResponse>> post(QString path, QJsonObject body)
{
    const auto url = parseWebUrl(Environment::current().hosts.loginHost + u"/api/auth/user/"_s + path);
    if (!url) {
        co_return failure(AuthError::networkError);
    }
    HttpRequest request{"POST", *url, jsonHeaders(), {QJsonDocument(body).toJson(QJsonDocument::Compact)}};
    co_return co_await HttpSession::shared().send(std::move(request));
}

Failure failureOf(const QByteArray &body)
{
    if (const auto told = decode<APIErrorMessage>(body, KeyCoding::Plain)) {
        return failure(AuthError::serverError, told->error);
    }
    return failure(AuthError::networkError);
}

// The value of the first item of that name in a query as it stands in a URL. An item without "=" has no value.
std::optional<QString> firstValue(const QString &query, const QString &name)
{
    const QStringList items = query.split(u'&');
    for (const QString &item : items) {
        const qsizetype equals = item.indexOf(u'=');
        if (QUrl::fromPercentEncoding(item.left(equals).toUtf8()) == name) {
            if (equals < 0) {
                return {};
            }
            return QUrl::fromPercentEncoding(item.mid(equals + 1).toUtf8());
        }
    }
    return {};
}

} // namespace

LoginViewModel::~LoginViewModel()
{
    if (m_sessionsInBrowser > 0) {
        BrowserSession::shared().cancel();
    }
}

void LoginViewModel::setLoginStep(LoginStep step)
{
    publish(m_loginStep, step, u"loginStep"_s, &LoginViewModel::loginStepChanged);
}

void LoginViewModel::setEmail(const QString &email)
{
    publish(m_email, email, u"email"_s, &LoginViewModel::emailChanged);
}

void LoginViewModel::setAuthenticatorCode(const QString &code)
{
    publish(m_authenticatorCode, code, u"authenticatorCode"_s, &LoginViewModel::authenticatorCodeChanged);
}

void LoginViewModel::setIsLoading(bool isLoading)
{
    publish(m_isLoading, isLoading, u"isLoading"_s, &LoginViewModel::isLoadingChanged);
}

void LoginViewModel::setErrorMessage(std::optional<QString> message)
{
    publish(m_errorMessage, std::move(message), u"errorMessage"_s, &LoginViewModel::errorMessageChanged);
}

bool LoginViewModel::isEmailValid() const
{
    return m_email.contains(u'@') && m_email.contains(u'.');
}

bool LoginViewModel::isCodeLongEnough() const
{
    return text::characterCount(m_authenticatorCode) >= 6;
}

void LoginViewModel::submitEmail()
{
    if (isEmailValid()) {
        sendEmail();
    }
}

void LoginViewModel::submitCode()
{
    sendCode();
}

QCoro::Task<> LoginViewModel::sendEmail()
{
    const QPointer<LoginViewModel> self(this);
    const auto idle = qScopeGuard([self] {
        if (self) {
            self->setIsLoading(false);
        }
    });
    setIsLoading(true);
    setErrorMessage({});
    const QJsonObject body{{u"email"_s, m_email}};
    const auto response = co_await post(u"login-init"_s, body);
    if (!self) {
        co_return;
    }
    if (!response) {
        co_return handleFailure(response.failure());
    }
    if (response->status == 404) {
        co_return handleFailure(failure(AuthError::userNotFound));
    }
    if (response->status != 200) {
        co_return handleFailure(failureOf(response->body));
    }
    const auto init = decode<LoginInitResponse>(response->body, KeyCoding::Plain);
    if (!init) {
        co_return handleFailure(init.failure());
    }
    const bool isNewUser = init->mode == u"setup"_s;
    publish(m_isNewUser, isNewUser, u"isNewUser"_s, &LoginViewModel::isNewUserChanged);
    if (isNewUser) {
        takeSetup(init->qrCode, init->secret);
    }
    setLoginStep(LoginStep::Authenticator);
}

void LoginViewModel::takeSetup(const std::optional<QString> &qrCode, const std::optional<QString> &secret)
{
    publish(m_totpSecret, secret.value_or(QString()), u"totpSecret"_s, &LoginViewModel::totpSecretChanged);
    if (qrCode && isDataUrl(*qrCode)) {
        publish(m_qrCodeData, contentOfDataUrl(*qrCode), u"qrCodeData"_s, &LoginViewModel::qrCodeDataChanged);
    }
}

QCoro::Task<> LoginViewModel::sendCode()
{
    const QPointer<LoginViewModel> self(this);
    const auto idle = qScopeGuard([self] {
        if (self) {
            self->setIsLoading(false);
        }
    });
    setIsLoading(true);
    setErrorMessage({});
    const QJsonObject body{{u"email"_s, m_email}, {u"code"_s, m_authenticatorCode}, {u"is_desktop"_s, true}};
    const auto response = co_await post(u"totp-login-v2"_s, body);
    if (!self) {
        co_return;
    }
    if (!response) {
        co_return handleFailure(response.failure());
    }
    if (response->status == 401) {
        co_return handleFailure(failure(AuthError::invalidCode));
    }
    if (response->status != 200) {
        co_return handleFailure(failureOf(response->body));
    }
    const auto login = decode<TOTPLoginResponse>(response->body, KeyCoding::Plain);
    if (!login) {
        co_return handleFailure(login.failure());
    }
    co_await handleMagicLink(login->redirectUrl);
}

QCoro::Task<> LoginViewModel::handleMagicLink(QString url)
{
    const QPointer<LoginViewModel> self(this);
    const auto page = parseWebUrl(url);
    if (!page) {
        setErrorMessage(tr("Invalid authentication URL"));
        co_return;
    }
    ++m_sessionsInBrowser;
    const BrowserOutcome outcome = co_await Environment::current().authenticateInBrowser(*page, applicationId);
    if (!self) {
        co_return;
    }
    --m_sessionsInBrowser;
    switch (outcome.kind) {
    case BrowserOutcome::Kind::Callback:
        handleCallback(outcome.callback);
        break;
    case BrowserOutcome::Kind::Failed:
        MainQueue::shared().async(
            this, [this, failure = outcome.failure] { setErrorMessage(tr("Authentication failed: ") + failure); });
        break;
    case BrowserOutcome::Kind::Canceled:
        break;
    }
}

void LoginViewModel::handleCallback(const QUrl &url)
{
    const auto accessTokenName = u"access_token"_s;
    if (url.hasFragment()) {
        const QString fragment = url.fragment(QUrl::FullyEncoded);
        if (const auto accessToken = firstValue(fragment, accessTokenName)) {
            completeLogin(*accessToken, firstValue(fragment, u"refresh_token"_s));
        } else {
            MainQueue::shared().async(this, [this] { setErrorMessage(tr("Failed to extract authentication tokens")); });
        }
    } else if (const auto accessToken = firstValue(url.query(QUrl::FullyEncoded), accessTokenName)) {
        completeLogin(*accessToken, {});
    }
}

void LoginViewModel::completeLogin(const QString &accessToken, const std::optional<QString> &refreshToken)
{
    // The window replaces the login screen, and with it this object, as soon as the session counts as authenticated.
    auto &auth = AuthManager::shared();
    MainQueue::shared().async(&auth, [&auth, accessToken, refreshToken, email = m_email] {
        auth.keychain.save(accessToken, auth.tokenKey);
        if (refreshToken) {
            auth.keychain.save(*refreshToken, auth.refreshTokenKey);
        } else {
            auth.keychain.remove(auth.refreshTokenKey);
        }
        auth.setIsAuthenticated(true);
        auth.setCurrentUser(UserProfile{
            QUuid::createUuid().toString(QUuid::WithoutBraces), email, email.section(u'@', 0, 0), std::nullopt});
        auth.fetchCurrentUser(u"Failed to fetch user profile: "_s);
    });
}

void LoginViewModel::handleFailure(const Failure &failure)
{
    if (failure.kind() == Failure::Kind::SignIn) {
        setErrorMessage(failure.localizedDescription());
    } else {
        setErrorMessage(tr("An unexpected error occurred: ") + failure.localizedDescription());
    }
}

} // namespace quillmere
