#pragma once

#include "platform/Result.h"

#include <QCoroTask>

#include <QList>
#include <QString>
#include <QUrl>

namespace quillmere {

// What a file is picked for, and which types of file can be: names of MIME types, each with all that the desktop counts among it.
struct FileRequest {
    QString title;
    QString typesName; // what the types are called together
    QList<QString> mimeTypes;
};

// Lets the user pick a file.
class FilePicker {
public:
    virtual ~FilePicker() = default;

    // One file of those types, or none where the user closed the dialog. A dialog is up until this ends; while it is, another
    // call ends at once with no file.
    virtual QCoro::Task<Result<QList<QUrl>>> pick(FileRequest request) = 0;

    // Closes the dialog, as the user would; without one it does nothing.
    virtual void cancel() = 0;
};

} // namespace quillmere
