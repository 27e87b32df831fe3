#include "identity/KeychainHelper.h"

#include "platform/Environment.h"

namespace quillmere {

KeychainHelper &KeychainHelper::shared()
{
    return Environment::current().shared<KeychainHelper>();
}

void KeychainHelper::save(const QString &value, const QString &key)
{
    Environment::current().secrets->save(value, key);
}

QCoro::Task<std::optional<QString>> KeychainHelper::read(QString key)
{
    return Environment::current().secrets->read(key);
}

void KeychainHelper::remove(const QString &key)
{
    Environment::current().secrets->remove(key);
}

} // namespace quillmere
