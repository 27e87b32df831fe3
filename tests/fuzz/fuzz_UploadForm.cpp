// A file's name and, behind the byte 0xff, its content, in the frame of an upload. The stand-in reads it as the service would.
#include "Fuzz.h"

#include "service/UploadForm.h"
#include "standin/Multipart.h"

#include <QCryptographicHash>

namespace quillmere::fuzz {

void feed(const QByteArray &input)
{
    const QByteArray boundary = "7D9B2C5E-0C3F-4C8E-9E0B-6A1F4D2B8C77";
    const QByteArray told = input.split('\xff').first();
    const QString name = QString::fromUtf8(told);
    const QByteArray content = input.mid(told.size() + 1);
    if (content.contains(boundary)) {
        return;
    }
    const auto form = UploadForm::make(name, content, boundary);
    const bool isOneLine = !name.contains(u'\r') && !name.contains(u'\n') && !name.contains(u'\0');
    HOLDS(bool(form) == isOneLine);
    if (!form) {
        HOLDS(form.failure().kind() == Failure::Kind::Encoding);
        return;
    }
    standin::MultipartReader reader(form->contentType);
    for (const QByteArray &piece : form->body) {
        reader.feed(piece);
    }
    HOLDS(reader.failure().isEmpty());
    const StandIn::Upload upload = reader.upload();
    HOLDS(upload.filename == name);
    HOLDS(upload.bytes == content.size());
    HOLDS(upload.sha256 == QCryptographicHash::hash(content, QCryptographicHash::Sha256));
}

} // namespace quillmere::fuzz
