#pragma once

#include "platform/RecordRoles.h"

#include <QAbstractListModel>
#include <QHash>
#include <QList>
#include <QSet>

namespace quillmere {

// A list of records for a view, its roles named after the record's fields. setRecords() compares by the field "id" and tells the view what went, came
// and changed; where that would be many small pieces, or ids repeat or change places, it resets.
template <typename Record> class RecordListModel : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    const QList<Record> &records() const { return m_records; }

    int rowCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : int(m_records.size()); }

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (!checkIndex(index, CheckIndexOption::IndexIsValid) || !Roles::has(role)) {
            return {};
        }
        return Roles::value(m_records[index.row()], role);
    }

    QHash<int, QByteArray> roleNames() const override { return Roles::names(); }

    void setRecords(QList<Record> next)
    {
        if (!tellDifference(next)) {
            beginResetModel();
            m_records = std::move(next);
            endResetModel();
        }
    }

    // One more at the end.
    void append(Record record)
    {
        const int row = rowCount();
        beginInsertRows({}, row, row);
        m_records.append(std::move(record));
        endInsertRows();
    }

    // Puts another record into that row, and tells the view which of its fields have another value.
    void replace(int row, Record record)
    {
        const QList<int> changed = Roles::differing(m_records[row], record);
        m_records[row] = std::move(record);
        if (!changed.isEmpty()) {
            emit dataChanged(index(row), index(row), changed);
        }
    }

private:
    using Key = std::decay_t<decltype(std::declval<Record>().id)>;
    using Roles = RecordRoles<Record>;

    // Applies `next` in steps that the view can follow; false if it took none.
    bool tellDifference(QList<Record> &next)
    {
        QHash<Key, qsizetype> places;
        places.reserve(next.size());
        for (qsizetype i = 0; i < next.size(); ++i) {
            places.insert(next[i].id, i);
        }
        if (places.size() != next.size() || m_records.isEmpty() || next.isEmpty()) {
            return false;
        }
        // What stays must stay in order; what goes and what comes makes pieces.
        QSet<Key> staying;
        qsizetype pieces = 0;
        qsizetype lastPlace = -1;
        bool wentBefore = false;
        for (const Record &record : std::as_const(m_records)) {
            const auto place = places.constFind(record.id);
            const bool goes = place == places.cend();
            pieces += goes && !wentBefore;
            wentBefore = goes;
            if (goes) {
                continue;
            }
            if (*place <= lastPlace) {
                return false;
            }
            lastPlace = *place;
            staying.insert(record.id);
        }
        bool cameBefore = false;
        for (const Record &record : std::as_const(next)) {
            const bool comes = !staying.contains(record.id);
            pieces += comes && !cameBefore;
            cameBefore = comes;
        }
        if (staying.isEmpty() || pieces > mostPieces) {
            return false;
        }

        for (qsizetype end = m_records.size(); end > 0;) {
            if (staying.contains(m_records[end - 1].id)) {
                --end;
                continue;
            }
            qsizetype first = end - 1;
            while (first > 0 && !staying.contains(m_records[first - 1].id)) {
                --first;
            }
            beginRemoveRows({}, int(first), int(end - 1));
            m_records.remove(first, end - first);
            endRemoveRows();
            end = first;
        }
        for (qsizetype first = 0; first < next.size();) {
            if (staying.contains(next[first].id)) {
                m_records[first] = next[first];
                ++first;
                continue;
            }
            qsizetype end = first + 1;
            while (end < next.size() && !staying.contains(next[end].id)) {
                ++end;
            }
            beginInsertRows({}, int(first), int(end - 1));
            m_records.insert(first, end - first, Record{});
            std::copy(next.cbegin() + first, next.cbegin() + end, m_records.begin() + first);
            endInsertRows();
            first = end;
        }
        emit dataChanged(index(0), index(int(m_records.size()) - 1));
        return true;
    }

    QList<Record> m_records;
};

} // namespace quillmere
