#pragma once

#include <QStringList>

#include <string>
#include <vector>

namespace quillmere {

// The texts of a list's entries, prepared once, so that finding a part in those of 100,000 entries takes a few
// milliseconds. Finds what text::localizedCaseInsensitiveContains() finds in one of an entry's texts.
class SearchIndex {
public:
    void clear();

    // One more entry; the first is number 0.
    void add(const QStringList &texts);

    // The numbers of the entries of which a text holds the part, ascending. An empty part is held by all.
    std::vector<qsizetype> entriesWith(const QString &part) const;

private:
    struct Text {
        std::size_t end; // in m_texts
        qsizetype entry;
    };

    std::string m_texts; // all of them without a difference of case, one behind the other, in UTF-8
    std::vector<Text> m_ends;
    qsizetype m_entries = 0;
};

} // namespace quillmere
