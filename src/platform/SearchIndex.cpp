#include "platform/SearchIndex.h"

#include "platform/Text.h"

#include <cstring>
#include <numeric>

namespace quillmere {

void SearchIndex::clear()
{
    m_texts.clear();
    m_ends.clear();
    m_entries = 0;
}

void SearchIndex::add(const QStringList &texts)
{
    for (const QString &text : texts) {
        const QByteArray prepared = text::searchable(text).toUtf8();
        m_texts.append(prepared.constData(), std::size_t(prepared.size()));
        m_ends.push_back({m_texts.size(), m_entries});
    }
    ++m_entries;
}

std::vector<qsizetype> SearchIndex::entriesWith(const QString &part) const
{
    std::vector<qsizetype> found;
    if (part.isEmpty()) {
        found.resize(std::size_t(m_entries));
        std::iota(found.begin(), found.end(), 0);
        return found;
    }
    const QByteArray wanted = text::searchable(part).toUtf8();
    const auto length = std::size_t(wanted.size());
    auto text = m_ends.cbegin();
    for (std::size_t from = 0; from < m_texts.size();) {
        const void *hit = memmem(m_texts.data() + from, m_texts.size() - from, wanted.constData(), length);
        if (!hit) {
            break;
        }
        const auto place = std::size_t(static_cast<const char *>(hit) - m_texts.data());
        while (text->end <= place) {
            ++text;
        }
        // A hit that runs on into the next text is none, and what follows it in this text would be none either.
        from = text->end;
        if (place + length > text->end) {
            continue;
        }
        found.push_back(text->entry);
        while (text != m_ends.cend() && text->entry == found.back()) {
            from = text->end;
            ++text;
        }
    }
    return found;
}

} // namespace quillmere
