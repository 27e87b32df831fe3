#include "configuration/Hosts.h"
#include "journeys/Desktop.h"
#include "journeys/Studio.h"
#include "standin/StandIn.h"

#include <QDir>
#include <QFile>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>
#include <QUrl>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const auto address = u"grace@example.org"_s;
const auto secret = u"JBSWY3DPEHPK3PXPJBSWY3DPEHPK3PXP"_s;

} // namespace

// The program as the package installs it, in a Debian system of its own ($PACKAGE_ROOT, made by packaging/journey), with the
// display, the session bus and the service of this one.
class tst_InstalledPackage : public QObject {
    Q_OBJECT

    const QString m_root = qEnvironmentVariable("PACKAGE_ROOT");

    // Runs a program of that system.
    std::unique_ptr<Studio> starts(const QStringList &command) const
    {
        return std::make_unique<Studio>(
            u"chroot"_s, QStringList(m_root) + command, QProcessEnvironment::systemEnvironment());
    }

    static QByteArray page(const QUrl &url)
    {
        QNetworkAccessManager network;
        const std::unique_ptr<QNetworkReply> reply(network.get(QNetworkRequest(url)));
        return QTest::qWaitFor([&] { return reply->isFinished(); }, 20'000) ? reply->readAll() : QByteArray();
    }

private slots:
    void initTestCase() { QVERIFY2(QFile::exists(m_root + u"/usr/bin/quillmere-studio"_s), qPrintable(m_root)); }

    void signsInThroughThePackagesOwnSchemeHandler()
    {
        StandIn service;
        QVERIFY(service.listen(quint16(QUrl(quillmere::Hosts::builtIn().loginHost).port())));
        service.hasAccount(address, secret);
        // A browser that only notes where it was sent.
        const QString sent = desktop::dataFolder() + u"/sent"_s;
        const QString browser = desktop::dataFolder() + u"/browser"_s;
        QFile script(browser);
        QVERIFY(QDir().mkpath(desktop::dataFolder()) && script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\nprintf %s \"$1\" >'" + QFile::encodeName(sent) + ".part' && mv '"
            + QFile::encodeName(sent) + ".part' '" + QFile::encodeName(sent) + "'\n");
        script.setPermissions(script.permissions() | QFile::ExeOwner);
        script.close();
        QVERIFY(desktop::setBrowser(browser, desktop::dataFolder(), desktop::configFolder()));

        const auto studio = starts({u"/usr/bin/quillmere-studio"_s});
        QVERIFY(studio->entersCredentials(address, secret));
        QVERIFY(QTest::qWaitFor([&] { return QFile::exists(sent); }, 20'000));
        QFile note(sent);
        QVERIFY(note.open(QIODevice::ReadOnly));
        static const QRegularExpression way(u"id=\"return\" href=\"([^\"]*)\""_s);
        const auto wayBack = way.match(QString::fromUtf8(page(QUrl(QString::fromUtf8(note.readAll())))));
        QVERIFY(wayBack.hasMatch());
        const QString callback = wayBack.captured(1).replace(u"&amp;"_s, u"&"_s);
        QVERIFY(starts({u"/usr/bin/xdg-open"_s, callback})->ends());

        QVERIFY(studio->shows(u"Sidebar"_s));
        QVERIFY(studio->shows(address));
        QCOMPARE(studio->said(), QByteArray());
        QCOMPARE(service.unexpectedRequests(), QStringList());
        // The package answers for the scheme: the program writes no handler of its own, and offers no move.
        QVERIFY(!QFile::exists(desktop::dataFolder() + u"/applications/com.quillmere.studio.desktop"_s));
        QVERIFY(!studio->isShowing(u"Move to Applications?"_s));
        QVERIFY(desktop::press(u"alt+F4"_s));
        QVERIFY(studio->ends());
    }

    void namesItsWindowAfterTheDesktopEntry()
    {
        const auto studio = starts({u"/usr/bin/quillmere-studio"_s});
        QVERIFY(studio->focuses(u"Email"_s) || studio->shows(u"Sidebar"_s));
        QProcess search;
        search.start(u"xdotool"_s, {u"search"_s, u"--onlyvisible"_s, u"--class"_s, u"^com\\.quillmere\\.studio$"_s});
        QVERIFY(search.waitForFinished());
        QCOMPARE(search.readAllStandardOutput().trimmed().split('\n').size(), 1);
        QCOMPARE(search.exitCode(), 0);
    }
};

QTEST_GUILESS_MAIN(tst_InstalledPackage)
#include "tst_InstalledPackage.moc"
