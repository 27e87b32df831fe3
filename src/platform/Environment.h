#pragma once

#include "configuration/Hosts.h"
#include "platform/Clock.h"
#include "platform/RandomSource.h"
#include "platform/SecretStore.h"
#include "platform/UrlOpener.h"

#include <functional>
#include <memory>
#include <typeindex>
#include <utility>
#include <vector>

namespace quillmere {

// Everything that a test replaces, and the owner of the shared objects. The program makes one for its whole life; a
// test makes its own, and each one starts clean: X::shared() is made at first use from the current environment and goes
// with it, the last made first.
class Environment {
public:
    Hosts hosts;
    std::unique_ptr<Clock> clock;
    std::unique_ptr<SecretStore> secrets;
    std::unique_ptr<UrlOpener> urlOpener;
    std::function<std::unique_ptr<RandomSource>()> makeRandomSource;
    bool animations = true; // false: what moves arrives at once, so that pictures and tests see it settled

    // The parts of the running program: machine clock, Secret Service, the desktop's programs.
    static std::unique_ptr<Environment> real();

    // One environment is current at a time: the one made last.
    static Environment &current();

    Environment();
    ~Environment();
    Q_DISABLE_COPY_MOVE(Environment)

    template <typename T> T &shared()
    {
        for (const auto &[type, object] : m_shared) {
            if (type == typeid(T)) {
                return *static_cast<T *>(object.get());
            }
        }
        auto made = std::make_shared<T>();
        m_shared.emplace_back(typeid(T), made);
        return *made;
    }

private:
    std::vector<std::pair<std::type_index, std::shared_ptr<void>>> m_shared;
};

} // namespace quillmere
