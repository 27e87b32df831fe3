// What comes back from the browser while a sign-in waits for it: any text that the desktop, or a user's paste, brings.
#include "Fuzz.h"

#include "identity/AuthManager.h"
#include "identity/LoginViewModel.h"
#include "platform/BrowserSession.h"
#include "support/MemorySecretStore.h"
#include "support/PlatformEnvironment.h"

#include <cstdio>

using namespace Qt::StringLiterals;

namespace quillmere::fuzz {

namespace {

// A world without a service, so that nothing goes over the wire.
struct World {
    World()
    {
        environment.clock = std::make_unique<testing::FakeClock>();
        environment.secrets = std::make_unique<testing::MemorySecretStore>();
        environment.urlOpener = std::make_unique<testing::RecordingUrlOpener>();
        environment.authenticateInBrowser = [](QUrl url, QString scheme) {
            return BrowserSession::shared().authenticate(std::move(url), std::move(scheme));
        };
    }

    std::optional<QString> stored(const QString &key) const
    {
        return static_cast<testing::MemorySecretStore &>(*environment.secrets).peek(key);
    }

    Environment environment;
};

std::optional<QString> valueOf(const QByteArray &items, const QByteArray &name)
{
    for (const QByteArray &item : items.split('&')) {
        const qsizetype equals = item.indexOf('=');
        if (QByteArray::fromPercentEncoding(equals < 0 ? item : item.left(equals)) == name) {
            return equals < 0 ? std::nullopt
                              : std::optional(QString::fromUtf8(QByteArray::fromPercentEncoding(item.mid(equals + 1))));
        }
    }
    return {};
}

} // namespace

void feed(const QByteArray &input)
{
    // The profile that cannot be fetched is said each time.
    static const bool isQuiet = std::freopen("/dev/null", "w", stdout) != nullptr;
    HOLDS(isQuiet);

    const QString text = QString::fromUtf8(input);
    const World world;
    auto &browser = BrowserSession::shared();
    auto &auth = AuthManager::shared();
    LoginViewModel model;
    model.handleMagicLink(u"https://login.example/page"_s);
    HOLDS(browser.isWaiting());

    const bool isTaken = browser.deliver(text);
    HOLDS(browser.isWaiting() == !isTaken);
    testing::settle();
    HOLDS(!isTaken || !browser.deliver(text));
    testing::settle();

    // Read off the text as it came, without a URL in between.
    const QByteArray told = text.toUtf8();
    const qsizetype mark = told.indexOf('#');
    const qsizetype question = mark >= 0 ? -1 : told.indexOf('?');
    const QByteArray items = mark >= 0 ? told.mid(mark + 1) : question >= 0 ? told.mid(question + 1) : QByteArray();
    const auto access = isTaken ? valueOf(items, "access_token") : std::nullopt;
    const auto refresh = access && mark >= 0 ? valueOf(items, "refresh_token") : std::nullopt;
    HOLDS(!isTaken || told.toLower().startsWith("com.quillmere.studio:"));
    HOLDS(world.stored(auth.tokenKey) == access);
    HOLDS(world.stored(auth.refreshTokenKey) == refresh);
    HOLDS(auth.isAuthenticated() == access.has_value());
    HOLDS(model.errorMessage().has_value() == (isTaken && mark >= 0 && !access));
}

} // namespace quillmere::fuzz
