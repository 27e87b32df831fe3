#include "platform/FileReader.h"
#include "platform/ProcessMemory.h"
#include "support/PlatformEnvironment.h"

#include <QCoroTask>

#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using quillmere::testing::eventually;

namespace quillmere {

namespace {

constexpr qint64 megabyte = 1'000'000;

// What a file gives, waited for.
class Reading {
public:
    explicit Reading(const QUrl &file)
    {
        readFile(file).then([outcome = m_outcome](Result<QByteArray> result) { outcome->emplace(std::move(result)); });
    }

    bool ends(std::chrono::milliseconds limit = 5s) const
    {
        return eventually([this] { return m_outcome->has_value(); }, limit);
    }
    QByteArray content() const { return ends() && **m_outcome ? ***m_outcome : QByteArray("(failed)"); }
    QString failure() const
    {
        return ends() && !**m_outcome ? (*m_outcome)->failure().localizedDescription() : u"(none)"_s;
    }

private:
    std::shared_ptr<std::optional<Result<QByteArray>>> m_outcome =
        std::make_shared<std::optional<Result<QByteArray>>>();
};

} // namespace

class tst_FileReader : public QObject {
    Q_OBJECT

private slots:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void readsTheWholeFile_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("a line") << QByteArray("{}\n");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("every byte") << QByteArray("\0\r\n\xff\xfe", 5);
        QTest::newRow("three megabytes") << QByteArray(3 * megabyte + 1, 'x');
    }
    void readsTheWholeFile()
    {
        QFETCH(QByteArray, content);
        write(u"it.json"_s, content);
        QVERIFY(Reading(url(u"it.json"_s)).content() == content);
    }

    void readsFilesOfAnyName_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("quotes") << QByteArray("it's \"quoted\".json");
        QTest::newRow("a line break") << QByteArray("two\nlines.json");
        QTest::newRow("an emoji") << QByteArray("data \xf0\x9f\x8e\x89.csv");
        QTest::newRow("no extension") << QByteArray("README");
        QTest::newRow("per cent and hash") << QByteArray("100% #1?.txt");
        QTest::newRow("255 bytes") << QByteArray(251, 'n') + ".txt";
        QTest::newRow("no UTF-8") << QByteArray("caf\xe9.txt");
    }
    void readsFilesOfAnyName()
    {
        QFETCH(QByteArray, name);
        const QByteArray path = QFile::encodeName(m_folder->path()) + '/' + name;
        FILE *file = fopen(path.constData(), "w");
        QVERIFY(file);
        fputs("content", file);
        fclose(file);
        const QUrl url = QUrl::fromEncoded("file://" + path.toPercentEncoding("/"));
        QCOMPARE(Reading(url).content(), QByteArray("content"));
        QCOMPARE(fileNameOf(url), QString::fromUtf8(name));
    }

    void saysWhyItCannotRead()
    {
        QCOMPARE(Reading(url(u"missing.json"_s)).failure(), u"No such file or directory"_s);
        QCOMPARE(Reading(QUrl(u"https://example.org/a.json"_s)).failure(), u"This is not a file on this computer"_s);
        QCOMPARE(Reading(QUrl()).failure(), u"This is not a file on this computer"_s);
        QVERIFY(QFile::link(m_folder->filePath(u"loop"_s), m_folder->filePath(u"loop"_s)));
        QCOMPARE(Reading(url(u"loop"_s)).failure(), u"Too many levels of symbolic links"_s);
        QFile::remove(m_folder->filePath(u"loop"_s));
    }

    void refusesAFolder() { QCOMPARE(Reading(QUrl::fromLocalFile(m_folder->path())).failure(), u"Is a directory"_s); }

    void refusesAPipeWithoutWaitingForItsWriter()
    {
        QCOMPARE(mkfifo(qPrintable(m_folder->filePath(u"pipe.json"_s)), 0600), 0);
        QCOMPARE(Reading(url(u"pipe.json"_s)).failure(), u"This is not a regular file"_s);
    }

    void refusesASocketAndADevice()
    {
        const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address{AF_UNIX, {}};
        const QByteArray path = QFile::encodeName(m_folder->filePath(u"s"_s));
        QVERIFY(path.size() < qsizetype(sizeof address.sun_path));
        std::copy(path.cbegin(), path.cend(), address.sun_path);
        QCOMPARE(bind(socket, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);
        QCOMPARE(Reading(url(u"s"_s)).failure(), u"No such device or address"_s);
        ::close(socket);
        QCOMPARE(Reading(QUrl(u"file:///dev/zero"_s)).failure(), u"This is not a regular file"_s);
    }

    void refusesAFileThatMayNotBeRead()
    {
        if (geteuid() == 0) {
            QSKIP("The superuser may read everything.");
        }
        write(u"secret.json"_s, "{}");
        QFile::setPermissions(m_folder->filePath(u"secret.json"_s), {});
        QCOMPARE(Reading(url(u"secret.json"_s)).failure(), u"Permission denied"_s);
    }

    void refusesAFileThatBecomesShorterWhileItIsRead()
    {
        // Its length says more than it gives, as that of a file does which was cut off after it was opened.
        const QUrl file = QUrl::fromLocalFile(u"/sys/kernel/mm/transparent_hugepage/enabled"_s);
        if (!QFile::exists(file.toLocalFile())) {
            QSKIP("This system has no such file.");
        }
        QCOMPARE(Reading(file).failure(), u"The file became shorter while it was read"_s);
    }

    void refusesAFileLargerThanMemory()
    {
        if (!testing::memoryIsMeasurable) {
            QSKIP("A sanitizer ends the program when it is asked for too much memory.");
        }
        QFile file(m_folder->filePath(u"huge.txt"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        if (!file.resize(qint64(1) << 43)) {
            QSKIP("This file system takes no file of eight terabytes.");
        }
        QCOMPARE(Reading(url(u"huge.txt"_s)).failure(), u"Cannot allocate memory"_s);
    }

    void goesOnWhileALargeFileIsReadAndHoldsItOnce()
    {
        write(u"large.txt"_s, QByteArray(300 * megabyte, 'x'));
        const testing::PeakMemory memory;
        int turns = 0;
        QTimer idle;
        connect(&idle, &QTimer::timeout, this, [&turns] { ++turns; });
        idle.start(0);
        const Reading reading(url(u"large.txt"_s));
        QVERIFY(reading.ends(60s));
        QCOMPARE(reading.content().size(), 300 * megabyte);
        if (testing::memoryIsMeasurable) {
            QVERIFY2(memory.growth() < 310 * megabyte, QByteArray::number(memory.growth()));
        }
        // The event loop went round while the worker read, however busy the machine.
        QVERIFY2(turns > 1, QByteArray::number(turns));
    }

private:
    QUrl url(const QString &name) const { return QUrl::fromLocalFile(m_folder->filePath(name)); }
    void write(const QString &name, const QByteArray &content) const
    {
        QFile file(m_folder->filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_FileReader)
#include "tst_FileReader.moc"
