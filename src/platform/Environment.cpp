#include "platform/Environment.h"

#include "platform/DesktopUrlOpener.h"
#include "platform/LibsecretStore.h"
#include "platform/SystemClock.h"
#include "platform/SystemRandom.h"

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
        // Out of the list only afterwards: an object that ends may still use those that were made before it.
        m_shared.back().second.reset();
        m_shared.pop_back();
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
    environment->makeRandomSource = [] { return std::make_unique<SystemRandom>(); };
    return environment;
}

} // namespace quillmere
