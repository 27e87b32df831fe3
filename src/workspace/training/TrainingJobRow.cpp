#include "workspace/training/TrainingJobRow.h"

#include "app/theme/Color.h"
#include "platform/Text.h"
#include "service/Records.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

QColor colorOfStatus(const QString &status)
{
    if (status == u"running"_s || status == u"pending"_s) {
        return Color::hex(u"22C55E"_s);
    }
    if (status == u"completed"_s) {
        return Color::hex(u"3B82F6"_s);
    }
    if (status == u"failed"_s || status == u"cancelled"_s) {
        return Color::hex(u"EF4444"_s);
    }
    return Color::hex(u"A1A1AA"_s);
}

// Those that the program knows in the user's language, others as the service tells them.
QString statusTitle(const QString &status)
{
    constexpr std::array known{QT_TRANSLATE_NOOP("TrainingJobRow", "Pending"),
        QT_TRANSLATE_NOOP("TrainingJobRow", "Running"), QT_TRANSLATE_NOOP("TrainingJobRow", "Completed"),
        QT_TRANSLATE_NOOP("TrainingJobRow", "Failed"), QT_TRANSLATE_NOOP("TrainingJobRow", "Cancelled")};
    const QString title = text::capitalized(status);
    for (const char *word : known) {
        if (title == QLatin1StringView(word)) {
            return QCoreApplication::translate("TrainingJobRow", word);
        }
    }
    return title;
}

} // namespace

TrainingJobRow TrainingJobRow::of(const FineTuneJob &job)
{
    return {
        .id = job.id,
        .name = job.name,
        .badge = statusTitle(job.status),
        .statusColor = colorOfStatus(job.status),
        .isRunning = job.status == u"running"_s,
        .progressText = QString::number(job.progress) + u'%',
        .progress = std::clamp(double(job.progress) / 100, 0.0, 1.0),
    };
}

} // namespace quillmere
