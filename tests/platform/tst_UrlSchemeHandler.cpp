#include "platform/UrlSchemeHandler.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

const QString scheme = u"com.quillmere.studio"_s;

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool write(const QString &path, const QByteArray &content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

// Sets the time of change of a file or link itself, and says whether it still has it.
constexpr time_t longAgo = 1'000'000'000;
bool datesBack(const QString &path)
{
    const timespec times[2] = {{longAgo, 0}, {longAgo, 0}};
    return utimensat(AT_FDCWD, qPrintable(path), times, AT_SYMLINK_NOFOLLOW) == 0;
}
bool isUntouched(const QString &path)
{
    struct stat status = {};
    return lstat(qPrintable(path), &status) == 0 && status.st_mtim.tv_sec == longAgo;
}

} // namespace

class tst_UrlSchemeHandler : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;

    QString path(const QString &below) const { return m_folder->path() + u'/' + below; }
    QString home() const { return path(u"home"_s); }
    QString entry() const { return path(u"data/applications/com.quillmere.studio.desktop"_s); }
    QString link() const { return home() + u"/.local/bin/com.quillmere.studio"_s; }

    static QByteArray entryWith(const QByteArray &exec)
    {
        return "[Desktop Entry]\nType=Application\nName=Quillmere Studio\nExec=" + exec
            + " %u\nNoDisplay=true\nMimeType=x-scheme-handler/com.quillmere.studio;\n";
    }

    // A program in a path with blanks that notes the arguments with which it is started.
    QString program(const QString &folder = u"Quillmere Studio.app"_s)
    {
        const QString file = path(folder + u"/bin/quillmere-studio"_s);
        write(file,
            "#!/bin/sh\nprintf '%s\\n' \"$#\" \"$@\" >'" + noted().toUtf8() + ".new' && mv '" + noted().toUtf8()
                + ".new' '" + noted().toUtf8() + "'\n");
        QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return file;
    }
    QString noted() const { return path(u"started-with"_s); }

    static QByteArray validates(const QString &entry)
    {
        QProcess validator;
        validator.setProcessChannelMode(QProcess::MergedChannels);
        validator.start(u"desktop-file-validate"_s, {entry});
        if (!validator.waitForFinished() || validator.exitCode() != 0) {
            return "not valid: " + validator.errorString().toUtf8() + validator.readAll();
        }
        return validator.readAll();
    }

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QDir().mkpath(home());
        qputenv("HOME", home().toLocal8Bit());
        qputenv("XDG_DATA_HOME", path(u"data"_s).toLocal8Bit());
        qputenv("XDG_CONFIG_HOME", path(u"config"_s).toLocal8Bit());
        qputenv("XDG_CACHE_HOME", path(u"cache"_s).toLocal8Bit());
        qputenv("XDG_DATA_DIRS", path(u"system"_s).toLocal8Bit() + ":" + path(u"local"_s).toLocal8Bit());
    }

    void writesOneEntryAndOneLink()
    {
        const QString target = program();
        QVERIFY(installUrlSchemeHandler(scheme, target));
        QCOMPARE(contentOf(entry()), entryWith(link().toUtf8()));
        QCOMPARE(QFile::symLinkTarget(link()), target);
        QVERIFY(!link().contains(u' '));
    }

    void writesAValidEntry()
    {
        QVERIFY(installUrlSchemeHandler(scheme, program()));
        QCOMPARE(validates(entry()), QByteArray());
    }

    void leavesAloneWhatIsRight()
    {
        const QString target = program();
        QVERIFY(installUrlSchemeHandler(scheme, target));
        QVERIFY(datesBack(entry()));
        QVERIFY(datesBack(link()));
        QVERIFY(installUrlSchemeHandler(scheme, target));
        QVERIFY(isUntouched(entry()));
        QVERIFY(isUntouched(link()));
    }

    void mendsTheLinkAfterAMove()
    {
        QVERIFY(installUrlSchemeHandler(scheme, program()));
        QVERIFY(datesBack(entry()));
        const QString moved = program(u"elsewhere/Quillmere Studio.app"_s);
        QVERIFY(installUrlSchemeHandler(scheme, moved));
        QCOMPARE(QFile::symLinkTarget(link()), moved);
        QVERIFY(isUntouched(entry()));
    }

    void mendsALinkThatLeadsNowhere()
    {
        QVERIFY(installUrlSchemeHandler(scheme, path(u"gone/quillmere-studio"_s)));
        const QString target = program();
        QVERIFY(installUrlSchemeHandler(scheme, target));
        QCOMPARE(QFile::symLinkTarget(link()), target);
    }

    void mendsAnEntryThatIsWrong()
    {
        QVERIFY(write(entry(), "[Desktop Entry]\nType=Application\nExec=/somewhere/else %u\n"));
        QVERIFY(installUrlSchemeHandler(scheme, program()));
        QCOMPARE(contentOf(entry()), entryWith(link().toUtf8()));
    }

    void writesNothingWhereAPackageHasDone()
    {
        QVERIFY(write(path(u"local/applications/com.quillmere.studio.desktop"_s), entryWith("/opt/quillmere-studio")));
        QVERIFY(installUrlSchemeHandler(scheme, program()));
        QVERIFY(!QFile::exists(entry()));
        QVERIFY(!QFileInfo(link()).isSymLink());
        QCOMPARE(QDir(home()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList());
    }

    void makesWayForAPackageThatCameLater()
    {
        QVERIFY(installUrlSchemeHandler(scheme, program()));
        QVERIFY(
            write(path(u"local/applications/com.quillmere.studio.desktop"_s), entryWith("/usr/bin/quillmere-studio")));
        QVERIFY(installUrlSchemeHandler(scheme, u"/usr/bin/quillmere-studio"_s));
        QVERIFY(!QFile::exists(entry()));
        QVERIFY(!QFileInfo(link()).isSymLink());
    }

    void leavesAnEntryAloneThatSomebodyElseWrote()
    {
        QVERIFY(write(entry(), entryWith("/somewhere/else")));
        QVERIFY(
            write(path(u"local/applications/com.quillmere.studio.desktop"_s), entryWith("/usr/bin/quillmere-studio")));
        QVERIFY(installUrlSchemeHandler(scheme, u"/usr/bin/quillmere-studio"_s));
        QCOMPARE(contentOf(entry()), entryWith("/somewhere/else"));
    }

    void saysWhenItCannotWrite_data()
    {
        QTest::addColumn<QString>("obstacle");
        QTest::newRow("no folder for the link") << u"home/.local"_s;
        QTest::newRow("no folder for the entry") << u"data"_s;
    }
    void saysWhenItCannotWrite()
    {
        QFETCH(QString, obstacle);
        QVERIFY(write(path(obstacle), "a file where a folder should be"));
        QVERIFY(!installUrlSchemeHandler(scheme, program()));
    }

    void quotesAHomeThatNeedsIt_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::addColumn<QByteArray>("inExec");
        QTest::newRow("a blank") << u"a b"_s << QByteArray("a b");
        QTest::newRow("a dollar sign") << u"a$b"_s << QByteArray("a\\\\$b");
        QTest::newRow("a percent sign and a blank") << u"5% b"_s << QByteArray("5%% b");
    }
    void quotesAHomeThatNeedsIt()
    {
        QFETCH(QString, folder);
        QFETCH(QByteArray, inExec);
        const QByteArray home = path(folder).toUtf8();
        QVERIFY(QDir().mkpath(path(folder)));
        qputenv("HOME", home);
        QVERIFY(installUrlSchemeHandler(scheme, program()));
        QCOMPARE(contentOf(entry()),
            entryWith('"' + m_folder->path().toUtf8() + '/' + inExec + "/.local/bin/com.quillmere.studio\""));
        QCOMPARE(validates(entry()), QByteArray());
    }

    void theDesktopStartsTheProgramWithTheUrlUnchanged_data()
    {
        QTest::addColumn<QByteArray>("url");
        QTest::newRow("tokens in the fragment")
            << QByteArray("com.quillmere.studio://callback#access_token=x&expires_in=3600&state=a%20b%2Fc");
        QTest::newRow("a token in the query")
            << QByteArray("com.quillmere.studio://callback?access_token=x&refresh_token=y");
    }
    void theDesktopStartsTheProgramWithTheUrlUnchanged()
    {
        QFETCH(QByteArray, url);
        QVERIFY(installUrlSchemeHandler(scheme, program()));
        QProcess opener;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"DISPLAY"_s, u":none"_s); // xdg-open looks for handlers only where there is a display
        for (const QString &desktop : {u"XDG_CURRENT_DESKTOP"_s, u"DESKTOP_SESSION"_s, u"KDE_FULL_SESSION"_s,
                 u"GNOME_DESKTOP_SESSION_ID"_s, u"WAYLAND_DISPLAY"_s}) {
            environment.remove(desktop);
        }
        opener.setProcessEnvironment(environment);
        opener.setProcessChannelMode(QProcess::MergedChannels);
        opener.start(u"xdg-open"_s, {QString::fromUtf8(url)});
        QVERIFY2(opener.waitForFinished(), qPrintable(opener.errorString()));
        QVERIFY2(opener.exitCode() == 0, opener.readAll());
        QVERIFY(QTest::qWaitFor([this] { return QFile::exists(noted()); }, 30'000));
        QCOMPARE(contentOf(noted()), "1\n" + url + '\n');
    }
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_UrlSchemeHandler)
#include "tst_UrlSchemeHandler.moc"
