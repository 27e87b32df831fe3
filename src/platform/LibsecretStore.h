#pragma once

#include "platform/SecretStore.h"

#include <memory>

namespace quillmere {

// The desktop's Secret Service (freedesktop.org Secret Service API, as GNOME Keyring and KWallet speak it) through
// libsecret. Items carry the one attribute "account" and are found by it whoever wrote them. One thread of its own runs
// the operations first in, first out, so that a locked or slow keyring holds up nobody but the next operation.
class LibsecretStore : public SecretStore {
public:
    LibsecretStore();
    // Ends what is under way and waits for the thread, three seconds at most.
    ~LibsecretStore() override;

    void save(const QString &value, const QString &account) override;
    QCoro::Task<std::optional<QString>> read(const QString &account) override;
    void remove(const QString &account) override;

private:
    struct Worker;
    std::unique_ptr<Worker> m_worker;
};

} // namespace quillmere
