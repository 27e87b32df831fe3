#include "workspace/datasets/DatasetCells.h"

#include "app/theme/Color.h"
#include "platform/Text.h"
#include "service/Records.h"

#include <QCoreApplication>

#include <array>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

QString iconOf(const QString &filename)
{
    if (filename.endsWith(u".jsonl"_s) || filename.endsWith(u".json"_s)) {
        return u"doc.text"_s;
    }
    if (filename.endsWith(u".csv"_s)) {
        return u"tablecells"_s;
    }
    if (filename.endsWith(u".txt"_s)) {
        return u"doc.plaintext"_s;
    }
    return u"doc"_s;
}

QColor colorOfPurpose(const QString &purpose)
{
    if (purpose == u"fine-tune"_s) {
        return Color::hex(u"22C55E"_s);
    }
    if (purpose == u"validation"_s) {
        return Color::hex(u"3B82F6"_s);
    }
    if (purpose == u"test"_s) {
        return Color::hex(u"A855F7"_s);
    }
    return Color::hex(u"A1A1AA"_s);
}

// A name may hold line breaks and tabs, a row has one line.
QString inOneLine(QString filename)
{
    for (QChar &character : filename) {
        if (character.isSpace()) {
            character = u' ';
        }
    }
    return filename;
}

} // namespace

QString purposeTitle(const QString &purpose)
{
    constexpr std::array known{QT_TRANSLATE_NOOP("DatasetCells", "All"), QT_TRANSLATE_NOOP("DatasetCells", "Fine-Tune"),
        QT_TRANSLATE_NOOP("DatasetCells", "Validation"), QT_TRANSLATE_NOOP("DatasetCells", "Test")};
    const QString title = text::capitalized(purpose);
    for (const char *word : known) {
        if (title == QLatin1StringView(word)) {
            return QCoreApplication::translate("DatasetCells", word);
        }
    }
    return title;
}

DatasetCells DatasetCells::of(const DatasetInfo &dataset)
{
    return {
        .id = dataset.id,
        .filename = inOneLine(dataset.filename),
        .icon = iconOf(dataset.filename),
        .purpose = purposeTitle(dataset.purpose),
        .purposeColor = colorOfPurpose(dataset.purpose),
        .size = text::byteCount(dataset.bytes),
        .uploaded = text::date(dataset.createdAt),
    };
}

} // namespace quillmere
