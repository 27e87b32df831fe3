#include "platform/FolderCopy.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <memory>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

void write(const QString &path, const QByteArray &content, QFile::Permissions more = {})
{
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
    file.setPermissions(file.permissions() | more);
}

QByteArray read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// All that a folder holds, in words: "f 755 bin/program CONTENT", "d 755 empty", "l link TARGET".
QStringList contentOf(const QString &folder)
{
    QStringList content;
    QDirIterator each(
        folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (each.hasNext()) {
        const QString path = each.next();
        const QString name = QDir(folder).relativeFilePath(path);
        struct stat status { };
        ::lstat(QFile::encodeName(path).constData(), &status);
        const QString mode = QString::number(status.st_mode & 0777, 8);
        if (S_ISLNK(status.st_mode)) {
            char target[256] = {};
            const bool isRead = ::readlink(QFile::encodeName(path).constData(), target, sizeof target - 1) > 0;
            content += u"l %1 %2"_s.arg(name, isRead ? QFile::decodeName(target) : u"?"_s);
        } else if (S_ISDIR(status.st_mode)) {
            content += u"d %1 %2"_s.arg(mode, name);
        } else {
            content += u"f %1 %2 %3"_s.arg(mode, name, QString::fromUtf8(read(path)).left(40));
        }
    }
    content.sort();
    return content;
}

QStringList namesIn(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

// What this program does when it is started with "--copy SOURCE DESTINATION".
int copy(char *argv[])
{
    const auto copied = replaceFolder(QFile::decodeName(argv[2]), QFile::decodeName(argv[3]));
    if (!copied) {
        std::puts(qPrintable(copied.failure().localizedDescription()));
    }
    return copied ? 0 : 1;
}

} // namespace

class tst_FolderCopy : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_source = m_folder->filePath(u"down loads/Quillmere Studio.app"_s);
        m_destination = m_folder->filePath(u"home/Applications/Quillmere Studio.app"_s);
        write(m_source + u"/bin/program"_s, "new program", QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther);
        write(m_source + u"/share/a file"_s, "new text");
    }

    void copiesFilesLinksEmptyFoldersAndRights()
    {
        write(m_source + u"/share/.hidden"_s, "hidden");
        write(m_source + u"/share/nothing"_s, "");
        write(m_source + u"/share/\u00fc\u0308 \u2728"_s, "another alphabet");
        QVERIFY(QDir().mkpath(m_source + u"/share/empty/emptier"_s));
        QVERIFY(QFile::link(u"a file"_s, m_source + u"/share/link"_s));
        QVERIFY(QFile::link(u"/nowhere"_s, m_source + u"/share/dangling"_s));
        QVERIFY(QFile::link(u"empty"_s, m_source + u"/share/link to a folder"_s));
        QVERIFY(QFile::setPermissions(m_source + u"/share/a file"_s, QFile::ReadOwner));
        write(m_source + u"/closed/inside"_s, "kept");
        ::chmod(QFile::encodeName(m_source + u"/closed"_s).constData(), 0555);
        const QStringList before = contentOf(m_source);

        const auto copied = replaceFolder(m_source, m_destination);
        QVERIFY2(copied, copied ? "" : qPrintable(copied.failure().localizedDescription()));
        QCOMPARE(*copied, m_destination);
        QCOMPARE(contentOf(m_destination), before);
        QVERIFY(before.contains(u"f 755 bin/program new program"_s));
        QCOMPARE(contentOf(m_source), before);
        leavesNothingBeside();
    }

    void takesThePlaceOf_data()
    {
        QTest::addColumn<QString>("what");
        for (const char *what :
            {"nothing", "a folder", "a folder that nobody may write to", "a file", "a link", "a dangling link"}) {
            QTest::newRow(what) << QString::fromLatin1(what);
        }
    }
    void takesThePlaceOf()
    {
        QFETCH(QString, what);
        const QString elsewhere = m_folder->filePath(u"elsewhere"_s);
        write(elsewhere + u"/kept"_s, "not mine");
        if (what.startsWith(u"a folder"_s)) {
            write(m_destination + u"/bin/program"_s, "old program");
            write(m_destination + u"/bin/old only"_s, "old");
            if (what != u"a folder"_s) {
                ::chmod(QFile::encodeName(m_destination + u"/bin"_s).constData(), 0555);
            }
        } else if (what == u"a file"_s) {
            write(m_destination, "a file");
        } else if (what != u"nothing"_s) {
            QVERIFY(QDir().mkpath(QFileInfo(m_destination).path()));
            QVERIFY(QFile::link(what == u"a link"_s ? elsewhere : u"/nowhere"_s, m_destination));
        }
        const auto copied = replaceFolder(m_source, m_destination);
        QVERIFY2(copied, copied ? "" : qPrintable(copied.failure().localizedDescription()));
        QVERIFY(!QFileInfo(m_destination).isSymLink());
        QCOMPARE(contentOf(m_destination), contentOf(m_source));
        QCOMPARE(namesIn(elsewhere), QStringList{u"kept"_s});
        leavesNothingBeside();
    }

    void followsALinkThatTheSourceIs()
    {
        const QString link = m_folder->filePath(u"link"_s);
        QVERIFY(QFile::link(m_source, link));
        QVERIFY(replaceFolder(link, m_destination));
        QVERIFY(!QFileInfo(m_destination).isSymLink());
        QCOMPARE(contentOf(m_destination), contentOf(m_source));
    }

    void failsAndLeavesWhatWasThereWhenTheSourceIs_data()
    {
        QTest::addColumn<QString>("what");
        QTest::addColumn<QString>("reason");
        QTest::newRow("not there") << u"gone"_s << u"No such file or directory"_s;
        QTest::newRow("a file") << u"down loads/Quillmere Studio.app/bin/program"_s << u"Not a directory"_s;
    }
    void failsAndLeavesWhatWasThereWhenTheSourceIs()
    {
        QFETCH(QString, what);
        QFETCH(QString, reason);
        keepsTheOldOne([&] { return replaceFolder(m_folder->filePath(what), m_destination); }, reason);
    }

    void failsAndLeavesWhatWasThereWhenTheSourceHoldsAPipe()
    {
        QCOMPARE(::mkfifo(QFile::encodeName(m_source + u"/share/pipe"_s).constData(), 0600), 0);
        keepsTheOldOne([&] { return replaceFolder(m_source, m_destination); }, u"neither a file"_s);
    }

    void failsWhenTheDestinationLiesInTheSource()
    {
        const QString within = m_source + u"/share/Applications/Quillmere Studio.app"_s;
        const auto copied = replaceFolder(m_source, within);
        QVERIFY(!copied);
        QVERIFY(copied.failure().localizedDescription().contains(u"lies within"_s));
        QVERIFY(!QFile::exists(within));
    }

    void failsAndLeavesWhatWasThereWhileAnotherCopies()
    {
        QVERIFY(QDir().mkpath(QFileInfo(m_destination).path()));
        QLockFile lock(m_destination + u".lock"_s);
        QVERIFY(lock.lock());
        keepsTheOldOne([&] { return replaceFolder(m_source, m_destination); }, u"Something else is copying"_s);
    }

    void failsAndLeavesWhatWasThereOnAFullDisk()
    {
        const QString disk = qEnvironmentVariable("SMALL_DISK");
        QVERIFY(!disk.isEmpty());
        m_destination = disk + u"/Applications/Quillmere Studio.app"_s;
        write(m_source + u"/share/large"_s, QByteArray(1'500'000, 'x'));
        keepsTheOldOne([&] { return replaceFolder(m_source, m_destination); }, u"No space left on device"_s);
        // What the failed copy had taken is free again.
        QFile::remove(m_source + u"/share/large"_s);
        write(m_source + u"/share/fits"_s, QByteArray(700'000, 'x'));
        QVERIFY(replaceFolder(m_source, m_destination));
    }

    void failsOnADiskThatNobodyCanWriteTo()
    {
        const QString disk = qEnvironmentVariable("READ_ONLY_DISK");
        QVERIFY(!disk.isEmpty());
        const auto copied = replaceFolder(m_source, disk + u"/Applications/Quillmere Studio.app"_s);
        QVERIFY(!copied);
        QCOMPARE(copied.failure().kind(), Failure::Kind::File);
        QVERIFY(copied.failure().localizedDescription().contains(u"Read-only file system"_s));
    }

    void leavesTheOldOrTheNewOneWhenItIsKilled_data()
    {
        QTest::addColumn<int>("filesBeforeTheKill");
        for (const int files : {1, 5, 10, 20, 30, 40, 50, 60, 70, 80, 90, 98, 102}) {
            QTest::addRow("with %d files copied", files) << files;
        }
    }
    void leavesTheOldOrTheNewOneWhenItIsKilled()
    {
        QFETCH(int, filesBeforeTheKill);
        for (int i = 0; i < 100; ++i) {
            write(m_source + u"/share/file %1"_s.arg(i), QByteArray(20'000, 'n'));
            write(m_destination + u"/share/file %1"_s.arg(i), QByteArray(20'000, 'o'));
        }
        write(m_destination + u"/bin/program"_s, "old program", QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther);
        write(m_destination + u"/share/a file"_s, "old text");
        const QStringList older = contentOf(m_destination);
        const QStringList newer = contentOf(m_source);

        QProcess process;
        process.start(QCoreApplication::applicationFilePath(), {u"--copy"_s, m_source, m_destination});
        QVERIFY(process.waitForStarted());
        // Looks without a pause: the copy takes a few dozen milliseconds.
        const QString parent = QFileInfo(m_destination).path();
        const auto copied = [&] {
            int files = 0;
            QDirIterator each(parent, {u"file *"_s, u"a file"_s, u"program"_s}, QDir::Files | QDir::Hidden,
                QDirIterator::Subdirectories);
            while (each.hasNext()) {
                files += !each.next().startsWith(m_destination);
            }
            return files;
        };
        while (copied() < filesBeforeTheKill && !process.waitForFinished(0)) { }
        process.kill();
        process.waitForFinished();

        const QStringList left = contentOf(m_destination);
        QVERIFY(left == older || left == newer);
        // The next one clears away what is left, and succeeds.
        QVERIFY(replaceFolder(m_source, m_destination));
        QCOMPARE(contentOf(m_destination), newer);
        leavesNothingBeside();
    }

private:
    void leavesNothingBeside()
    {
        QCOMPARE(namesIn(QFileInfo(m_destination).path()), QStringList{QFileInfo(m_destination).fileName()});
    }

    template <typename Copy> void keepsTheOldOne(Copy copy, const QString &reason)
    {
        write(m_destination + u"/bin/program"_s, "old program");
        const QStringList before = contentOf(m_destination);
        const auto copied = copy();
        QVERIFY(!copied);
        QCOMPARE(copied.failure().kind(), Failure::Kind::File);
        QVERIFY2(copied.failure().localizedDescription().contains(reason),
            qPrintable(copied.failure().localizedDescription()));
        QCOMPARE(contentOf(m_destination), before);
        QStringList beside = namesIn(QFileInfo(m_destination).path());
        beside.removeAll(QFileInfo(m_destination).fileName() + u".lock"_s);
        QCOMPARE(beside, QStringList{QFileInfo(m_destination).fileName()});
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_source;
    QString m_destination;
};

} // namespace quillmere

int main(int argc, char *argv[])
{
    if (argc == 4 && std::strcmp(argv[1], "--copy") == 0) {
        return quillmere::copy(argv);
    }
    QCoreApplication application(argc, argv);
    quillmere::tst_FolderCopy test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_FolderCopy.moc"
