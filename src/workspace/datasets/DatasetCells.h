#pragma once

#include "platform/Fields.h"

#include <QColor>
#include <QString>

namespace quillmere {

struct DatasetInfo;

// What a dataset is for, in words: those that the program knows in the user's language, others as the service tells them, with each
// word capitalised.
QString purposeTitle(const QString &purpose);

// A dataset as its row in the table shows it.
struct DatasetCells {
    QString id;
    QString filename;
    QString icon; // by the end of the file's name, where case matters
    QString purpose;
    QColor purposeColor;
    QString size;
    QString uploaded; // the day

    static DatasetCells of(const DatasetInfo &dataset);

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"id", &DatasetCells::id},
            Field{"filename", &DatasetCells::filename},
            Field{"icon", &DatasetCells::icon},
            Field{"purpose", &DatasetCells::purpose},
            Field{"purposeColor", &DatasetCells::purposeColor},
            Field{"size", &DatasetCells::size},
            Field{"uploaded", &DatasetCells::uploaded},
        };
    }
};

} // namespace quillmere
