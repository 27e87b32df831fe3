#include "journeys/Desktop.h"
#include "journeys/JourneyTest.h"
#include "platform/Keyring.h"

#include <QTest>

#include <algorithm>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

// The program is started many times at once, each time with a URL, as a page does that opens one after the other.
class tst_CallbackJourney : public JourneyTest {
    Q_OBJECT

public:
    // With a browser that opens and leads nowhere.
    tst_CallbackJourney() : JourneyTest(u"/bin/true"_s) { }

private:
    using Starts = std::vector<std::unique_ptr<Studio>>;

    static qsizetype running(const Starts &starts)
    {
        return std::count_if(starts.begin(), starts.end(), [](const auto &one) { return one->isRunning(); });
    }

    static QByteArrayList linesOf(Studio &studio)
    {
        QByteArrayList lines = studio.said().split('\n');
        lines.removeLast();
        std::sort(lines.begin(), lines.end());
        return lines;
    }

private slots:
    void fiftyStartsGiveOneWindowAndDeliverEveryUrlOnce()
    {
        Starts all;
        QByteArrayList told;
        for (int i = 0; i < 50; ++i) {
            const QString url = u"com.quillmere.studio://callback#access_token=token-%1"_s.arg(i, 2, 10, QChar(u'0'));
            all.push_back(m_world->starts({url}));
            told.append("Received URL: " + url.toUtf8());
        }
        QVERIFY(QTest::qWaitFor([&] { return running(all) == 1; }, 40'000));
        const auto first = std::find_if(all.begin(), all.end(), [](const auto &one) { return one->isRunning(); });
        QVERIFY(QTest::qWaitFor([&] { return linesOf(**first).size() >= told.size(); }, 20'000));
        QVERIFY((*first)->focuses(u"Email"_s));
        QCOMPARE(linesOf(**first), told);
        for (const auto &one : all) {
            if (one != *first) {
                QVERIFY(one->ends());
                QCOMPARE(one->said(), QByteArray());
            }
        }
        QCOMPARE(desktop::windowCount(u"com.quillmere.studio"_s), 1);
        QCOMPARE(keyring::itemCount(accessTokenEntry), 0);
        QVERIFY(m_world->service.requests("GET", "/v1/auth/me").isEmpty());
    }

    void ofTwentyCallbacksThatComeToASignInOneCounts()
    {
        const auto studio = m_world->starts();
        QVERIFY(studio->entersCredentials(address, secret));
        QVERIFY(studio->shows(u"Continue in your browser"_s));
        Starts all;
        QByteArrayList told;
        for (int i = 0; i < 20; ++i) {
            const QString url = u"com.quillmere.studio://callback#access_token="_s + m_world->service.signsIn(address);
            all.push_back(m_world->starts({url}));
            told.append("Received URL: " + url.toUtf8());
        }
        for (const auto &one : all) {
            QVERIFY(one->ends());
            QCOMPARE(one->said(), QByteArray());
        }
        QVERIFY(studio->shows(u"Sidebar"_s, u"Sign In"_s));
        QVERIFY(QTest::qWaitFor([&] { return linesOf(*studio).size() >= told.size() - 1; }, 20'000));
        QVERIFY(QTest::qWaitFor([&] { return !m_world->service.requests("GET", "/v1/auth/me").isEmpty(); }, 20'000));

        const QByteArray token = QByteArray::fromStdString(keyring::secret(accessTokenEntry));
        const QByteArray taken = "Received URL: com.quillmere.studio://callback#access_token=" + token;
        QCOMPARE(told.removeAll(taken), 1);
        std::sort(told.begin(), told.end());
        QCOMPARE(linesOf(*studio), told);
        const auto asked = m_world->service.requests("GET", "/v1/auth/me");
        QCOMPARE(asked.size(), 1);
        QCOMPARE(asked[0].header("Authorization"), "Bearer " + token);
        QCOMPARE(keyring::itemCount(accessTokenEntry), 1);
    }
};

QTEST_GUILESS_MAIN(tst_CallbackJourney)
#include "tst_CallbackJourney.moc"
