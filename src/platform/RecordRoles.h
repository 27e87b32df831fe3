#pragma once

#include "platform/Fields.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QVariant>

#include <array>
#include <functional>
#include <optional>

namespace quillmere {

// A list that changes in more pieces than this is reset instead, which costs its view less.
inline constexpr qsizetype mostPieces = 64;

// What a view calls the fields of a record: by their own names, but for "id", which means something else in QML and is
// called "identifier".
template <typename Record> class RecordRoles {
public:
    static QHash<int, QByteArray> names()
    {
        QHash<int, QByteArray> names;
        int role = Qt::UserRole;
        forEachField<Record>([&](const auto &field) {
            const QByteArray name = field.name;
            names.insert(role++, name == "id" ? QByteArray("identifier") : name);
        });
        return names;
    }

    static bool has(int role) { return role >= Qt::UserRole && role < Qt::UserRole + int(fieldCount<Record>); }

    // The field of that role, which has to be one; invalid where the field is optional and not there.
    static QVariant value(const Record &record, int role) { return readers()[size_t(role - Qt::UserRole)](record); }

    // The roles that have not the same value in both.
    static QList<int> differing(const Record &one, const Record &other)
    {
        QList<int> roles;
        int role = Qt::UserRole;
        forEachField<Record>([&](const auto &field) {
            if (std::invoke(field.member, one) != std::invoke(field.member, other)) {
                roles.append(role);
            }
            ++role;
        });
        return roles;
    }

private:
    using Reader = std::function<QVariant(const Record &)>;

    template <typename Value> static QVariant toVariant(const Value &value) { return QVariant::fromValue(value); }
    template <typename Value> static QVariant toVariant(const std::optional<Value> &value)
    {
        return value ? QVariant::fromValue(*value) : QVariant();
    }

    static const std::array<Reader, fieldCount<Record>> &readers()
    {
        static const auto list = [] {
            std::array<Reader, fieldCount<Record>> readers;
            size_t next = 0;
            forEachField<Record>([&](const auto &field) {
                readers[next++] = [member = field.member](
                                      const Record &record) { return toVariant(std::invoke(member, record)); };
            });
            return readers;
        }();
        return list;
    }
};

} // namespace quillmere
