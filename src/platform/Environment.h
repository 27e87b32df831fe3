#pragma once

#include "configuration/Hosts.h"
#include "platform/BrowserSession.h"
#include "platform/Clock.h"
#include "platform/FilePicker.h"
#include "platform/RandomSource.h"
#include "platform/SecretStore.h"
#include "platform/UrlOpener.h"

#include <functional>
#include <memory>
#include <typeindex>
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
    std::unique_ptr<FilePicker> filePicker;
    std::function<std::unique_ptr<RandomSource>()> makeRandomSource;
    std::function<QCoro::Task<BrowserOutcome>(QUrl url, QString callbackScheme)> authenticateInBrowser;
    QString program;                                      // path of what runs, links resolved
    std::function<void(const QString &program)> relaunch; // starts a program that is to take over from this one
    std::function<void()> terminate;                      // ends this one as soon as its events are handled
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
        for (const Shared &one : m_shared) {
            if (one.type == typeid(T)) {
                return *static_cast<T *>(one.object);
            }
        }
        auto *made = new T;
        m_shared.push_back({typeid(T), made, [](void *object) { delete static_cast<T *>(object); }});
        return *made;
    }

private:
    struct Shared {
        std::type_index type;
        void *object;
        void (*destroy)(void *);
    };
    std::vector<Shared> m_shared;
};

} // namespace quillmere
