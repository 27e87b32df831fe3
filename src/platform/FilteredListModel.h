#pragma once

#include "platform/RecordRoles.h"
#include "platform/SearchIndex.h"
#include "platform/Text.h"

#include <QAbstractListModel>
#include <QList>

#include <algorithm>
#include <functional>
#include <iterator>
#include <numeric>
#include <vector>

namespace quillmere {

// A long list of records, of which a view shows those that pass a filter and hold the text that is looked for, in the
// order of the list. What a row shows is made when the view asks for it: a hundred thousand records cost no more than the
// few dozen rows on display, and what a search takes is a look at texts that were prepared for it. A row's fields are the
// roles.
//
// Whoever owns the list calls refresh() when what a record shows depends on something that is not in it.
template <typename Record, typename Row> class FilteredListModel : public QAbstractListModel {
public:
    using Filter = std::function<bool(const Record &)>;

    // How a record is shown, and the texts in each of which it is looked for.
    FilteredListModel(std::function<Row(const Record &)> rowOf, std::function<QStringList(const Record &)> textsOf)
        : m_rowOf(std::move(rowOf)), m_textsOf(std::move(textsOf))
    {
    }

    const QList<Record> &records() const { return m_records; }

    void setRecords(QList<Record> records)
    {
        beginResetModel();
        m_records = std::move(records);
        prepareSearch();
        m_shown = chosen();
        m_madeRow = -1;
        endResetModel();
    }

    void prepend(const Record &record)
    {
        const bool shows = passes(record);
        if (shows) {
            beginInsertRows({}, 0, 0);
        }
        m_records.prepend(record);
        for (qsizetype &place : m_shown) {
            ++place;
        }
        if (shows) {
            m_shown.insert(m_shown.begin(), 0);
        }
        m_isPrepared = false;
        m_madeRow = -1;
        if (shows) {
            endInsertRows();
        }
    }

    void replace(qsizetype place, const Record &record)
    {
        m_records[place] = record;
        m_isPrepared = false;
        refresh(place);
    }

    template <typename Predicate> void removeIf(Predicate predicate)
    {
        std::vector<qsizetype> places;
        for (qsizetype place = 0; place < m_records.size(); ++place) {
            if (predicate(std::as_const(m_records)[place])) {
                places.push_back(place);
            }
        }
        if (qsizetype(places.size()) <= mostPieces) {
            std::for_each(places.rbegin(), places.rend(), [this](qsizetype place) { remove(place); });
            return;
        }
        QList<Record> left = m_records;
        left.removeIf(predicate);
        setRecords(std::move(left));
    }

    // The record at that place may show otherwise, or pass where it did not.
    void refresh(qsizetype place)
    {
        const auto shown = std::lower_bound(m_shown.begin(), m_shown.end(), place);
        const bool showed = shown != m_shown.end() && *shown == place;
        const bool shows = passes(m_records[place]);
        const int row = int(shown - m_shown.begin());
        m_madeRow = -1;
        if (showed && shows) {
            emit dataChanged(index(row), index(row));
        } else if (showed) {
            beginRemoveRows({}, row, row);
            m_shown.erase(shown);
            m_madeRow = -1;
            endRemoveRows();
        } else if (shows) {
            beginInsertRows({}, row, row);
            m_shown.insert(shown, place);
            m_madeRow = -1;
            endInsertRows();
        }
    }

    // An empty text is held by every record; upper and lower case make no difference.
    void search(const QString &text)
    {
        const QString searched = text::searchable(text);
        if (searched != m_searched) {
            m_searched = searched;
            chooseAnew();
        }
    }

    // Without a filter every record passes.
    void filter(Filter filter)
    {
        m_filter = std::move(filter);
        chooseAnew();
    }

    int rowCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : int(m_shown.size()); }

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (!checkIndex(index, CheckIndexOption::IndexIsValid) || !Roles::has(role)) {
            return {};
        }
        // A view asks for one role after the other of a row.
        if (index.row() != m_madeRow) {
            m_row = m_rowOf(m_records[m_shown[size_t(index.row())]]);
            m_madeRow = index.row();
        }
        return Roles::value(m_row, role);
    }

    QHash<int, QByteArray> roleNames() const override { return Roles::names(); }

private:
    using Roles = RecordRoles<Row>;

    void remove(qsizetype place)
    {
        const auto shown = std::lower_bound(m_shown.begin(), m_shown.end(), place);
        const bool shows = shown != m_shown.end() && *shown == place;
        const int row = int(shown - m_shown.begin());
        if (shows) {
            beginRemoveRows({}, row, row);
        }
        m_records.remove(place);
        m_isPrepared = false;
        std::for_each(shown, m_shown.end(), [](qsizetype &later) { --later; });
        if (shows) {
            m_shown.erase(shown);
        }
        m_madeRow = -1;
        if (shows) {
            endRemoveRows();
        }
    }

    bool passes(const Record &record) const
    {
        const QStringList texts = m_searched.isEmpty() ? QStringList() : m_textsOf(record);
        const bool isFound = m_searched.isEmpty()
            || std::any_of(texts.cbegin(), texts.cend(),
                [this](const QString &text) { return text::localizedCaseInsensitiveContains(text, m_searched); });
        return isFound && (!m_filter || m_filter(record));
    }

    void prepareSearch()
    {
        m_searchIndex.clear();
        for (const Record &record : std::as_const(m_records)) {
            m_searchIndex.add(m_textsOf(record));
        }
        m_isPrepared = true;
    }

    // Tells the view what goes and what comes instead of a reset, after which it would make all its rows anew. What stays
    // at both ends stays; between them one piece goes and one comes.
    void chooseAnew()
    {
        std::vector<qsizetype> next = chosen();
        const auto [before, after] = std::mismatch(m_shown.begin(), m_shown.end(), next.begin(), next.end());
        const auto [beforeEnd, afterEnd] = std::mismatch(std::reverse_iterator(m_shown.end()),
            std::reverse_iterator(before), std::reverse_iterator(next.end()), std::reverse_iterator(after));
        const int first = int(before - m_shown.begin());
        const int going = int(beforeEnd.base() - before);
        const int coming = int(afterEnd.base() - after);
        if (going > 0) {
            beginRemoveRows({}, first, first + going - 1);
            m_shown.erase(before, beforeEnd.base());
            m_madeRow = -1;
            endRemoveRows();
        }
        if (coming > 0) {
            beginInsertRows({}, first, first + coming - 1);
            m_shown = std::move(next);
            m_madeRow = -1;
            endInsertRows();
        }
    }

    std::vector<qsizetype> chosen()
    {
        std::vector<qsizetype> places;
        if (m_searched.isEmpty()) {
            places.resize(size_t(m_records.size()));
            std::iota(places.begin(), places.end(), 0);
        } else {
            if (!m_isPrepared) {
                prepareSearch();
            }
            places = m_searchIndex.entriesWith(m_searched);
        }
        if (m_filter) {
            std::erase_if(places, [this](qsizetype place) { return !m_filter(m_records[place]); });
        }
        return places;
    }

    std::function<Row(const Record &)> m_rowOf;
    std::function<QStringList(const Record &)> m_textsOf;
    Filter m_filter;
    QString m_searched;

    QList<Record> m_records;
    SearchIndex m_searchIndex;      // of the records, by place
    bool m_isPrepared = true;       // false: m_searchIndex is of the records as they were
    std::vector<qsizetype> m_shown; // the places of the records that pass, rising

    mutable Row m_row;
    mutable int m_madeRow = -1; // whose row m_row is; a view may ask until the very change of m_shown
};

} // namespace quillmere
