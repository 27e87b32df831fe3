#include "support/MemorySecretStore.h"

#include <QCoroFuture>

namespace quillmere::testing {

void MemorySecretStore::save(const QString &value, const QString &account)
{
    if (!refuses) {
        m_secrets.insert(account, value);
    }
}

QCoro::Task<std::optional<QString>> MemorySecretStore::read(const QString &account)
{
    reads.append(account);
    // What a read sees is settled when it is asked for, whenever it is answered.
    const std::optional<QString> secret = peek(account);
    if (m_held) {
        co_await m_held->future();
    }
    co_return secret;
}

void MemorySecretStore::remove(const QString &account)
{
    if (!refuses) {
        m_secrets.remove(account);
    }
}

std::optional<QString> MemorySecretStore::peek(const QString &account) const
{
    const auto secret = m_secrets.constFind(account);
    return secret == m_secrets.cend() ? std::nullopt : std::optional(*secret);
}

void MemorySecretStore::hold()
{
    m_held = std::make_shared<QPromise<void>>();
    m_held->start();
}

void MemorySecretStore::answer()
{
    const auto held = std::exchange(m_held, nullptr);
    held->finish();
}

} // namespace quillmere::testing
