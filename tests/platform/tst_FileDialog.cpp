#include "platform/DesktopFilePicker.h"
#include "platform/FileDialog.h"
#include "support/PlatformEnvironment.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QThreadPool>

#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using quillmere::testing::eventually;
using quillmere::testing::settle;

namespace quillmere {

class tst_FileDialog : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        qputenv("HOME", QFile::encodeName(m_folder->path()));
        m_world = std::make_unique<testing::PlatformEnvironment>();
        m_picked.reset();
    }
    void cleanup()
    {
        m_world.reset();
        // Whoever waited still hears of it.
        settle();
    }

    void showsTheHomeFolderAtFirst()
    {
        write(u"a.json"_s);
        opens();
        QVERIFY(dialog().isUp());
        QCOMPARE(dialog().title(), u"Choose"_s);
        QCOMPARE(dialog().typesName(), u"Data"_s);
        QCOMPARE(dialog().folder(), m_folder->path());
        QCOMPARE(names(), QStringList(u"a.json"_s));
    }

    void listsFoldersFirstAndCountsAsPeopleDo()
    {
        for (const QString &name : {u"part 10.txt"_s, u"Part 9.txt"_s, u"b.csv"_s, u"A.json"_s}) {
            write(name);
        }
        QDir(m_folder->path()).mkdir(u"zoo"_s);
        opens();
        QCOMPARE(names(), QStringList({u"zoo"_s, u"A.json"_s, u"b.csv"_s, u"Part 9.txt"_s, u"part 10.txt"_s}));
        QCOMPARE(value(0, "isFolder"), true);
        QCOMPARE(value(1, "isFolder"), false);
        QCOMPARE(value(0, "size"), QString());
        QCOMPARE(value(1, "size"), u"3 bytes"_s);
        QVERIFY(!value(1, "changed").toString().isEmpty());
    }

    void listsOnlyWhatCanBeChosen()
    {
        write(u"data.json"_s);
        write(u"data.csv"_s, "a,b\n1,2\n");
        write(u"notes.txt"_s, "words\n");
        // The desktop has no type for it, so its content tells that it is text.
        write(u"train.jsonl"_s, "{\"prompt\": \"a\"}\n{\"prompt\": \"b\"}\n");
        write(u"picture.png"_s, "\x89PNG\r\n\x1a\n");
        write(u"archive.zip"_s, "PK\x03\x04");
        write(u".hidden.json"_s);
        mkfifo(qPrintable(m_folder->filePath(u"pipe.json"_s)), 0600);
        opens();
        QCOMPARE(names(), QStringList({u"data.csv"_s, u"data.json"_s, u"notes.txt"_s, u"train.jsonl"_s}));
    }

    void goesIntoFoldersAndBackToWhereItCameFrom()
    {
        QDir(m_folder->path()).mkpath(u"one/deep"_s);
        QDir(m_folder->path()).mkpath(u"two"_s);
        opens();
        QCOMPARE(m_row, 0);
        goes([this] { dialog().open(1); });
        QCOMPARE(dialog().folder(), m_folder->filePath(u"two"_s));
        QVERIFY(names().isEmpty());
        goes([this] { dialog().goUp(); });
        QCOMPARE(dialog().folder(), m_folder->path());
        QCOMPARE(m_row, 1);
        QVERIFY(!m_picked);
    }

    void stopsAtTheRoot()
    {
        opens();
        goes([this] { dialog().goTo(u"/"_s); });
        goes([this] { dialog().goUp(); });
        QCOMPARE(dialog().folder(), u"/"_s);
    }

    void picksAFile()
    {
        write(u"a.json"_s);
        opens();
        dialog().open(0);
        QVERIFY(!dialog().isUp());
        QVERIFY(eventually([this] { return m_picked.has_value(); }));
        QCOMPARE(*m_picked, QList<QUrl>{QUrl::fromLocalFile(m_folder->filePath(u"a.json"_s))});
    }

    void opensNoRowThatIsNotThere()
    {
        opens();
        dialog().open(0);
        dialog().open(-1);
        settle();
        QVERIFY(dialog().isUp());
    }

    void goesToATypedPath_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("folder");
        QTest::newRow("whole") << u"HOME/one/two"_s << u"one/two"_s;
        QTest::newRow("from the folder shown") << u"one"_s << u"one"_s;
        QTest::newRow("from home") << u"~/one/two"_s << u"one/two"_s;
        QTest::newRow("home") << u"~"_s << u""_s;
        QTest::newRow("with a slash at its end and a detour") << u"one/../one/two/"_s << u"one/two"_s;
    }
    void goesToATypedPath()
    {
        QFETCH(QString, typed);
        QFETCH(QString, folder);
        QDir(m_folder->path()).mkpath(u"one/two"_s);
        opens();
        goes([&] { dialog().goTo(typed.replace(u"HOME"_s, m_folder->path())); });
        QCOMPARE(dialog().folder(), QDir::cleanPath(m_folder->filePath(folder)));
        QVERIFY(dialog().problem().isEmpty());
    }

    void picksATypedFile()
    {
        write(u"a.json"_s);
        opens();
        dialog().goTo(u"a.json"_s);
        QVERIFY(eventually([this] { return m_picked.has_value(); }));
        QCOMPARE(*m_picked, QList<QUrl>{QUrl::fromLocalFile(m_folder->filePath(u"a.json"_s))});
    }

    void refusesATypedFileOfAnotherType()
    {
        write(u"a.png"_s, "\x89PNG\r\n\x1a\n");
        write(u"a.json"_s);
        opens();
        dialog().goTo(u"a.png"_s);
        QVERIFY(eventually([this] { return !dialog().problem().isEmpty(); }));
        QCOMPARE(dialog().problem(), u"A file of this type cannot be chosen."_s);
        QVERIFY(dialog().isUp());
        QCOMPARE(names(), QStringList(u"a.json"_s));
    }

    void saysWhyAFolderCannotBeShownAndStays()
    {
        write(u"a.json"_s);
        opens();
        dialog().goTo(u"/nowhere"_s);
        QVERIFY(eventually([] { return dialog().problem() == u"No such file or directory"_s; }));
        QCOMPARE(dialog().folder(), m_folder->path());
        QCOMPARE(names(), QStringList(u"a.json"_s));
        goes([this] { dialog().goTo(u"~"_s); });
        QVERIFY(dialog().problem().isEmpty());
    }

    void findsANameByItsBeginning()
    {
        write(u"alpha.json"_s);
        write(u"Beta.json"_s);
        opens();
        QCOMPARE(dialog().seek(u"b"_s), 1);
        m_world->clock.advance(1s);
        QCOMPARE(dialog().seek(u"AL"_s), 0);
        m_world->clock.advance(1s);
        QCOMPARE(dialog().seek(u"z"_s), -1);
    }

    void findsANameByLettersThatFollowOneAnotherSoon()
    {
        write(u"alpha.json"_s);
        write(u"album.json"_s);
        write(u"lemon.json"_s);
        opens();
        QCOMPARE(dialog().seek(u"a"_s), 0);
        m_world->clock.advance(999ms);
        QCOMPARE(dialog().seek(u"l"_s), 0);
        m_world->clock.advance(999ms);
        QCOMPARE(dialog().seek(u"p"_s), 1);
        m_world->clock.advance(1s);
        QCOMPARE(dialog().seek(u"l"_s), 2);
    }

    void forgetsInAnotherFolderWhatWasSoughtInTheLast()
    {
        QVERIFY(QDir(m_folder->path()).mkdir(u"alpha"_s));
        write(u"alpha/lemon.json"_s);
        opens();
        QCOMPARE(dialog().seek(u"a"_s), 0);
        dialog().open(0);
        QVERIFY(eventually([] { return dialog().folder().endsWith(u"/alpha"_s); }));
        QCOMPARE(dialog().seek(u"l"_s), 0);
    }

    void picksNothingWhenClosed()
    {
        opens();
        dialog().close();
        QVERIFY(!dialog().isUp());
        QVERIFY(eventually([this] { return m_picked.has_value(); }));
        QVERIFY(m_picked->isEmpty());
        dialog().close();
    }

    void comesBackWhereItWasLeft()
    {
        QDir(m_folder->path()).mkdir(u"one"_s);
        opens();
        goes([this] { dialog().open(0); });
        dialog().close();
        opens();
        QCOMPARE(dialog().folder(), m_folder->filePath(u"one"_s));
    }

    void comesBackToTheHomeFolderWhereThatOneHasGone()
    {
        QDir(m_folder->path()).mkdir(u"one"_s);
        opens();
        goes([this] { dialog().open(0); });
        dialog().close();
        QVERIFY(QDir(m_folder->path()).rmdir(u"one"_s));
        // A file in its place is not picked either.
        write(u"one"_s);
        write(u"a.json"_s);
        opens();
        QCOMPARE(dialog().folder(), m_folder->path());
        QVERIFY(names().contains(u"a.json"_s));
        QVERIFY(dialog().problem().isEmpty());
        QVERIFY(dialog().isUp());
    }

    void showsTheLastFolderAskedFor()
    {
        QDir(m_folder->path()).mkdir(u"one"_s);
        QDir(m_folder->path()).mkdir(u"two"_s);
        opens();
        dialog().goTo(m_folder->filePath(u"one"_s));
        dialog().goTo(m_folder->filePath(u"two"_s));
        QVERIFY(eventually([&] { return dialog().folder() == m_folder->filePath(u"two"_s); }));
        QThreadPool::globalInstance()->waitForDone();
        settle();
        QCOMPARE(dialog().folder(), m_folder->filePath(u"two"_s));
    }

    void answersWhenTheProgramEnds()
    {
        opens();
        m_world.reset();
        QVERIFY(eventually([this] { return m_picked.has_value(); }));
        QVERIFY(m_picked->isEmpty());
    }

    // This test's session has no bus, so no desktop either.
    void isWhatTheDesktopPickerShowsWithoutAPortal()
    {
        write(u"a.json"_s);
        DesktopFilePicker picker;
        picker.pick(request()).then([this](Result<QList<QUrl>> picked) { m_picked = *picked; });
        QVERIFY(eventually([this] { return dialog().isUp() && names().size() == 1; }));
        // One at a time.
        std::optional<QList<QUrl>> second;
        picker.pick(request()).then([&](Result<QList<QUrl>> picked) { second = *picked; });
        QVERIFY(eventually([&] { return second.has_value(); }));
        QVERIFY(second->isEmpty());
        QVERIFY(dialog().isUp());

        picker.cancel();
        QVERIFY(!dialog().isUp());
        QVERIFY(eventually([this] { return m_picked.has_value(); }));
        QVERIFY(m_picked->isEmpty());
    }

