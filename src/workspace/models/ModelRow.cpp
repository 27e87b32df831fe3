#include "workspace/models/ModelRow.h"

#include "platform/Text.h"
#include "service/Records.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

// More than two lines hold in any window. Text beyond that would be laid out for nobody, and a megabyte of it takes long.
constexpr qsizetype mostShown = 2'000;

QString shortCount(qint64 count)
{
    constexpr qint64 million = 1'000'000;
    constexpr qint64 billion = 1'000 * million;
    if (count >= billion) {
        return text::fixed(double(count) / double(billion), 1) + u'B';
    }
    if (count >= million) {
        return text::fixed(double(count) / double(million), 0) + u'M';
    }
    return QString::number(count);
}

} // namespace

ModelRow ModelRow::of(const ModelInfo &model, bool isDownloaded, bool isDownloading)
{
    return {
        .id = model.id,
        .name = model.name.left(mostShown),
        .description = model.description ? model.description->left(mostShown)
                                         : QCoreApplication::translate("ModelRow", "No description available"),
        .isTunable = model.supportsFinetuning.value_or(false),
        .params = model.parameters ? shortCount(*model.parameters) : QString(),
        .context = model.contextLength ? QString::number(*model.contextLength / 1'000) + u'K' : QString(),
        .size = model.sizeBytes ? text::byteCount(*model.sizeBytes) : QString(),
        .isDownloaded = isDownloaded,
        .isDownloading = isDownloading,
    };
}

} // namespace quillmere
