#include "service/UploadForm.h"

#include <QCoreApplication>

namespace quillmere {

namespace {

struct UploadTexts {
    Q_DECLARE_TR_FUNCTIONS(UploadForm)
};

} // namespace

Result<UploadForm> UploadForm::make(const QString &filename, QByteArray fileData, const QByteArray &boundary)
{
    if (filename.contains(u'\r') || filename.contains(u'\n') || filename.contains(u'\0')) {
        return Failure(Failure::Kind::Encoding, UploadTexts::tr("Invalid file name"));
    }
    return UploadForm{"multipart/form-data; boundary=" + boundary,
        {
            "--" + boundary + "\r\nContent-Disposition: form-data; name=\"file\"; filename=\"" + filename.toUtf8()
                + "\"\r\nContent-Type: application/octet-stream\r\n\r\n",
            std::move(fileData),
            "\r\n--" + boundary + "--\r\n",
        }};
}

} // namespace quillmere
