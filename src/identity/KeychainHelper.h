#pragma once

#include <QCoroTask>

#include <QString>

#include <optional>

namespace quillmere {

// The secrets of the program by key, kept in the environment's secret store and nowhere else. No operation fails to its
// caller; a save that the store refused is heard of by the next read, which is absent or the old value. Operations count in the
// order in which they are said.
class KeychainHelper {
public:
    static KeychainHelper &shared();

    void save(const QString &value, const QString &key);
    QCoro::Task<std::optional<QString>> read(QString key);
    void remove(const QString &key);
};

} // namespace quillmere
