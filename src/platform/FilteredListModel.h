#pragma once

#include "platform/RecordRoles.h"
#include "platform/Text.h"

#include <QAbstractListModel>
#include <QList>

#include <algorithm>
#include <functional>
#include <numeric>
#include <vector>

namespace quillmere {

// A long list of records, of which a view shows those that pass a filter and hold the text that is looked for, in the
// order of the list. What a row shows is made when the view asks for it: a hundred thousand records cost no more than the
// few dozen rows on display, and what a search takes is a look at each record's text. A row's fields are the roles.
//
// Whoever owns the list calls refresh() when what a record shows depends on something that is not in it.
template <typename Record, typename Row> class FilteredListModel : public QAbstractListModel {
public:
    using Filter = std::function<bool(const Record &)>;

    // How a record is shown, and the text in which it is looked for.
    FilteredListModel(std::function<Row(const Record &)> rowOf, std::function<QString(const Record &)> textOf)
        : m_rowOf(std::move(rowOf)), m_textOf(std::move(textOf))
    {
    }

    const QList<Record> &records() const { return m_records; }

    void setRecords(QList<Record> records)
    {
        beginResetModel();
        m_records = std::move(records);
        m_texts.clear();
        choose();
        endResetModel();
    }

    void prepend(const Record &record)
    {
        const QString text = textToSearch(record);
        const bool shows = passes(record, text);
        if (shows) {
            beginInsertRows({}, 0, 0);
        }
        m_records.prepend(record);
        if (!m_texts.isEmpty()) {
            m_texts.prepend(text);
        }
        for (qsizetype &place : m_shown) {
            ++place;
        }
        if (shows) {
            m_shown.insert(m_shown.begin(), 0);
        }
        m_madeRow = -1;
        if (shows) {
            endInsertRows();
        }
    }

    void replace(qsizetype place, const Record &record)
    {
        m_records[place] = record;
        if (!m_texts.isEmpty()) {
            m_texts[place] = textToSearch(record);
        }
        refresh(place);
    }

    void remove(qsizetype place)
    {
        const auto shown = std::lower_bound(m_shown.begin(), m_shown.end(), place);
        const bool shows = shown != m_shown.end() && *shown == place;
        const int row = int(shown - m_shown.begin());
        if (shows) {
            beginRemoveRows({}, row, row);
        }
        m_records.remove(place);
        if (!m_texts.isEmpty()) {
            m_texts.remove(place);
        }
        std::for_each(shown, m_shown.end(), [](qsizetype &later) { --later; });
        if (shows) {
            m_shown.erase(shown);
        }
        m_madeRow = -1;
        if (shows) {
            endRemoveRows();
        }
    }

    // The record at that place may show otherwise, or pass where it did not.
    void refresh(qsizetype place)
    {
        const auto shown = std::lower_bound(m_shown.begin(), m_shown.end(), place);
        const bool showed = shown != m_shown.end() && *shown == place;
        const bool shows =
            passes(m_records[place], m_texts.isEmpty() ? textToSearch(m_records[place]) : m_texts[place]);
        const int row = int(shown - m_shown.begin());
        m_madeRow = -1;
        if (showed && shows) {
            emit dataChanged(index(row), index(row));
        } else if (showed) {
            beginRemoveRows({}, row, row);
            m_shown.erase(shown);
            endRemoveRows();
        } else if (shows) {
            beginInsertRows({}, row, row);
            m_shown.insert(shown, place);
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

    QString textToSearch(const Record &record) const
    {
        return m_searched.isEmpty() && m_texts.isEmpty() ? QString() : text::searchable(m_textOf(record));
    }

    bool passes(const Record &record, const QString &text) const
    {
        return (m_searched.isEmpty() || text.contains(m_searched)) && (!m_filter || m_filter(record));
    }

    void chooseAnew()
    {
        beginResetModel();
        choose();
        endResetModel();
    }

    void choose()
    {
        m_madeRow = -1;
        if (m_searched.isEmpty() && !m_filter) {
            m_shown.resize(size_t(m_records.size()));
            std::iota(m_shown.begin(), m_shown.end(), 0);
            return;
        }
        if (!m_searched.isEmpty() && m_texts.isEmpty()) {
            m_texts.reserve(m_records.size());
            for (const Record &record : std::as_const(m_records)) {
                m_texts.append(text::searchable(m_textOf(record)));
            }
        }
        m_shown.clear();
        for (qsizetype place = 0; place < m_records.size(); ++place) {
            if (passes(m_records[place], m_texts.isEmpty() ? QString() : m_texts[place])) {
                m_shown.push_back(place);
            }
        }
    }

    std::function<Row(const Record &)> m_rowOf;
    std::function<QString(const Record &)> m_textOf;
    Filter m_filter;
    QString m_searched;

    QList<Record> m_records;
    QList<QString> m_texts;         // of the records, ready to be searched; none before the first search
    std::vector<qsizetype> m_shown; // the places of the records that pass, rising

    mutable Row m_row;
    mutable int m_madeRow = -1; // whose row m_row is
};

} // namespace quillmere
