#pragma once

#include "platform/SecretStore.h"

#include <QHash>
#include <QPromise>
#include <QStringList>

#include <memory>

namespace quillmere::testing {

// A secret store that lasts as long as the test, and can be told to misbehave.
class MemorySecretStore : public SecretStore {
public:
    void save(const QString &value, const QString &account) override;
    QCoro::Task<std::optional<QString>> read(const QString &account) override;
    void remove(const QString &account) override;

    // A look without asking: nothing of it counts as a read.
    std::optional<QString> peek(const QString &account) const;

    QStringList reads;    // the accounts asked for, in order
    bool refuses = false; // saves and removals are lost

    // From now on reads are answered only by answer(), as those of a keyring that waits for its password.
    void hold();
    void answer();

private:
    QHash<QString, QString> m_secrets;
    std::shared_ptr<QPromise<void>> m_held;
};

} // namespace quillmere::testing
