#pragma once

#include "platform/Fields.h"

#include <QColor>
#include <QString>

namespace quillmere {

struct FineTuneJob;

// A job as its card shows it.
struct TrainingJobRow {
    QString id;
    QString name;
    QString badge; // the status with each word capitalised
    QColor statusColor;
    bool isRunning = false; // exactly "running": progress, metrics and the stop button show
    QString progressText;   // "67%"
    double progress = 0;    // 0 to 1, whatever the service reports

    static TrainingJobRow of(const FineTuneJob &job);

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"id", &TrainingJobRow::id},
            Field{"name", &TrainingJobRow::name},
            Field{"badge", &TrainingJobRow::badge},
            Field{"statusColor", &TrainingJobRow::statusColor},
            Field{"isRunning", &TrainingJobRow::isRunning},
            Field{"progressText", &TrainingJobRow::progressText},
            Field{"progress", &TrainingJobRow::progress},
        };
    }
};

} // namespace quillmere
