#include "platform/Environment.h"

#include "platform/DesktopFilePicker.h"
#include "platform/DesktopUrlOpener.h"
#include "platform/LibsecretStore.h"
#include "platform/SystemClock.h"
#include "platform/SystemRandom.h"
#include "platform/UrlSchemeHandler.h"

#include <QCoreApplication>
#include <QProcess>

namespace quillmere {

namespace {

Environment *currentEnvironment = nullptr;

} // namespace

Environment::Environment()
{
    Q_ASSERT_X(!currentEnvironment, "Environment", "the one before is still there");
    currentEnvironment = this;
}

Environment::~Environment()
{
    while (!m_shared.empty()) {
        // Out of the list only afterwards: what an object ends on its way out may still ask for it, and for others that are
        // then made anew at the end of the list.
        const Shared last = m_shared.back();
        last.destroy(last.object);
        std::erase_if(m_shared, [&](const Shared &one) { return one.object == last.object; });
    }
    currentEnvironment = nullptr;
}

Environment &Environment::current()
{
    Q_ASSERT_X(currentEnvironment, "Environment", "none has been made");
    return *currentEnvironment;
}

std::unique_ptr<Environment> Environment::real()
{
    auto environment = std::make_unique<Environment>();
    environment->hosts = Hosts::builtIn();
    environment->clock = std::make_unique<SystemClock>();
    environment->secrets = std::make_unique<LibsecretStore>();
    environment->urlOpener = std::make_unique<DesktopUrlOpener>();
    environment->filePicker = std::make_unique<DesktopFilePicker>();
    environment->makeRandomSource = [] { return std::make_unique<SystemRandom>(); };
    environment->authenticateInBrowser = [](QUrl url, QString callbackScheme) {
        installUrlSchemeHandler(callbackScheme, QCoreApplication::applicationFilePath());
        return BrowserSession::shared().authenticate(std::move(url), std::move(callbackScheme));
    };
    environment->program = QCoreApplication::applicationFilePath();
    environment->relaunch = [](const QString &program) { QProcess::startDetached(program, {}); };
    environment->terminate = [] { QCoreApplication::quit(); };
    return environment;
}

} // namespace quillmere
