#include "configuration/Hosts.h"
#include "journeys/Desktop.h"
#include "journeys/Studio.h"
#include "standin/StandIn.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRasterWindow>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString program = QStringLiteral(SHIPPED_PROGRAM);

} // namespace

// The shipped binary itself, in a home and a runtime directory of its own: one process however often it is started, and nothing
// on disk but what brings the browser back.
class tst_ShippedProgram : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_folder;

    QString home() const { return m_folder->filePath(u"home"_s); }

    QProcessEnvironment environment() const
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"HOME"_s, home());
        environment.insert(u"XDG_RUNTIME_DIR"_s, m_folder->filePath(u"runtime"_s));
        environment.remove(u"XDG_DATA_HOME"_s);
        environment.remove(u"XDG_CONFIG_HOME"_s);
        environment.remove(u"XDG_CACHE_HOME"_s);
        return environment;
    }

    std::unique_ptr<Studio> starts() const { return std::make_unique<Studio>(program, QStringList(), environment()); }

    // Starts the program once more and waits for the end of that process, which has to say nothing.
    bool startsAgain(const QStringList &arguments) const
    {
        Studio second(program, arguments, environment());
        return second.ends() && second.said().isEmpty();
    }

    QStringList filesAtHome() const
    {
        QStringList files;
        QDirIterator all(home(), QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
        while (all.hasNext()) {
            files.append(QDir(home()).relativeFilePath(all.next()));
        }
        files.sort();
        return files;
    }

    static bool isActive(qint64 processId)
    {
        return QTest::qWaitFor([&] { return desktop::activeProcess() == processId; }, 20'000);
    }

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir().mkpath(home()));
        const QString runtime = m_folder->filePath(u"runtime"_s);
        QVERIFY(QDir().mkpath(runtime));
        QVERIFY(QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }

    void handsOverAUrlOfItsScheme()
    {
        const auto studio = starts();
        QVERIFY(isActive(studio->processId()));
        QVERIFY(startsAgain({u"com.quillmere.studio://callback?x=1"_s}));
        QVERIFY(studio->says("Received URL: com.quillmere.studio://callback?x=1"));
        QVERIFY(studio->isRunning());
    }

    void printsTheUrlThatItIsItselfStartedWith()
    {
        Studio studio(program, {u"com.quillmere.studio://callback"_s}, environment());
        QVERIFY(studio.says("Received URL: com.quillmere.studio://callback"));
        QVERIFY(studio.focuses(u"Email"_s));
    }

    void comesToTheFrontForAnythingElse_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("nothing said") << QStringList();
        QTest::newRow("any text") << QStringList(u"hello"_s);
        QTest::newRow("a URL of another scheme") << QStringList(u"https://quillmere.example/callback"_s);
    }

    void comesToTheFrontForAnythingElse()
    {
        QFETCH(const QStringList, arguments);
        const auto studio = starts();
        QVERIFY(isActive(studio->processId()));
        QRasterWindow another;
        another.showMaximized();
        QVERIFY(QTest::qWaitForWindowExposed(&another));
        QVERIFY(desktop::activate(another.winId()));
        QVERIFY(isActive(QCoreApplication::applicationPid()));
        QVERIFY(startsAgain(arguments));
        QVERIFY(isActive(studio->processId()));
        QCOMPARE(studio->said(), QByteArray());
    }

    void comesBackFromBeingMinimised()
    {
        const auto studio = starts();
        QVERIFY(studio->shows(u"Minimize"_s));
        QVERIFY(isActive(studio->processId()));
        QVERIFY(studio->clicks(u"Minimize"_s));
        QVERIFY(isActive(0));
        QVERIFY(startsAgain({}));
        QVERIFY(isActive(studio->processId()));
    }

    void endsWithItsWindow()
    {
        const auto studio = starts();
        QVERIFY(studio->shows(u"Close"_s));
        QVERIFY(isActive(studio->processId()));
        QVERIFY(studio->clicks(u"Close"_s));
        QVERIFY(studio->ends());
        QCOMPARE(studio->said(), QByteArray());
        QCOMPARE(filesAtHome(), QStringList());
    }

    void writesNothingButWhatBringsTheBrowserBack()
    {
        // The origin is built in, so this one port may be taken by somebody else for a while.
        StandIn service;
        const auto port = quint16(QUrl(quillmere::Hosts::builtIn().loginHost).port());
        QVERIFY2(QTest::qWaitFor([&] { return service.listen(port); }, 30'000), qPrintable(service.errorString()));
        const QString secret = u"JBSWY3DPEHPK3PXPJBSWY3DPEHPK3PXP"_s;
        service.hasAccount(u"grace@example.org"_s, secret);
        QVERIFY(desktop::setBrowser(QStringLiteral(BROWSER), home() + u"/.local/share"_s, home() + u"/.config"_s));
        const QStringList atFirst = filesAtHome();

        const auto studio = starts();
        QVERIFY(studio->focuses(u"Email"_s));
        QCOMPARE(filesAtHome(), atFirst);
        QVERIFY(studio->entersCredentials(u"grace@example.org"_s, secret));
        QVERIFY(studio->shows(u"grace@example.org"_s));
        QVERIFY(desktop::press(u"alt+F4"_s));
        QVERIFY(studio->ends());

        QStringList added = filesAtHome();
        for (const QString &file : atFirst) {
            added.removeOne(file);
        }
        // The desktop's own index of that folder, made where there is the tool for it.
        added.removeOne(u".local/share/applications/mimeinfo.cache"_s);
        QCOMPARE(added,
            QStringList(
                {u".local/bin/com.quillmere.studio"_s, u".local/share/applications/com.quillmere.studio.desktop"_s}));
        QCOMPARE(QFile::symLinkTarget(home() + u"/.local/bin/com.quillmere.studio"_s), program);
        QCOMPARE(service.unexpectedRequests(), QStringList());
    }
};

QTEST_MAIN(tst_ShippedProgram)
#include "tst_ShippedProgram.moc"
