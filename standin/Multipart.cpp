#include "standin/Multipart.h"

#include <QStringDecoder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace standin {

namespace {
constexpr qsizetype LongestFrame = 16 * KiB;
const QByteArray DispositionStart = R"(Content-Disposition: form-data; name="file"; filename=")";
const QByteArray TypeLine = "Content-Type: application/octet-stream";
} // namespace

MultipartReader::MultipartReader(const QByteArray &contentType)
{
    const QByteArray start = "multipart/form-data; boundary=";
    m_boundary = contentType.startsWith(start) ? contentType.mid(start.size()) : QByteArray();
    // RFC 2046, 5.1.1 allows 70 characters; quotes and further parameters are not part of our form.
    if (m_boundary.isEmpty() || m_boundary.size() > 70 || m_boundary.contains(' ') || m_boundary.contains('"')
        || m_boundary.contains(';')) {
        fail(u"Content-Type must be multipart/form-data; boundary=BOUNDARY"_s);
    }
}

void MultipartReader::feed(const QByteArray &bytes)
{
    if (m_state == State::Broken) {
        return;
    }
    m_buffer += bytes;
    if (m_state == State::Frame) {
        readFrame();
    }
    if (m_state == State::Content) {
        readContent();
    }
    if (m_state == State::Closed && !m_buffer.isEmpty() && !QByteArray("--\r\n").startsWith(m_buffer)) {
        fail(u"there must be one part, and nothing after the closing delimiter"_s);
    }
}

QString MultipartReader::failure() const
{
    if (m_state == State::Broken) {
        return m_failure;
    }
    if (m_state != State::Closed || m_buffer != "--\r\n") {
        return u"the body ends before its closing delimiter does"_s;
    }
    return {};
}

StandIn::Upload MultipartReader::upload() const
{
    StandIn::Upload upload = m_upload;
    upload.sha256 = m_hash.result();
    return upload;
}

void MultipartReader::readFrame()
{
    const qsizetype end = m_buffer.indexOf("\r\n\r\n");
    if (end < 0) {
        if (m_buffer.size() > LongestFrame) {
            fail(u"the part's header does not end"_s);
        }
        return;
    }
    const QByteArray frame = m_buffer.left(end);
    const QByteArray start = "--" + m_boundary + "\r\n" + DispositionStart;
    const QByteArray ending = "\"\r\n" + TypeLine;
    if (!frame.startsWith(start)) {
        fail(u"the body must start with the delimiter and the Content-Disposition of one file"_s);
        return;
    }
    if (!frame.endsWith(ending) || frame.size() < start.size() + ending.size()) {
        fail(u"the file name must be followed by the line Content-Type: application/octet-stream"_s);
        return;
    }
    const QByteArray filename = frame.mid(start.size(), frame.size() - start.size() - ending.size());
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    m_upload.filename = decoder(filename);
    if (decoder.hasError() || filename.contains('\r') || filename.contains('\n') || filename.contains('\0')) {
        fail(u"the file name must be one line of UTF-8"_s);
        return;
    }
    m_buffer.remove(0, end + 4);
    m_state = State::Content;
}

void MultipartReader::readContent()
{
    const QByteArray delimiter = "\r\n--" + m_boundary;
    const qsizetype end = m_buffer.indexOf(delimiter);
    if (end >= 0) {
        takeContent(m_buffer.left(end));
        m_buffer.remove(0, end + delimiter.size());
        m_state = State::Closed;
        return;
    }
    // The end of the buffer may be the beginning of the delimiter.
    const qsizetype safe = m_buffer.size() - delimiter.size() + 1;
    if (safe > 0) {
        takeContent(m_buffer.left(safe));
        m_buffer.remove(0, safe);
    }
}

void MultipartReader::fail(const QString &why)
{
    m_state = State::Broken;
    m_failure = why;
    m_buffer.clear();
}

void MultipartReader::takeContent(const QByteArray &bytes)
{
    m_hash.addData(bytes);
    m_upload.bytes += bytes.size();
    m_upload.head += bytes.left(std::max<qsizetype>(0, KeptBytes - m_upload.head.size()));
}

} // namespace standin
