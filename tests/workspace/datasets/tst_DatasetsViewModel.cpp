#include "identity/AuthManager.h"
#include "platform/ProcessMemory.h"
#include "platform/Text.h"
#include "support/CapturedOutput.h"
#include "support/TestEnvironment.h"
#include "workspace/datasets/DatasetsViewModel.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <limits>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using quillmere::testing::eventually;
using quillmere::testing::settle;

namespace quillmere {

namespace {

QByteArray file(const QByteArray &id, const QByteArray &filename, const QByteArray &purpose = "fine-tune",
    const QByteArray &bytes = "1000")
{
    return "{\"id\":\"" + id + "\",\"filename\":\"" + filename + "\",\"purpose\":\"" + purpose + "\",\"bytes\":" + bytes
        + ",\"created_at\":\"2026-11-20T10:00:00Z\"}";
}

const QByteArray filesOfEveryPurpose = '[' + file("v", "Val.csv", "validation") + ',' + file("f1", "one.jsonl") + ','
    + file("t", "test.txt", "test") + ',' + file("o", "other.bin", "reference") + ',' + file("f2", "two.JSONL") + ','
    + file("c", "shout.json", "Fine-Tune") + ']';

QStringList idsOf(const QList<DatasetInfo> &datasets)
{
    QStringList ids;
    for (const DatasetInfo &dataset : datasets) {
        ids.append(dataset.id);
    }
    return ids;
}

const QStringList sampleIds{u"1"_s, u"2"_s, u"3"_s};

} // namespace

class tst_DatasetsViewModel : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_world = std::make_unique<testing::TestEnvironment>();
        m_model = std::make_unique<DatasetsViewModel>();
    }
    void cleanup()
    {
        m_model.reset();
        m_world.reset();
    }

    void startsEmptyAndIdle()
    {
        QVERIFY(m_model->datasets().isEmpty());
        QVERIFY(!m_model->isLoading());
        QVERIFY(!m_model->errorMessage());
        QVERIFY(!m_model->selectedPurpose());
        QVERIFY(!m_model->hasDatasets());
        QCOMPARE(m_model->formattedTotalSize(), u"Zero KB"_s);
        QCOMPARE(&m_model->api, &QuillmereAPIClient::shared());
    }

    void namesItsPurposes()
    {
        QCOMPARE(DatasetsViewModel::purposes(), QList<QString>({u"All"_s, u"fine-tune"_s, u"validation"_s, u"test"_s}));
        QCOMPARE(
            DatasetsViewModel::purposeTitles(), QList<QString>({u"All"_s, u"Fine-Tune"_s, u"Validation"_s, u"Test"_s}));
    }

    // Loading

    void showsThreeSamplesAfterAMomentToASignedOutUser()
    {
        m_model->loadDatasets();
        QVERIFY(m_model->isLoading());
        m_world->clock.advance(299ms);
        QVERIFY(m_model->isLoading());
        QVERIFY(m_model->datasets().isEmpty());
        m_world->clock.advance(1ms);
        QVERIFY(!m_model->isLoading());
        QCOMPARE(idsOf(m_model->datasets()), sampleIds);
        QCOMPARE(m_model->fileCount(), u"3 files"_s);
        QCOMPARE(m_model->formattedTotalSize(), u"26.7 MB"_s);
        QVERIFY(!m_model->errorMessage());
        QVERIFY(m_world->service.requests().isEmpty());
    }

    void makesTheSamplesRelativeToTheMoment()
    {
        loadsSamples();
        const QDateTime now = m_world->clock.now();
        const auto &datasets = m_model->datasets();
        QCOMPARE(datasets[0].filename, u"medical_qa_train.jsonl"_s);
        QCOMPARE(datasets[0].purpose, u"fine-tune"_s);
        QCOMPARE(datasets[0].bytes, 15'420'000);
        QCOMPARE(datasets[0].createdAt, now.addSecs(-86'400));
        QCOMPARE(datasets[1].filename, u"medical_qa_val.jsonl"_s);
        QCOMPARE(datasets[1].purpose, u"validation"_s);
        QCOMPARE(datasets[1].bytes, 2'340'000);
        QCOMPARE(datasets[1].createdAt, now.addSecs(-86'400));
        QCOMPARE(datasets[2].filename, u"code_samples.jsonl"_s);
        QCOMPARE(datasets[2].purpose, u"fine-tune"_s);
        QCOMPARE(datasets[2].bytes, 8'900'000);
        QCOMPARE(datasets[2].createdAt, now.addSecs(-172'800));
        m_world->clock.advance(1h);
        loadsSamples();
        QCOMPARE(m_model->datasets()[0].createdAt, m_world->clock.now().addSecs(-86'400));
    }

    void showsTheServicesDatasetsInTheOrderReceived()
    {
        loads(filesOfEveryPurpose);
        QCOMPARE(idsOf(m_model->datasets()), QStringList({u"v"_s, u"f1"_s, u"t"_s, u"o"_s, u"f2"_s, u"c"_s}));
        QCOMPARE(shown("identifier"), idsOf(m_model->datasets()));
        QCOMPARE(m_model->fileCount(), u"6 files"_s);
        QCOMPARE(m_model->formattedTotalSize(), u"6 KB"_s);
        QCOMPARE(m_world->service.requests().size(), 1);
        QCOMPARE(m_world->service.requests().constFirst().target, QByteArray("/v1/files?workspace_id=default"));
    }

    void staysEmptyWhenTheServiceHasNone()
    {
        loads("[]");
        m_world->clock.advance(1s);
        QVERIFY(m_model->datasets().isEmpty());
        QVERIFY(!m_model->hasFilteredDatasets());
    }

    void showsSamplesWhenTheListFails_data()
    {
        QTest::addColumn<QString>("failure");
        QTest::newRow("down") << u"status"_s;
        QTest::newRow("connection cut") << u"cut"_s;
        QTest::newRow("a reply that cannot be read") << u"reply"_s;
    }
    void showsSamplesWhenTheListFails()
    {
        QFETCH(QString, failure);
        loads(filesOfEveryPurpose);
        auto route = m_world->service.on("GET /v1/files");
        if (failure == u"status"_s) {
            route.answers(503, R"({"detail":"Down for an hour"})");
        } else if (failure == u"cut"_s) {
            route.closesWithoutReply();
        } else {
            route.omitsField("bytes");
        }
        m_model->loadDatasets();
        QVERIFY(eventually([this] { return m_model->errorMessage().has_value(); }));
        if (failure == u"status"_s) {
            QCOMPARE(m_model->errorMessage().value_or(u"none"_s), u"Down for an hour"_s);
        }
        m_world->clock.advance(299ms);
        QVERIFY(m_model->isLoading());
        QCOMPARE(m_model->datasets().size(), 6);
        m_world->clock.advance(1ms);
        QVERIFY(!m_model->isLoading());
        QCOMPARE(idsOf(m_model->datasets()), sampleIds);
    }

    void neverForgetsItsLastFailure()
    {
        m_world->isSignedIn();
        m_world->service.on("GET /v1/files", 1).answers(503, R"({"detail":"Down"})");
        m_model->loadDatasets();
        QVERIFY(eventually([this] { return m_model->errorMessage().has_value(); }));
        m_world->clock.advance(300ms);
        loads("[]");
        QCOMPARE(m_model->errorMessage().value_or(u"none"_s), u"Down"_s);
    }

    void survivesItsEndWhileLoading()
    {
        m_model->loadDatasets();
        m_model.reset();
        m_world->clock.advance(1s);

        m_world->isSignedIn();
        m_world->service.on("GET /v1/files").hangsBeforeReply();
        m_model = std::make_unique<DatasetsViewModel>();
        m_model->loadDatasets();
        QVERIFY(eventually([this] { return m_world->service.requests().size() == 1; }));
        m_model.reset();
        QSignalSpy sent(&m_world->service, &StandIn::replySent);
        m_world->service.release();
        QVERIFY(eventually([&] { return sent.size() == 1; }));
        settle();
    }

    void announcesItsFieldsBeforeItWritesThem()
    {
        QStringList announced;
        connect(m_model.get(), &DatasetsViewModel::willChange, this, [&](const QString &field) {
            announced.append(field);
            if (field == u"datasets"_s) {
                QVERIFY(m_model->datasets().isEmpty());
            }
        });
        loadsSamples();
        QCOMPARE(announced, QStringList({u"isLoading"_s, u"datasets"_s, u"isLoading"_s}));
    }

    void announcesWhatAnUploadAndARemovalWrite()
    {
        loads("[]");
        QStringList announced;
        connect(m_model.get(), &DatasetsViewModel::willChange, this, [&](const QString &field) { announced += field; });
        m_model->uploadFile("x", u"a.json"_s);
        QCOMPARE(announced, QStringList(u"datasets"_s));
        QVERIFY(eventually([this] { return m_model->datasets().first().id.startsWith(u"file-"_s); }));
        QCOMPARE(announced, QStringList({u"datasets"_s, u"datasets"_s}));
        m_model->removeDataset(m_model->datasets().first().id);
        QCOMPARE(announced.size(), 3);
        m_world->service.on("POST /v1/files").answers(500, "{}");
        m_model->uploadFile("x", u"b.json"_s);
        QVERIFY(eventually([this] { return m_model->errorMessage().has_value(); }));
        QCOMPARE(announced.mid(3), QStringList({u"datasets"_s, u"errorMessage"_s}));
    }

    // Search and filter

    void searchesNamesWhateverTheCase_data()
    {
        QTest::addColumn<QString>("searched");
        QTest::addColumn<QStringList>("found");
        QTest::newRow("small for capital") << u"val"_s << QStringList(u"v"_s);
        QTest::newRow("capital for small") << u"ONE"_s << QStringList(u"f1"_s);
        QTest::newRow("the extension") << u".jsonl"_s << QStringList({u"f1"_s, u"f2"_s});
        QTest::newRow("a purpose, which is not searched") << u"validation"_s << QStringList();
        QTest::newRow("a blank") << u" "_s << QStringList();
    }
    void searchesNamesWhateverTheCase()
    {
        QFETCH(QString, searched);
        QFETCH(QStringList, found);
        loads(filesOfEveryPurpose);
        m_model->setSearchText(searched);
        QCOMPARE(shown("identifier"), found);
        QCOMPARE(m_model->hasFilteredDatasets(), !found.isEmpty());
        QVERIFY(m_model->hasDatasets());
        QCOMPARE(m_model->fileCount(), u"6 files"_s);
        QCOMPARE(m_model->formattedTotalSize(), u"6 KB"_s);
        m_model->setSearchText({});
        QCOMPARE(shown("identifier").size(), 6);
    }

    void filtersByExactlyThatPurpose_data()
    {
        QTest::addColumn<int>("pill");
        QTest::addColumn<QStringList>("passing");
        QTest::newRow("all") << 0 << QStringList({u"v"_s, u"f1"_s, u"t"_s, u"o"_s, u"f2"_s, u"c"_s});
        QTest::newRow("fine-tune") << 1 << QStringList({u"f1"_s, u"f2"_s});
        QTest::newRow("validation") << 2 << QStringList(u"v"_s);
        QTest::newRow("test") << 3 << QStringList(u"t"_s);
    }
    void filtersByExactlyThatPurpose()
    {
        QFETCH(int, pill);
        QFETCH(QStringList, passing);
        loads(filesOfEveryPurpose);
        m_model->setPurposeIndex(3 - pill);
        m_model->setPurposeIndex(pill);
        QCOMPARE(m_model->purposeIndex(), pill);
        QCOMPARE(m_model->selectedPurpose().has_value(), pill > 0);
        QCOMPARE(shown("identifier"), passing);
        QCOMPARE(m_model->fileCount(), u"6 files"_s);
    }

    void letsEverythingPassForAllItself()
    {
        loads(filesOfEveryPurpose);
        m_model->setSelectedPurpose(u"All"_s);
        QCOMPARE(shown("identifier").size(), 6);
        QCOMPARE(m_model->purposeIndex(), 0);
        m_model->setSelectedPurpose(u"reference"_s);
        QCOMPARE(shown("identifier"), QStringList(u"o"_s));
        QCOMPARE(m_model->purposeIndex(), -1);
    }

    void searchesWithinThePurpose()
    {
        loads(filesOfEveryPurpose);
        m_model->setPurposeIndex(1);
        m_model->setSearchText(u"two"_s);
        QCOMPARE(shown("identifier"), QStringList(u"f2"_s));
        loads('[' + file("n", "two.csv") + ',' + file("m", "one.csv") + ']');
        QCOMPARE(shown("identifier"), QStringList(u"n"_s));
    }

    // A row

    void showsAFileByTheEndOfItsName_data()
    {
        QTest::addColumn<QString>("filename");
        QTest::addColumn<QString>("icon");
        QTest::newRow("JSON Lines") << u"a.jsonl"_s << u"doc.text"_s;
        QTest::newRow("JSON") << u"a.json"_s << u"doc.text"_s;
        QTest::newRow("CSV") << u"a.csv"_s << u"tablecells"_s;
        QTest::newRow("text") << u"a.txt"_s << u"doc.plaintext"_s;
        QTest::newRow("capitals count") << u"notes.TXT"_s << u"doc"_s;
        QTest::newRow("none") << u"README"_s << u"doc"_s;
        QTest::newRow("in the middle") << u"a.json.bak"_s << u"doc"_s;
        QTest::newRow("nothing else") << u".csv"_s << u"tablecells"_s;
    }
    void showsAFileByTheEndOfItsName()
    {
        QFETCH(QString, filename);
        QFETCH(QString, icon);
        const auto cells = DatasetCells::of({u"a"_s, filename, u"test"_s, 0, m_world->clock.now()});
        QCOMPARE(cells.icon, icon);
        QCOMPARE(cells.filename, filename);
    }

    void showsAPurposeInItsColor_data()
    {
        QTest::addColumn<QString>("purpose");
        QTest::addColumn<QString>("badge");
        QTest::addColumn<QString>("color");
        QTest::newRow("fine-tune") << u"fine-tune"_s << u"Fine-Tune"_s << u"#22c55e"_s;
        QTest::newRow("validation") << u"validation"_s << u"Validation"_s << u"#3b82f6"_s;
        QTest::newRow("test") << u"test"_s << u"Test"_s << u"#a855f7"_s;
        QTest::newRow("any other") << u"batch_OUTPUT"_s << u"Batch_Output"_s << u"#a1a1aa"_s;
        QTest::newRow("in capitals") << u"TEST"_s << u"Test"_s << u"#a1a1aa"_s;
        QTest::newRow("none") << QString() << QString() << u"#a1a1aa"_s;
    }
    void showsAPurposeInItsColor()
    {
        QFETCH(QString, purpose);
        QFETCH(QString, badge);
        QFETCH(QString, color);
        const auto cells = DatasetCells::of({u"a"_s, u"a.csv"_s, purpose, 0, m_world->clock.now()});
        QCOMPARE(cells.purpose, badge);
        QCOMPARE(cells.purposeColor.name(), color);
    }

    void showsSizeAndDay()
    {
        const auto cells =
            DatasetCells::of({u"a"_s, u"a.csv"_s, u"test"_s, 15'420'000, QDateTime({2026, 11, 20}, {12, 0}, Qt::UTC)});
        QCOMPARE(cells.size, u"15.4 MB"_s);
        QCOMPARE(cells.uploaded, u"November 20, 2026"_s);
    }

    void showsANameInOneLine()
    {
        const auto cells = DatasetCells::of({u"a"_s, u"two\nlines\u2028or\tmore.csv"_s, {}, 0, m_world->clock.now()});
        QCOMPARE(cells.filename, u"two lines or more.csv"_s);
    }

    void addsUpAnySizes_data()
    {
        QTest::addColumn<QByteArray>("one");
        QTest::addColumn<QByteArray>("other");
        QTest::addColumn<qint64>("total");
        QTest::newRow("too much for 64 bits")
            << QByteArray("9223372036854775807") << QByteArray("1000") << std::numeric_limits<qint64>::max();
        QTest::newRow("too little") << QByteArray("-9223372036854775807") << QByteArray("-1000")
                                    << std::numeric_limits<qint64>::min();
        QTest::newRow("nothing") << QByteArray("0") << QByteArray("0") << qint64(0);
    }
    void addsUpAnySizes()
    {
        QFETCH(QByteArray, one);
        QFETCH(QByteArray, other);
        QFETCH(qint64, total);
        loads('[' + file("a", "a", "test", one) + ',' + file("b", "b", "test", other) + ']');
        QCOMPARE(m_model->formattedTotalSize(), text::byteCount(total));
    }

    // Removing

    void removesEveryDatasetWithThatIdUntilTheNextLoad()
    {
        const QByteArray files = '[' + file("a", "1") + ',' + file("b", "2") + ',' + file("a", "3") + ']';
        loads(files);
        m_model->removeDataset(u"a"_s);
        QCOMPARE(idsOf(m_model->datasets()), QStringList(u"b"_s));
        QCOMPARE(m_model->fileCount(), u"1 files"_s);
        QCOMPARE(m_model->formattedTotalSize(), u"1 KB"_s);
        m_model->removeDataset(u"none"_s);
        settle();
        QCOMPARE(m_world->service.requests().size(), 1);
        loads(files);
        QCOMPARE(m_model->datasets().size(), 3);
    }

    // Uploading

    void showsAnUploadAtOnceAndAsksNobodyWhenSignedOut()
    {
        loadsSamples();
        m_model->uploadFile("0123456789", u"new.csv"_s);
        QCOMPARE(m_model->datasets().size(), 4);
        const DatasetInfo &row = m_model->datasets().first();
        QCOMPARE(row.filename, u"new.csv"_s);
        QCOMPARE(row.purpose, u"fine-tune"_s);
        QCOMPARE(row.bytes, 10);
        QCOMPARE(row.createdAt, m_world->clock.now());
        QCOMPARE(row.id.size(), 36);
        QCOMPARE(m_model->fileCount(), u"4 files"_s);
        settle();
        QVERIFY(m_world->service.requests().isEmpty());
        m_model->uploadFile("", u"empty"_s);
        QVERIFY(m_model->datasets()[0].id != m_model->datasets()[1].id);
        // Until the next load.
        loadsSamples();
        QCOMPARE(idsOf(m_model->datasets()), sampleIds);
    }

    void replacesTheRowByTheServicesRecordWhereverItStands()
    {
        loads('[' + file("a", "a.csv") + ']');
        m_world->service.on("POST /v1/files").hangsBeforeReply();
        m_model->uploadFile("first", u"first.txt"_s);
        const QString temporaryId = m_model->datasets().first().id;
        QVERIFY(eventually([this] { return m_world->service.uploads().size() == 1; }));
        m_world->service.clearFaults();
        m_model->uploadFile("second", u"second.txt"_s);
        QVERIFY(eventually([this] { return m_model->datasets().first().id.startsWith(u"file-"_s); }));
        QCOMPARE(m_model->datasets()[1].id, temporaryId);
        m_world->service.release();
        QVERIFY(eventually([&] { return m_model->datasets()[1].id != temporaryId; }));
        QCOMPARE(m_model->datasets()[1].filename, u"first.txt"_s);
        QCOMPARE(m_model->datasets()[2].id, u"a"_s);
        QCOMPARE(m_model->datasets().size(), 3);
        QVERIFY(!m_model->errorMessage());
        QCOMPARE(m_world->service.uploads().first().workspace, QByteArray("default"));
        QCOMPARE(m_world->service.uploads().first().head, QByteArray("first"));
        QCOMPARE(m_world->service.uploads().first().filename, u"first.txt"_s);
    }

    void dropsTheServicesRecordWhenTheRowHasGone()
    {
        loads("[]");
        m_world->service.on("POST /v1/files").hangsBeforeReply();
        m_model->uploadFile("x", u"a.txt"_s);
        m_model->removeDataset(m_model->datasets().first().id);
        QVERIFY(eventually([this] { return m_world->service.uploads().size() == 1; }));
        QSignalSpy sent(&m_world->service, &StandIn::replySent);
        m_world->service.release();
        QVERIFY(eventually([&] { return sent.size() == 1; }));
        settle();
        QVERIFY(m_model->datasets().isEmpty());
        QVERIFY(!m_model->errorMessage());
    }

    void keepsTheRowOfAnUploadThatFailed_data()
    {
        QTest::addColumn<QString>("filename");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("message");
        QTest::addColumn<int>("requests");
        QTest::newRow("the service refuses") << u"a.csv"_s << 500 << QString() << 1;
        QTest::newRow("the session is over") << u"a.csv"_s << 401 << QString() << 1;
        QTest::newRow("a name with a line feed") << u"a\nb.csv"_s << 200 << u"Invalid file name"_s << 0;
        QTest::newRow("a name with a carriage return") << u"a\rb.csv"_s << 200 << u"Invalid file name"_s << 0;
        QTest::newRow("a name with NUL") << u"a"_s + QChar(0) + u"b.csv"_s << 200 << u"Invalid file name"_s << 0;
    }
    void keepsTheRowOfAnUploadThatFailed()
    {
        QFETCH(QString, filename);
        QFETCH(int, status);
        QFETCH(QString, message);
        QFETCH(int, requests);
        loads("[]");
        m_world->service.forgetRequests();
        m_world->service.on("POST /v1/files").answers(status, R"({"detail":"No"})");
        m_model->uploadFile("x", filename);
        const QString id = m_model->datasets().first().id;
        QVERIFY(eventually([this] { return m_model->errorMessage().has_value(); }));
        if (!message.isEmpty()) {
            QCOMPARE(m_model->errorMessage().value_or(u"none"_s), message);
        }
        QCOMPARE(idsOf(m_model->datasets()), QStringList(id));
        QCOMPARE(m_model->datasets().first().filename, filename);
        QCOMPARE(m_world->service.requests().size(), requests);
        QVERIFY(AuthManager::shared().isAuthenticated());
    }

    void survivesItsEndWhileUploading()
    {
        m_world->isSignedIn();
        m_world->service.on("POST /v1/files").hangsBeforeReply();
        m_model->uploadFile("x", u"a.txt"_s);
        QVERIFY(eventually([this] { return m_world->service.uploads().size() == 1; }));
        m_model.reset();
        QSignalSpy sent(&m_world->service, &StandIn::replySent);
        m_world->service.release();
        QVERIFY(eventually([&] { return sent.size() == 1; }));
        settle();
    }

    // Picking

    void asksForOneFileOfThreeTypes()
    {
        m_model->pickFile();
        QCOMPARE(m_world->filePicker.requests.size(), 1);
        QCOMPARE(m_world->filePicker.requests.first().mimeTypes,
            QList<QString>({u"application/json"_s, u"text/plain"_s, u"text/csv"_s}));
        // One dialog at a time.
        m_model->pickFile();
        QCOMPARE(m_world->filePicker.requests.size(), 1);
    }

    void uploadsThePickedFileUnderItsName_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("plain") << u"train.jsonl"_s;
        QTest::newRow("quotes") << u"it's \"quoted\".json"_s;
        QTest::newRow("an emoji") << u"data \U0001F389.csv"_s;
        QTest::newRow("no extension") << u"README"_s;
        QTest::newRow("255 bytes") << QString(251, u'n') + u".txt"_s;
        QTest::newRow("per cent and hash") << u"100% #1.txt"_s;
    }
    void uploadsThePickedFileUnderItsName()
    {
        QFETCH(QString, name);
        loads("[]");
        m_model->pickFile();
        m_world->filePicker.picks(write(name, "some content"));
        QVERIFY(eventually([this] { return m_world->service.uploads().size() == 1; }));
        QCOMPARE(m_world->service.uploads().first().filename, name);
        QCOMPARE(m_world->service.uploads().first().head, QByteArray("some content"));
        QVERIFY(eventually([this] { return m_model->datasets().first().id.startsWith(u"file-"_s); }));
        QCOMPARE(m_model->datasets().first().filename, name);
        QCOMPARE(m_model->datasets().size(), 1);
    }

    void holdsALargeFileOnce()
    {
        constexpr qint64 megabyte = 1'000'000;
        loads("[]");
        const QString path = write(u"large.txt"_s, {});
        QVERIFY(QFile::resize(path, 80 * megabyte));
        const testing::PeakMemory memory;
        m_model->pickFile();
        m_world->filePicker.picks(path);
        QTRY_COMPARE_WITH_TIMEOUT(m_world->service.uploads().size(), 1, 60'000);
        QCOMPARE(m_world->service.uploads().first().bytes, 80 * megabyte);
        if (testing::memoryIsMeasurable) {
            QVERIFY2(memory.growth() < (80 + 40) * megabyte, QByteArray::number(memory.growth()));
        }
    }

    void uploadsAnEmptyFile()
    {
        loads("[]");
        m_model->pickFile();
        m_world->filePicker.picks(write(u"empty.txt"_s, ""));
        QVERIFY(eventually([this] { return m_world->service.uploads().size() == 1; }));
        QCOMPARE(m_world->service.uploads().first().bytes, 0);
    }

    void refusesAPickedNameWithALineBreak()
    {
        loads("[]");
        m_model->pickFile();
        m_world->filePicker.picks(write(u"two\nlines.csv"_s, "x"));
        QVERIFY(eventually([this] { return m_model->errorMessage().has_value(); }));
        QCOMPARE(m_model->errorMessage().value_or(u"none"_s), u"Invalid file name"_s);
        QCOMPARE(m_model->datasets().size(), 1);
        QCOMPARE(m_world->service.requests().size(), 1);
    }

    void doesNothingWhenNothingIsPicked()
    {
        testing::CapturedOutput output;
        loadsSamples();
        QSignalSpy closed(m_model.get(), &DatasetsViewModel::pickerClosed);
        m_model->pickFile();
        m_world->filePicker.answers(QList<QUrl>());
        QVERIFY(eventually([&] { return closed.size() == 1; }));
        settle();
        QCOMPARE(m_model->datasets().size(), 3);
        QVERIFY(!m_model->errorMessage());
        QVERIFY(output.lines().isEmpty());
        m_model->pickFile();
        QCOMPARE(m_world->filePicker.requests.size(), 2);
    }

    void takesTheFirstOfSeveral()
    {
        m_model->pickFile();
        m_world->filePicker.answers(
            QList<QUrl>{QUrl::fromLocalFile(write(u"a.csv"_s, "1")), QUrl::fromLocalFile(write(u"b.csv"_s, "2"))});
        QVERIFY(eventually([this] { return m_model->datasets().size() == 1; }));
        settle();
        QCOMPARE(m_model->datasets().size(), 1);
        QCOMPARE(m_model->datasets().first().filename, u"a.csv"_s);
    }

    void printsThatThePickerFailedAndShowsNothing()
    {
        testing::CapturedOutput output;
        QSignalSpy closed(m_model.get(), &DatasetsViewModel::pickerClosed);
        m_model->pickFile();
        m_world->filePicker.answers(Failure(Failure::Kind::File, u"It broke"_s));
        QVERIFY(eventually([&] { return output.lines().size() == 1; }));
        QCOMPARE(output.lines(), QStringList(u"File picker error: It broke"_s));
        QCOMPARE(closed.size(), 1);
        QVERIFY(!m_model->errorMessage());
        QVERIFY(m_model->datasets().isEmpty());
    }

    void saysThatAFileCannotBeRead_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("why");
        QTest::newRow("missing") << u"missing.csv"_s << u"No such file or directory"_s;
        QTest::newRow("a folder") << u"."_s << u"Is a directory"_s;
        QTest::newRow("a pipe") << u"pipe.csv"_s << u"This is not a regular file"_s;
    }
    void saysThatAFileCannotBeRead()
    {
        QFETCH(QString, name);
        QFETCH(QString, why);
        testing::CapturedOutput output;
        loads("[]");
        mkfifo(qPrintable(m_folder->filePath(u"pipe.csv"_s)), 0600);
        m_model->pickFile();
        m_world->filePicker.picks(m_folder->filePath(name));
        QVERIFY(eventually([this] { return m_model->errorMessage().has_value(); }));
        QCOMPARE(m_model->errorMessage().value_or(u"none"_s), u"Failed to read file: "_s + why);
        QVERIFY(m_model->datasets().isEmpty());
        QCOMPARE(m_world->service.requests().size(), 1);
        QVERIFY(output.lines().isEmpty());
    }

    void takesTheDialogWithIt()
    {
        m_model->pickFile();
        m_model.reset();
        QCOMPARE(m_world->filePicker.cancels, 1);
        settle();
        m_model = std::make_unique<DatasetsViewModel>();
        m_model.reset();
        QCOMPARE(m_world->filePicker.cancels, 1);
    }

    void uploadsWhatWasPickedEvenWhenItIsGone()
    {
        m_world->isSignedIn();
        QSignalSpy closed(m_model.get(), &DatasetsViewModel::pickerClosed);
        connect(m_model.get(), &DatasetsViewModel::pickerClosed, this, [this] { m_model.release()->deleteLater(); });
        m_model->pickFile();
        m_world->filePicker.picks(write(u"a.csv"_s, QByteArray(5'000'000, 'x')));
        QVERIFY(eventually([this] { return m_world->service.uploads().size() == 1; }));
        QCOMPARE(m_world->service.uploads().first().bytes, 5'000'000);
        QVERIFY(!m_model);
        settle();
    }

private:
    void loadsSamples()
    {
        m_model->loadDatasets();
        m_world->clock.advance(300ms);
    }

    void loads(const QByteArray &files)
    {
        if (!AuthManager::shared().isAuthenticated()) {
            m_world->isSignedIn();
        }
        m_world->service.hasFiles(files);
        m_model->loadDatasets();
        QVERIFY(eventually([this] { return !m_model->isLoading(); }));
    }

    QStringList shown(const QByteArray &role) const
    {
        QStringList texts;
        QAbstractItemModel *rows = m_model->filteredDatasets();
        for (int row = 0; row < rows->rowCount(); ++row) {
            texts.append(rows->data(rows->index(row, 0), rows->roleNames().key(role)).toString());
        }
        return texts;
    }

    QString write(const QString &name, const QByteArray &content) const
    {
        QFile file(m_folder->filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
            qFatal("%s cannot be written.", qPrintable(file.fileName()));
        }
        return file.fileName();
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<testing::TestEnvironment> m_world;
    std::unique_ptr<DatasetsViewModel> m_model;
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_DatasetsViewModel)
#include "tst_DatasetsViewModel.moc"
