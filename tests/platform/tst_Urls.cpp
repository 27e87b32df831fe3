#include "platform/Urls.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace quillmere {

class tst_Urls : public QObject {
    Q_OBJECT

private slots:
    void takesAUrlLetterForLetter_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("isUrl");
        QTest::addColumn<bool>("isWebUrl");
        const auto row = [](const char *name, const QString &text, bool isUrl, bool isWebUrl) {
            QTest::newRow(name) << text << isUrl << isWebUrl;
        };
        row("http", u"http://127.0.0.1:8750/v1/models"_s, true, true);
        row("https with a query", u"https://api.quillmere.example/v1/files?workspace_id=default"_s, true, true);
        row("https with a fragment", u"https://quillmere.example/#part"_s, true, true);
        row("upper-case scheme", u"HTTPS://quillmere.example/"_s, true, true);
        row("no path", u"https://quillmere.example"_s, true, true);
        row("escapes", u"https://quillmere.example/a%20b"_s, true, true);
        row("a bare IPv6 address", u"http://[::1]:8750/"_s, true, true);
        row("the callback", u"com.quillmere.studio://callback#access_token=a&b=c%20d"_s, true, false);
        row("the callback with one slash", u"com.quillmere.studio:/callback?access_token=a"_s, true, false);
        row("mail", u"mailto:support@quillmere.example"_s, true, false);
        row("data", u"data:image/png;base64,AAAA"_s, true, false);
        row("another protocol", u"ftp://quillmere.example/"_s, true, false);
        row("a word", u"noturl"_s, true, false);
        row("no scheme", u"//quillmere.example/x"_s, true, false);
        row("no host", u"http:///x"_s, true, false);
        row("nothing but a scheme", u"http://"_s, true, false);
        row("letters beyond ASCII", u"https://quillmere.example/é"_s, true, false);
        row("a host beyond ASCII", u"https://é.example/"_s, true, false);
        row("nothing", QString(), false, false);
        row("words", u"not a url"_s, false, false);
        row("a blank in the path", u"https://quillmere.example/models/a b/download"_s, false, false);
        row("a blank at the end", u"https://quillmere.example/ "_s, false, false);
        row("a blank in front", u" https://quillmere.example/"_s, false, false);
        row("a broken escape", u"https://quillmere.example/%zz"_s, false, false);
        row("half an escape", u"https://quillmere.example/%2"_s, false, false);
        row("half an escape before a letter beyond ASCII", u"com.quillmere.studio:#a=b%20c&d=%2\u0414"_s, false, false);
        row("a line's end", u"https://quillmere.example/\r\nX: y"_s, false, false);
        row("a NUL", u"https://quillmere.example/"_s + QChar(0), false, false);
        row("quotes", u"https://quillmere.example/\"x\""_s, false, false);
        row("braces", u"https://quillmere.example/{id}"_s, false, false);
        row("a port that is none", u"http://127.0.0.1:99999/"_s, false, false);
    }
    void takesAUrlLetterForLetter()
    {
        QFETCH(QString, text);
        QFETCH(bool, isUrl);
        QFETCH(bool, isWebUrl);
        QCOMPARE(parseUrl(text).has_value(), isUrl);
        QCOMPARE(parseWebUrl(text).has_value(), isWebUrl);
    }

    void keepsWhatItTook()
    {
        const QString text = u"com.quillmere.studio://callback#access_token=x&expires_in=3600&state=a%20b%26c"_s;
        QCOMPARE(parseUrl(text)->toString(QUrl::FullyEncoded), text);
        QCOMPARE(parseUrl(text)->fragment(QUrl::FullyEncoded), u"access_token=x&expires_in=3600&state=a%20b%26c"_s);
    }

    void comparesOrigins_data()
    {
        QTest::addColumn<QString>("a");
        QTest::addColumn<QString>("b");
        QTest::addColumn<bool>("same");
        const auto row = [](const char *name, const QString &a, const QString &b, bool same) {
            QTest::newRow(name) << a << b << same;
        };
        row("other path and query", u"https://a.example/x"_s, u"https://a.example/y?z"_s, true);
        row("the scheme's own port, https", u"https://a.example/"_s, u"https://a.example:443/"_s, true);
        row("the scheme's own port, http", u"http://a.example:80/"_s, u"http://a.example/"_s, true);
        row("other case of the host", u"https://A.example/"_s, u"https://a.EXAMPLE/"_s, true);
        row("other credentials", u"https://u:p@a.example/"_s, u"https://a.example/"_s, true);
        row("other port", u"https://a.example/"_s, u"https://a.example:8443/"_s, false);
        row("the other scheme's port", u"http://a.example:443/"_s, u"http://a.example/"_s, false);
        row("other scheme", u"https://a.example/"_s, u"http://a.example/"_s, false);
        row("other scheme on the same port", u"https://a.example:8443/"_s, u"http://a.example:8443/"_s, false);
        row("a host below", u"https://a.example/"_s, u"https://b.a.example/"_s, false);
        row("a host that begins alike", u"https://a.example/"_s, u"https://a.example.org/"_s, false);
    }
    void comparesOrigins()
    {
        QFETCH(QString, a);
        QFETCH(QString, b);
        QFETCH(bool, same);
        QCOMPARE(isSameOrigin(QUrl(a), QUrl(b)), same);
        QCOMPARE(isSameOrigin(QUrl(b), QUrl(a)), same);
    }
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_Urls)
#include "tst_Urls.moc"
