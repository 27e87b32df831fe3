#include "journeys/Studio.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

// The shipped program where there is no X server: its window says whose it is, and the sign-in shows.
class tst_WaylandStart : public QObject {
    Q_OBJECT

private slots:
    void opensAWindowThatIsNamedAfterTheDesktopEntry()
    {
        const QTemporaryDir folder;
        const QString log = folder.filePath(u"log"_s);
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"WAYLAND_DEBUG"_s, u"client"_s); // prints what goes over the wire
        const QStringList command{u"-c"_s, u"exec \"$0\" 2>\"$1\""_s, QStringLiteral(SHIPPED_PROGRAM), log};
        const Studio studio(u"sh"_s, command, environment);
        QVERIFY(studio.shows(u"Email"_s));
        QVERIFY(studio.shows(u"Continue"_s));

        QFile lines(log);
        QVERIFY(lines.open(QIODevice::ReadOnly));
        const QByteArray said = lines.readAll();
        QVERIFY(said.contains(".set_app_id(\"com.quillmere.studio\")"));
        QVERIFY(said.contains(".set_title(\"Quillmere Studio\")"));
        QVERIFY(studio.isRunning());
    }
};

QTEST_GUILESS_MAIN(tst_WaylandStart)
#include "tst_WaylandStart.moc"
