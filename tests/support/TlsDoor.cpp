#include "support/TlsDoor.h"

#include <QFile>
#include <QProcess>
#include <QSslSocket>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace quillmere::testing {

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("openssl made no %s", qPrintable(path));
    }
    return file.readAll();
}

void pass(QTcpSocket *from, QTcpSocket *to)
{
    const auto passOn = [from, to] { to->write(from->readAll()); };
    QObject::connect(from, &QTcpSocket::readyRead, to, passOn);
    QObject::connect(from, &QTcpSocket::disconnected, to, [to, passOn] {
        passOn();
        to->disconnectFromHost();
    });
    passOn();
}

} // namespace

Certificate Certificate::madeFor(const QString &name)
{
    const QTemporaryDir folder;
    const QString certificate = folder.filePath(u"certificate.pem"_s);
    const QString key = folder.filePath(u"key.pem"_s);
    QProcess openssl;
    openssl.start(u"openssl"_s,
        {u"req"_s, u"-x509"_s, u"-newkey"_s, u"ec"_s, u"-pkeyopt"_s, u"ec_paramgen_curve:P-256"_s, u"-nodes"_s,
            u"-days"_s, u"2"_s, u"-subj"_s, u"/CN=Quillmere test"_s, u"-addext"_s, u"subjectAltName="_s + name,
            u"-out"_s, certificate, u"-keyout"_s, key});
    if (!openssl.waitForFinished() || openssl.exitCode() != 0) {
        qFatal("openssl: %s", openssl.readAllStandardError().constData());
    }
    return {QSslCertificate(contentOf(certificate)), QSslKey(contentOf(key), QSsl::Ec)};
}

Trust::Trust(const Certificate &certificate) : m_before(QSslConfiguration::defaultConfiguration())
{
    QSslConfiguration trusting = m_before;
    trusting.addCaCertificate(certificate.certificate);
    QSslConfiguration::setDefaultConfiguration(trusting);
}

TlsDoor::TlsDoor(const StandIn &behind, const Certificate &certificate)
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(certificate.certificate);
    configuration.setPrivateKey(certificate.key);
    m_server.setSslConfiguration(configuration);
    if (!m_server.listen(QHostAddress::LocalHost)) {
        qFatal("The door has no port: %s", qPrintable(m_server.errorString()));
    }
    QObject::connect(&m_server, &QSslServer::startedEncryptionHandshake, &m_server, [this] { ++m_callers; });
    QObject::connect(&m_server, &QTcpServer::pendingConnectionAvailable, &m_server, [this, port = behind.port()] {
        while (QTcpSocket *caller = m_server.nextPendingConnection()) {
            auto *service = new QTcpSocket(caller);
            service->connectToHost(QHostAddress::LocalHost, port);
            pass(caller, service);
            pass(service, caller);
        }
    });
}

QString TlsDoor::origin() const
{
    return u"https://127.0.0.1:%1"_s.arg(m_server.serverPort());
}

} // namespace quillmere::testing
