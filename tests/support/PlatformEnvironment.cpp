#include "support/PlatformEnvironment.h"

#include "platform/SystemRandom.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace quillmere::testing {

namespace {

template <typename Base, typename Made> Made &keep(std::unique_ptr<Base> &place, std::unique_ptr<Made> made)
{
    Made &reference = *made;
    place = std::move(made);
    return reference;
}

} // namespace

PlatformEnvironment::PlatformEnvironment()
    : clock(keep(environment.clock, std::make_unique<FakeClock>())),
      secrets(keep(environment.secrets, std::make_unique<MemorySecretStore>())),
      urlOpener(keep(environment.urlOpener, std::make_unique<RecordingUrlOpener>())),
      filePicker(keep(environment.filePicker, std::make_unique<FakeFilePicker>()))
{
    if (!service.listen()) {
        qFatal("The stand-in service has no port: %s", qPrintable(service.errorString()));
    }
    service.usesClock([this] { return clock.now(); });
    environment.hosts = Hosts::builtIn();
    environment.hosts.apiEndpoint = service.origin();
    environment.hosts.loginHost = service.origin();
    environment.hosts.downloadHost = service.origin();
    environment.makeRandomSource = [] { return std::make_unique<SystemRandom>(1); };
    environment.animations = false;
    environment.authenticateInBrowser = [](QUrl url, QString scheme) {
        return BrowserSession::shared().authenticate(url, scheme);
    };
}

PlatformEnvironment::~PlatformEnvironment()
{
    const QStringList unexpected = service.unexpectedRequests();
    if (!expectsUnknownRequests && !unexpected.isEmpty()) {
        QTest::qFail(qPrintable(u"Unexpected requests: "_s + unexpected.join(u"; "_s)), __FILE__, __LINE__);
    }
}

void settle()
{
    for (int i = 0; i < 10; ++i) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

} // namespace quillmere::testing
