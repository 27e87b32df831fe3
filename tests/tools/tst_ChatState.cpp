#include "tools/chat/ChatState.h"

#include "platform/MainQueue.h"
#include "support/PlatformEnvironment.h"

#include <QLocale>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmere {

using testing::PlatformEnvironment;

namespace {

const auto greeting = u"Hello! I'm your fine-tuned AI model. How can I help you today?"_s;

QString replyTo(const QString &text)
{
    return u"I received your message: \""_s + text
        + u"\". This is a simulated response from your fine-tuned model. In production, this would connect to your actual AI model API."_s;
}

} // namespace

class tst_ChatState : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<PlatformEnvironment> m_world;
    std::unique_ptr<ChatState> m_chat;

    // Each with who says it.
    QStringList said() const
    {
        QStringList said;
        for (const UIChatMessage &message : m_chat->records()) {
            said.append((message.isUser ? u"user: "_s : u"model: "_s) + message.content);
        }
        return said;
    }

    void send(const QString &text)
    {
        m_chat->setInputText(text);
        m_chat->sendMessage();
    }

private slots:
    void init()
    {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        m_world = std::make_unique<PlatformEnvironment>();
        m_chat = std::make_unique<ChatState>();
    }
    void cleanup()
    {
        m_chat.reset();
        m_world.reset();
    }

    void startsWithTheGreetingAlone()
    {
        QCOMPARE(said(), QStringList{u"model: "_s + greeting});
        QVERIFY(!m_chat->records().constFirst().id.isNull());
        QCOMPARE(m_chat->records().constFirst().timestamp, m_world->clock.now());
        QCOMPARE(m_chat->inputText(), QString());
        QCOMPARE(m_chat->selectedModel(), u"GPT-4 Custom"_s);
        QCOMPARE(m_world->clock.scheduledCount(), 0);
    }

    void knowsFourModels()
    {
        QCOMPARE(ChatState::models(),
            QStringList({u"GPT-4 Custom"_s, u"Claude Fine-tuned"_s, u"Gemini Pro Custom"_s, u"Mistral Custom"_s}));
    }

    void repliesASecondAfterTheSend()
    {
        send(u"Hello"_s);
        QCOMPARE(said().mid(1), QStringList{u"user: Hello"_s});
        QCOMPARE(m_chat->inputText(), QString());
        m_world->clock.advance(999ms);
        QCOMPARE(m_chat->messageCount(), 2);
        m_world->clock.advance(1ms);
        QCOMPARE(said().mid(1), QStringList({u"user: Hello"_s, u"model: "_s + replyTo(u"Hello"_s)}));
        const auto &records = m_chat->records();
        QCOMPARE(records[1].timestamp.msecsTo(records[2].timestamp), 1000);
        QCOMPARE(QSet<QUuid>({records[0].id, records[1].id, records[2].id}).size(), 3);
    }

    void ignoresBlanksAloneAndKeepsThem_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("nothing") << QString();
        QTest::newRow("a blank") << u" "_s;
        QTest::newRow("blanks, tabs and line breaks") << u" \t\n \r\n"_s;
        QTest::newRow("a no-break space") << u"\u00a0"_s;
        QTest::newRow("an ideographic space") << u"\u3000"_s;
    }
    void ignoresBlanksAloneAndKeepsThem()
    {
        QFETCH(QString, text);
        send(text);
        QCOMPARE(m_chat->messageCount(), 1);
        QCOMPARE(m_chat->inputText(), text);
        QCOMPARE(m_world->clock.scheduledCount(), 0);
    }

    void takesEveryTextAsItStands_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("blanks around it") << u"  Hello \n"_s;
        QTest::newRow("quotation marks") << u"He said \"no\" and \\\"maybe\\\""_s;
        QTest::newRow("markup") << u"<b>bold</b> &amp; <img src='file:///etc/passwd'>"_s;
        QTest::newRow("place markers") << u"%1 %2 %L1 %n %%"_s;
        QTest::newRow("line breaks") << u"one\ntwo\r\nthree\u2028four"_s;
        QTest::newRow("emoji") << u"👩‍👩‍👧‍👦 🇩🇪"_s;
        QTest::newRow("right to left") << u"مرحبا \u202Eabc\u202C עולם"_s;
        QTest::newRow("a lone surrogate") << QString(QChar(0xd800)) + u'x';
        QTest::newRow("100,000 letters") << QString(100'000, u'x');
    }
    void takesEveryTextAsItStands()
    {
        QFETCH(QString, text);
        send(text);
        m_world->clock.advance(1s);
        QCOMPARE(said().mid(1), QStringList({u"user: "_s + text, u"model: "_s + replyTo(text)}));
    }

    void repliesToEachOfTwoSendsInTheirOrder()
    {
        send(u"one"_s);
        m_world->clock.advance(400ms);
        send(u"two"_s);
        m_world->clock.advance(599ms);
        QCOMPARE(m_chat->messageCount(), 3);
        m_world->clock.advance(1ms);
        QCOMPARE(said().mid(1), QStringList({u"user: one"_s, u"user: two"_s, u"model: "_s + replyTo(u"one"_s)}));
        m_world->clock.advance(399ms);
        QCOMPARE(m_chat->messageCount(), 4);
        m_world->clock.advance(1ms);
        QCOMPARE(said().constLast(), u"model: "_s + replyTo(u"two"_s));
    }

    void changesNoReplyWithTheModel()
    {
        send(u"Hello"_s);
        m_chat->setSelectedModel(u"Mistral Custom"_s);
        m_world->clock.advance(1s);
        send(u"Hello"_s);
        m_world->clock.advance(1s);
        QCOMPARE(said()[2], said()[4]);
        QCOMPARE(said()[4], u"model: "_s + replyTo(u"Hello"_s));
    }

    void landsAPendingReplyBelowTheNewGreeting()
    {
        send(u"Hello"_s);
        m_world->clock.advance(500ms);
        const QUuid first = m_chat->records().constFirst().id;
        m_chat->reset();
        QCOMPARE(said(), QStringList{u"model: "_s + greeting});
        QVERIFY(m_chat->records().constFirst().id != first);
        QCOMPARE(m_chat->records().constFirst().timestamp, m_world->clock.now());
        m_world->clock.advance(500ms);
        QCOMPARE(said(), QStringList({u"model: "_s + greeting, u"model: "_s + replyTo(u"Hello"_s)}));
    }

    void leavesTheTypedTextAndTheModelAtAReset()
    {
        m_chat->setSelectedModel(u"Gemini Pro Custom"_s);
        m_chat->setInputText(u"half a thought"_s);
        m_chat->reset();
        QCOMPARE(m_chat->selectedModel(), u"Gemini Pro Custom"_s);
        QCOMPARE(m_chat->inputText(), u"half a thought"_s);
    }

    void makesTheTimeWhenItIsAskedFor()
    {
        // In whatever zone this machine is.
        const QTime noon = m_world->clock.now().toLocalTime().time();
        const auto time = [this] {
            auto *messages = m_chat->messages();
            return messages->data(messages->index(0, 0), messages->roleNames().key("time")).toString();
        };
        QCOMPARE(time(), QLocale(QLocale::English, QLocale::UnitedStates).toString(noon, QLocale::ShortFormat));
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        QCOMPARE(time(), noon.toString(u"HH:mm"_s));
    }

    void tellsTheViewOfOneMessageAtATime()
    {
        QSignalSpy inserted(m_chat->messages(), &QAbstractItemModel::rowsInserted);
        QSignalSpy changed(m_chat->messages(), &QAbstractItemModel::dataChanged);
        QSignalSpy reset(m_chat->messages(), &QAbstractItemModel::modelReset);
        for (int i = 0; i < 100; ++i) {
            send(u"Hello"_s);
        }
        m_world->clock.advance(1s);
        QCOMPARE(inserted.count(), 200);
        QCOMPARE(inserted.constLast().at(1).toInt(), 200);
        QCOMPARE(changed.count(), 0);
        QCOMPARE(reset.count(), 0);
    }

    void tellsOfTheCountOnlyWhenItChanges()
    {
        QSignalSpy told(m_chat.get(), &ChatState::messageCountChanged);
        m_chat->reset();
        QCOMPARE(told.count(), 0);
        send(u"Hello"_s);
        QCOMPARE(told.count(), 1);
        m_world->clock.advance(1s);
        QCOMPARE(told.count(), 2);
        m_chat->reset();
        QCOMPARE(told.count(), 3);
        QCOMPARE(m_chat->messageCount(), 1);
    }

    void announcesItsFieldsBeforeItWritesThem()
    {
        QStringList written;
        connect(m_chat.get(), &ChatState::willChange, this, [&](const QString &field) {
            QCOMPARE(m_chat->messageCount(), written.contains(u"messages"_s) ? 2 : 1);
            written.append(field);
        });
        send(u"Hello"_s);
        m_chat->setSelectedModel(u"Mistral Custom"_s);
        QCOMPARE(written, QStringList({u"inputText"_s, u"messages"_s, u"inputText"_s, u"selectedModel"_s}));
    }

    void keepsTenThousandMessages()
    {
        for (int i = 0; i < 5000; ++i) {
            send(QString::number(i));
        }
        m_world->clock.advance(1s);
        QCOMPARE(m_chat->messageCount(), 10'001);
        QCOMPARE(m_chat->records()[1].content, u"0"_s);
        QCOMPARE(m_chat->records().constLast().content, replyTo(u"4999"_s));
        m_world->clock.advance(24h);
        QCOMPARE(m_chat->messageCount(), 10'001);
    }

    void waitsWithTheReplyWhileAnAlertIsUp()
    {
        send(u"Hello"_s);
        MainQueue::shared().hold();
        m_world->clock.advance(3s);
        QCOMPARE(m_chat->messageCount(), 2);
        MainQueue::shared().release();
        testing::settle();
        QCOMPARE(m_chat->messageCount(), 3);
        // It carries the moment at which it came.
        QCOMPARE(m_chat->records()[1].timestamp.msecsTo(m_chat->records()[2].timestamp), 3000);
    }

    void takesItsRepliesWithItWhenItGoes()
    {
        send(u"Hello"_s);
        m_chat.reset();
        m_world->clock.advance(1s);
        QCOMPARE(m_world->clock.scheduledCount(), 0);
    }

    void asksNoServiceForAnything()
    {
        send(u"Hello"_s);
        m_world->clock.advance(1s);
        testing::settle();
        QVERIFY(m_world->service.requests().isEmpty());
    }
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_ChatState)
#include "tst_ChatState.moc"
