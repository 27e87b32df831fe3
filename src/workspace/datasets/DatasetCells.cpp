#include "workspace/datasets/DatasetCells.h"

#include "app/theme/Theme.h"
#include "platform/Text.h"
#include "service/Records.h"
#include "workspace/ShownText.h"

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
        return Theme::success();
    }
    if (purpose == u"validation"_s) {
        return Theme::accent();
    }
    if (purpose == u"test"_s) {
        return Theme::purple();
    }
    return Theme::textSecondary();
}

} // namespace

QString purposeTitle(const QString &purpose)
{
    return shownWord(purpose, "DatasetCells",
        {QT_TRANSLATE_NOOP("DatasetCells", "All"), QT_TRANSLATE_NOOP("DatasetCells", "Fine-Tune"),
            QT_TRANSLATE_NOOP("DatasetCells", "Validation"), QT_TRANSLATE_NOOP("DatasetCells", "Test")});
}

DatasetCells DatasetCells::of(const DatasetInfo &dataset)
{
    return {
        .id = dataset.id,
        .filename = shownLine(dataset.filename),
        .icon = iconOf(dataset.filename),
        .purpose = purposeTitle(dataset.purpose),
        .purposeColor = colorOfPurpose(dataset.purpose),
        .size = text::byteCount(dataset.bytes),
        .uploaded = text::date(dataset.createdAt),
    };
}

} // namespace quillmere
