#pragma once

#include <QCoroTask>

#include <QString>

#include <optional>

namespace quillmere {

// A store of one secret text per account name. Operations are carried out in the order in which they were asked for, so
// that a read sees every save and removal before it. None of them can fail to its caller: a store that does not answer
// as it should reads as absent. An empty text is a value, not an absence.
class SecretStore {
public:
    virtual ~SecretStore() = default;

    virtual void save(const QString &value, const QString &account) = 0;
    virtual QCoro::Task<std::optional<QString>> read(const QString &account) = 0;
    virtual void remove(const QString &account) = 0;
};

} // namespace quillmere
