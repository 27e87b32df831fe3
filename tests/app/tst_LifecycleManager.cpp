#include "app/LifecycleManager.h"

#include "app/RootViewState.h"
#include "app/UpdateManager.h"
#include "platform/Alerts.h"
#include "platform/MainQueue.h"
#include "support/TestEnvironment.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using quillmere::testing::eventually;
using quillmere::testing::settle;

namespace quillmere {

namespace {

Alerts &alerts()
{
    return Alerts::shared();
}

} // namespace

class tst_LifecycleManager : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_home = m_folder->filePath(u"home"_s);
        QVERIFY(QDir().mkpath(m_home));
        qputenv("HOME", QFile::encodeName(m_home));
        m_world = std::make_unique<testing::TestEnvironment>();
        auto &environment = m_world->environment;
        environment.relaunch = [this](const QString &program) { m_ends += u"starts "_s + program; };
        environment.terminate = [this] { m_ends += u"ends"_s; };
        m_ends.clear();
        m_bundle = m_folder->filePath(u"down loads/Quillmere Studio.app"_s);
        runsFrom(m_bundle + u"/bin/quillmere-studio"_s);
        QVERIFY(QDir().mkpath(m_bundle + u"/bin"_s));
        QFile program(m_bundle + u"/bin/quillmere-studio"_s);
        QVERIFY(program.open(QIODevice::WriteOnly));
        program.write("a program");
    }
    void cleanup() { m_world.reset(); }

    void offersToMoveABundleFromElsewhere()
    {
        LifecycleManager::checkLocation();
        QVERIFY(alerts().isUp());
        QCOMPARE(alerts().title(), u"Move to Applications?"_s);
        QCOMPARE(alerts().text(),
            u"Quillmere Studio currently running from "_s + m_bundle
                + u".\n\nTo ensure the best experience and allow you to delete the installer, would you like to move "
                  u"the "
                  "app to the Applications folder?"_s);
        QCOMPARE(alerts().buttons(), (QStringList{u"Move to Applications"_s, u"Do Not Move"_s}));
    }

    void offersNothing_data()
    {
        QTest::addColumn<QString>("program");
        QTest::newRow("to the one in the applications folder")
            << u"/Applications/Quillmere Studio.app/bin/quillmere-studio"_s;
        QTest::newRow("to one deeper inside it") << u"/Applications/Tools/Q.app/bin/quillmere-studio"_s;
        QTest::newRow("to the one in the user's own") << u"~/Applications/Quillmere Studio.app/bin/quillmere-studio"_s;
        QTest::newRow("to one under /opt") << u"/opt/Quillmere Studio.app/bin/quillmere-studio"_s;
        QTest::newRow("to a package's") << u"/usr/bin/quillmere-studio"_s;
        QTest::newRow("to a build tree's") << u"/home/ada/build/local/src/app/quillmere-studio"_s;
        QTest::newRow("to one in a bin that is in no bundle") << u"/home/ada/bin/quillmere-studio"_s;
    }
    void offersNothing()
    {
        QFETCH(QString, program);
        runsFrom(program.replace(u'~', m_home));
        LifecycleManager::checkLocation();
        settle();
        QVERIFY(!alerts().isUp());
    }

    void offersToMoveFrom_data()
    {
        QTest::addColumn<QString>("program");
        QTest::newRow("a folder whose name only begins alike")
            << u"/ApplicationsX/Quillmere Studio.app/bin/quillmere-studio"_s;
        QTest::newRow("another user's folder") << u"/home/bob/Applications/Quillmere Studio.app/bin/quillmere-studio"_s;
        QTest::newRow("a folder with a percent sign") << u"/mnt/100%1/Quillmere Studio.app/bin/quillmere-studio"_s;
    }
    void offersToMoveFrom()
    {
        QFETCH(QString, program);
        runsFrom(program);
        LifecycleManager::checkLocation();
        QVERIFY(alerts().isUp());
        QVERIFY(alerts().text().contains(u"from "_s + QFileInfo(QFileInfo(program).path()).path() + u".\n"_s));
    }

    void goesOnWhenDeclined()
    {
        LifecycleManager::checkLocation();
        alerts().answer(1);
        settle();
        QVERIFY(!alerts().isUp());
        QVERIFY(m_ends.isEmpty());
        QCOMPARE(QDir(m_home).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList());
        LifecycleManager::checkLocation();
        QVERIFY(alerts().isUp());
    }

    void copiesStartsTheCopyAndEnds()
    {
        LifecycleManager::checkLocation();
        alerts().answer(0);
        QVERIFY(eventually([&] { return m_ends.size() == 2; }));
        const QString copy = m_home + u"/Applications/Quillmere Studio.app"_s;
        QCOMPARE(LifecycleManager::destination(), copy);
        QCOMPARE(m_ends, (QStringList{u"starts "_s + copy + u"/bin/quillmere-studio"_s, u"ends"_s}));
        QVERIFY(QFile::exists(copy + u"/bin/quillmere-studio"_s));
        QVERIFY(QFile::exists(m_bundle + u"/bin/quillmere-studio"_s));
        QVERIFY(!alerts().isUp());
    }

    void replacesWhatIsThereWithoutAsking()
    {
        const QString copy = m_home + u"/Applications/Quillmere Studio.app"_s;
        QVERIFY(QDir().mkpath(copy + u"/old"_s));
        LifecycleManager::checkLocation();
        alerts().answer(0);
        QVERIFY(eventually([&] { return m_ends.size() == 2; }));
        QVERIFY(!QFile::exists(copy + u"/old"_s));
        QVERIFY(QFile::exists(copy + u"/bin/quillmere-studio"_s));
    }

    void goesOnWhenItCannotCopy()
    {
        QFile inTheWay(m_home + u"/Applications"_s);
        QVERIFY(inTheWay.open(QIODevice::WriteOnly));
        LifecycleManager::checkLocation();
        alerts().answer(0);
        QVERIFY(eventually([] { return alerts().isUp(); }));
        QCOMPARE(alerts().title(), u"Could not move to Applications"_s);
        QVERIFY2(alerts().text().contains(u"Not a directory"_s), qPrintable(alerts().text()));
        QCOMPARE(alerts().buttons(), QStringList{u"OK"_s});
        alerts().answer(0);
        settle();
        QVERIFY(!alerts().isUp());
        QVERIFY(m_ends.isEmpty());
    }

    void endsThoughAnotherAlertComesUpMeanwhile()
    {
        auto &queue = MainQueue::shared();
        queue.asyncAfter(1s, this, [] { LifecycleManager::checkLocation(); });
        queue.asyncAfter(3s, this, [] { Alerts::shared().present(u"Update"_s, {}, {u"Later"_s}); });
        m_world->clock.advance(3s);
        settle();
        alerts().answer(0);
        QVERIFY(eventually([this] { return m_ends.size() == 2; }));
        QCOMPARE(m_ends.last(), u"ends"_s);
        QVERIFY(alerts().isUp());
    }

    void holdsBackWhatFallsDueUntilAnswered()
    {
        RootViewState root;
        root.appear();
        QStringList happened;
        connect(&root, &RootViewState::willChange, this, [&] { happened += u"session check"_s; });
        auto &queue = MainQueue::shared();
        queue.asyncAfter(1s, this, [] { LifecycleManager::checkLocation(); });
        queue.asyncAfter(3s, this, [&] { happened += u"update check"_s; });
        m_world->clock.advance(10s);
        settle();
        QVERIFY(alerts().isUp());
        QCOMPARE(happened, QStringList());
        QVERIFY(root.showSplash());

        alerts().answer(1);
        QVERIFY(eventually([&] { return happened.size() == 2; }));
        QCOMPARE(happened, (QStringList{u"session check"_s, u"update check"_s}));
    }

private:
    void runsFrom(const QString &program) { m_world->environment.program = program; }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<testing::TestEnvironment> m_world;
    QString m_home;
    QString m_bundle;
    QStringList m_ends;
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_LifecycleManager)

#include "tst_LifecycleManager.moc"
