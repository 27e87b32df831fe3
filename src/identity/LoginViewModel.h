#pragma once

#include "platform/Observable.h"
#include "platform/Result.h"

#include <QCoroTask>

#include <QByteArray>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace quillmere {

// Signs a user in, from the e-mail address to stored tokens: the service says whether the account still has to set up its
// authenticator, takes the time-based code, and names a page that the browser opens and that comes back through the program's
// URL scheme with the tokens. The screen shows the published fields, sets the two that are typed and the step, and calls
// submitEmail() and submitCode(). Tokens go to the secret store and are never a field.
class LoginViewModel : public quillmere::Observable {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(quillmere::LoginViewModel::LoginStep loginStep READ loginStep WRITE setLoginStep NOTIFY loginStepChanged)
    Q_PROPERTY(QString email READ email WRITE setEmail NOTIFY emailChanged)
    Q_PROPERTY(
        QString authenticatorCode READ authenticatorCode WRITE setAuthenticatorCode NOTIFY authenticatorCodeChanged)
    Q_PROPERTY(bool isLoading READ isLoading NOTIFY isLoadingChanged)
    Q_PROPERTY(bool hasErrorMessage READ hasErrorMessage NOTIFY errorMessageChanged)
    Q_PROPERTY(QString errorMessage READ shownErrorMessage NOTIFY errorMessageChanged)
    Q_PROPERTY(bool isNewUser READ isNewUser NOTIFY isNewUserChanged)
    Q_PROPERTY(QByteArray qrCodeData READ shownQrCodeData NOTIFY qrCodeDataChanged)
    Q_PROPERTY(QString totpSecret READ totpSecret NOTIFY totpSecretChanged)
    Q_PROPERTY(bool isEmailValid READ isEmailValid NOTIFY emailChanged)
    // Whether the code has six characters or more, as a reader counts them.
    Q_PROPERTY(bool isCodeLongEnough READ isCodeLongEnough NOTIFY authenticatorCodeChanged)

public:
    enum class LoginStep { Email, Authenticator };
    Q_ENUM(LoginStep)

    using Observable::Observable;
    // A sign-in that still waits in the browser is canceled.
    ~LoginViewModel() override;

    LoginStep loginStep() const { return m_loginStep; }
    void setLoginStep(LoginStep step);
    QString email() const { return m_email; }
    void setEmail(const QString &email);
    QString authenticatorCode() const { return m_authenticatorCode; }
    void setAuthenticatorCode(const QString &code);
    bool isLoading() const { return m_isLoading; }
    const std::optional<QString> &errorMessage() const { return m_errorMessage; }
    bool isNewUser() const { return m_isNewUser; }
    const std::optional<QByteArray> &qrCodeData() const { return m_qrCodeData; }
    QString totpSecret() const { return m_totpSecret; }

    // Not empty, with an "@" and a "."; nothing more is asked of it.
    bool isEmailValid() const;
    bool isCodeLongEnough() const;

    // Sends the address as typed; does nothing for one that is not valid.
    Q_INVOKABLE void submitEmail();
    // Sends the code as typed, whatever it is, and stays busy until the browser is done.
    Q_INVOKABLE void submitCode();

    // Opens the page in the browser and returns when that is over, one way or another.
    QCoro::Task<> handleMagicLink(QString url);
    // Takes the tokens out of the URL that came back. The fragment counts if there is one, and a missing access token there is
    // said to the user; otherwise the query counts, whose refresh token is ignored and whose missing access token is not said.
    void handleCallback(const QUrl &url);

signals:
    void loginStepChanged();
    void emailChanged();
    void authenticatorCodeChanged();
    void isLoadingChanged();
    void errorMessageChanged();
    void isNewUserChanged();
    void qrCodeDataChanged();
    void totpSecretChanged();

private:
    QCoro::Task<> sendEmail();
    QCoro::Task<> sendCode();
    void completeLogin(const QString &accessToken, const std::optional<QString> &refreshToken);
    void takeSetup(const std::optional<QString> &qrCode, const std::optional<QString> &secret);
    void handleFailure(const Failure &failure);

    bool hasErrorMessage() const { return m_errorMessage.has_value(); }
    QString shownErrorMessage() const { return m_errorMessage.value_or(QString()); }
    QByteArray shownQrCodeData() const { return m_qrCodeData.value_or(QByteArray()); }

    void setIsLoading(bool isLoading);
    void setErrorMessage(std::optional<QString> message);

    LoginStep m_loginStep = LoginStep::Email;
    QString m_email;
    QString m_authenticatorCode;
    bool m_isLoading = false;
    std::optional<QString> m_errorMessage;
    bool m_isNewUser = false;
    std::optional<QByteArray> m_qrCodeData;
    QString m_totpSecret;
    int m_sessionsInBrowser = 0; // a later one cancels the one before it, which ends a little after the later began
};

} // namespace quillmere
