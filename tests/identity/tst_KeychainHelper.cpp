#include "identity/KeychainHelper.h"
#include "support/CapturedOutput.h"
#include "support/PlatformEnvironment.h"

using namespace Qt::StringLiterals;
using quillmere::testing::eventually;

namespace quillmere {

namespace {

const auto key = u"a key"_s;

KeychainHelper &keychain()
{
    return KeychainHelper::shared();
}

} // namespace

class tst_KeychainHelper : public QObject {
    Q_OBJECT

private slots:
    void init() { m_world = std::make_unique<testing::PlatformEnvironment>(); }
    void cleanup() { m_world.reset(); }

    void isOneObject() { QCOMPARE(&KeychainHelper::shared(), &KeychainHelper::shared()); }

    void keepsTheSecondOfTwoValues()
    {
        keychain().save(u"first"_s, key);
        keychain().save(u"second"_s, key);
        QCOMPARE(read(), u"second"_s);
        keychain().remove(key);
        QCOMPARE(read(), u"absent"_s);
    }

    void readsAbsentForWhatWasNeverSaved() { QCOMPARE(read(), u"absent"_s); }

    void removesWhatWasNeverSavedWithoutAWord()
    {
        testing::CapturedOutput output;
        keychain().save(u"other"_s, u"another key"_s);
        keychain().remove(key);
        QCOMPARE(read(), u"absent"_s);
        QCOMPARE(m_world->secrets.peek(u"another key"_s).value_or(u"absent"_s), u"other"_s);
        QCOMPARE(output.lines(), QStringList());
    }

    void tellsAnEmptyTextFromAnAbsentOne()
    {
        keychain().save(u""_s, key);
        QCOMPARE(read(), u""_s);
    }

    void keepsATextLetterForLetter()
    {
        const auto value = u" a\nü\U0001F511\u0000b "_s;
        keychain().save(value, key);
        QCOMPARE(read(), value);
    }

    void isSilentWhenTheStoreRefuses()
    {
        testing::CapturedOutput output;
        keychain().save(u"old"_s, key);
        m_world->secrets.refuses = true;
        keychain().save(u"new"_s, key);
        QCOMPARE(read(), u"old"_s);
        keychain().remove(key);
        QCOMPARE(read(), u"old"_s);
        keychain().save(u"new"_s, u"another key"_s);
        QVERIFY(!m_world->secrets.peek(u"another key"_s));
        QCOMPARE(output.lines(), QStringList());
    }

    void asksTheStoreAtEachRead()
    {
        keychain().save(u"old"_s, key);
        QCOMPARE(read(), u"old"_s);
        m_world->secrets.save(u"written by somebody else"_s, key);
        QCOMPARE(read(), u"written by somebody else"_s);
        QCOMPARE(m_world->secrets.reads, QStringList({key, key}));
    }

private:
    // What a read gives, "absent" for nothing.
    static QString read()
    {
        std::optional<QString> outcome;
        keychain().read(key).then([&](std::optional<QString> value) { outcome = value.value_or(u"absent"_s); });
        return eventually([&] { return outcome.has_value(); }) ? *outcome : u"no answer"_s;
    }

    std::unique_ptr<testing::PlatformEnvironment> m_world;
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_KeychainHelper)
#include "tst_KeychainHelper.moc"
