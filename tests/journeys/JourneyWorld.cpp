#include "journeys/JourneyWorld.h"

#include "journeys/Desktop.h"
#include "platform/Keyring.h"

#include <QTest>

using namespace Qt::StringLiterals;

JourneyWorld::JourneyWorld(const QString &browser)
    : m_stands(desktop::setBrowser(browser, desktop::dataFolder(), desktop::configFolder())
        && keyring::clears(accessTokenEntry) && keyring::clears(refreshTokenEntry) && service.listen())
{
    service.hasAccount(address, secret);
}

QProcessEnvironment JourneyWorld::environment() const
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QUILLMERE_SERVICE"_s, service.origin());
    return environment;
}

std::unique_ptr<Studio> JourneyWorld::starts(const QStringList &arguments) const
{
    return std::make_unique<Studio>(QStringLiteral(STUDIO_UNDER_TEST), arguments, environment());
}

bool JourneyWorld::isAsked(const QByteArray &method, const QByteArray &path, qsizetype times) const
{
    return QTest::qWaitFor([&] { return service.requests(method, path).size() >= times; }, 20'000);
}

bool JourneyWorld::hasTokens(int count)
{
    return QTest::qWaitFor(
        [&] { return keyring::itemCount(accessTokenEntry) == count && keyring::itemCount(refreshTokenEntry) == count; },
        20'000);
}
