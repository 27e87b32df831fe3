#include "identity/AuthError.h"
#include "support/PlatformEnvironment.h"

using namespace Qt::StringLiterals;

namespace quillmere {

class tst_AuthError : public QObject {
    Q_OBJECT

private slots:
    void hasATextForTheUser_data()
    {
        QTest::addColumn<int>("error");
        QTest::addColumn<QString>("text");
        const auto row = [](const char *name, AuthError error, const QString &text) {
            QTest::newRow(name) << int(error) << text;
        };
        row("serverError", AuthError::serverError, u"what the service says"_s);
        row("invalidCredentials", AuthError::invalidCredentials, u"Invalid email or password"_s);
        row("invalidCode", AuthError::invalidCode, u"Invalid authenticator code. Please try again."_s);
        row("userNotFound", AuthError::userNotFound,
            u"No account found with this email. Please sign up at https://signup.example"_s);
        row("networkError", AuthError::networkError, u"Network error. Please check your connection."_s);
    }
    void hasATextForTheUser()
    {
        QFETCH(int, error);
        QFETCH(QString, text);
        testing::PlatformEnvironment world;
        world.environment.hosts.signUpHost = u"https://signup.example"_s;
        QCOMPARE(errorDescription(AuthError(error), u"what the service says"_s), text);

        const Failure failed = failure(AuthError(error), u"what the service says"_s);
        QCOMPARE(failed.kind(), Failure::Kind::SignIn);
        QCOMPARE(failed.code(), error);
        QCOMPARE(failed.localizedDescription(), text);
    }
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_AuthError)
#include "tst_AuthError.moc"