private:
    static FileDialog &dialog() { return FileDialog::shared(); }
    static FileRequest request()
    {
        return {u"Choose"_s, u"Data"_s, {u"application/json"_s, u"text/plain"_s, u"text/csv"_s}};
    }

    void opens()
    {
        m_picked.reset();
        goes([this] { dialog().pick(request()).then([this](Result<QList<QUrl>> picked) { m_picked = *picked; }); });
    }

    template <typename Step> void goes(Step step)
    {
        QSignalSpy listed(&dialog(), &FileDialog::listed);
        step();
        QVERIFY(eventually([&] { return listed.size() == 1; }));
        m_row = listed.first().first().toInt();
    }

    QVariant value(int row, const QByteArray &role) const
    {
        QAbstractItemModel *entries = dialog().entries();
        return entries->data(entries->index(row, 0), entries->roleNames().key(role));
    }
    QStringList names() const
    {
        QStringList names;
        for (int row = 0; row < dialog().entries()->rowCount(); ++row) {
            names.append(value(row, "identifier").toString());
        }
        return names;
    }

    void write(const QString &name, const QByteArray &content = "{}\n") const
    {
        QFile file(m_folder->filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<testing::PlatformEnvironment> m_world;
    std::optional<QList<QUrl>> m_picked;
    int m_row = -1;
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_FileDialog)
#include "tst_FileDialog.moc"
