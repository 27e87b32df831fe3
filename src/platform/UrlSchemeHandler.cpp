#include "platform/UrlSchemeHandler.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

bool isPackaged(const QString &entryName, const QString &ownFolder)
{
    const QStringList folders = QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
    return std::any_of(folders.cbegin(), folders.cend(),
        [&](const QString &folder) { return folder != ownFolder && QFile::exists(folder + u'/' + entryName); });
}

// A path as one word of an entry's Exec (Desktop Entry Specification, "The Exec key"), which is a text value besides and so
// has its backslashes doubled.
QString execWord(QString path)
{
    path.replace(u'%', u"%%"_s);
    static const QRegularExpression reserved(uR"([\s"'\\><~|&;$*?#()`])"_s);
    if (!path.contains(reserved)) {
        return path;
    }
    static const QRegularExpression escaped(uR"((["`$\\]))"_s);
    path.replace(escaped, uR"(\\1)"_s).replace(u'\\', uR"(\\)"_s);
    return u'"' + path + u'"';
}

bool linkTo(const QString &program, const QString &link)
{
    if (QFile::symLinkTarget(link) == program) {
        return true;
    }
    QDir().mkpath(QFileInfo(link).path());
    QFile::remove(link);
    return QFile::link(program, link);
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool writeIfDifferent(const QString &path, const QByteArray &content)
{
    if (contentOf(path) == content) {
        return false;
    }
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.commit();
}

} // namespace

bool installUrlSchemeHandler(const QString &scheme, const QString &program)
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::ApplicationsLocation);
    const QString entryName = scheme + u".desktop"_s;
    const QString link = QDir::homePath() + u"/.local/bin/"_s + scheme;
    const QString entry = u"[Desktop Entry]\n"
                          "Type=Application\n"
                          "Name=Quillmere Studio\n"
                          "Exec=%1 %u\n"
                          "NoDisplay=true\n"
                          "MimeType=x-scheme-handler/%2;\n"_s.arg(execWord(link), scheme);
    const QString path = folder + u'/' + entryName;
    if (isPackaged(entryName, folder)) {
        // Written before the package came: it would hide the package's entry from the menus.
        if (contentOf(path) == entry.toUtf8()) {
            QFile::remove(path);
            QFile::remove(link);
        }
        return true;
    }
    if (!linkTo(program, link)) {
        return false;
    }
    if (writeIfDifferent(path, entry.toUtf8())) {
        // Desktops that look handlers up in a cache need it made anew; where the tool is missing, nobody reads one.
        QProcess::startDetached(u"update-desktop-database"_s, {u"-q"_s, folder});
    }
    return QFile::exists(path);
}

} // namespace quillmere
