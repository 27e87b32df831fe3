#include "journeys/Desktop.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace desktop {

namespace {

bool runs(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(program, arguments);
    return process.waitForFinished(20'000) && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

bool write(const QString &folder, const QString &name, const QByteArray &content)
{
    QFile file(folder + u'/' + name);
    return QDir().mkpath(folder) && file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

} // namespace

bool press(const QString &key)
{
    return runs(u"xdotool"_s, {u"key"_s, key});
}

bool type(const QString &text)
{
    return runs(u"xdotool"_s, {u"type"_s, u"--delay"_s, u"2"_s, text});
}

bool click(QPoint place)
{
    return runs(u"xdotool"_s,
        {u"mousemove"_s, u"--sync"_s, QString::number(place.x()), QString::number(place.y()), u"click"_s, u"1"_s});
}

bool activate(quintptr window)
{
    return runs(u"xdotool"_s, {u"windowactivate"_s, u"--sync"_s, QString::number(window)});
}

qint64 activeProcess()
{
    // xdotool complains of a session without an active window, which is no failure here.
    QProcess process;
    process.start(u"xdotool"_s, {u"getactivewindow"_s, u"getwindowpid"_s});
    process.waitForFinished(20'000);
    return process.readAllStandardOutput().trimmed().toLongLong();
}

int windowCount(const QString &windowClass)
{
    QProcess process;
    process.start(u"xdotool"_s, {u"search"_s, u"--onlyvisible"_s, u"--class"_s, windowClass});
    process.waitForFinished(20'000);
    return int(process.readAllStandardOutput().count('\n'));
}

bool setBrowser(const QString &command, const QString &dataFolder, const QString &configFolder)
{
    return write(dataFolder + u"/applications"_s, u"journey-browser.desktop"_s,
               "[Desktop Entry]\nType=Application\nName=Browser\nExec=" + command.toUtf8()
                   + " %u\nMimeType=x-scheme-handler/http;\n")
        && write(configFolder, u"mimeapps.list"_s,
            "[Default Applications]\nx-scheme-handler/http=journey-browser.desktop\n");
}

QString dataFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
}

QString configFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
}

} // namespace desktop
