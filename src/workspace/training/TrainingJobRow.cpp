#include "workspace/training/TrainingJobRow.h"

#include "app/theme/Theme.h"
#include "service/Records.h"
#include "workspace/ShownText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

QColor colorOfStatus(const QString &status)
{
    if (status == u"running"_s || status == u"pending"_s) {
        return Theme::success();
    }
    if (status == u"completed"_s) {
        return Theme::accent();
    }
    if (status == u"failed"_s || status == u"cancelled"_s) {
        return Theme::error();
    }
    return Theme::textSecondary();
}

QString statusTitle(const QString &status)
{
    return shownWord(status, "TrainingJobRow",
        {QT_TRANSLATE_NOOP("TrainingJobRow", "Pending"), QT_TRANSLATE_NOOP("TrainingJobRow", "Running"),
            QT_TRANSLATE_NOOP("TrainingJobRow", "Completed"), QT_TRANSLATE_NOOP("TrainingJobRow", "Failed"),
            QT_TRANSLATE_NOOP("TrainingJobRow", "Cancelled")});
}

} // namespace

TrainingJobRow TrainingJobRow::of(const FineTuneJob &job)
{
    return {
        .id = job.id,
        .name = shownLine(job.name),
        .badge = statusTitle(job.status),
        .statusColor = colorOfStatus(job.status),
        .isRunning = job.status == u"running"_s,
        .progressText = QString::number(job.progress) + u'%',
        .progress = std::clamp(double(job.progress) / 100, 0.0, 1.0),
    };
}

} // namespace quillmere
