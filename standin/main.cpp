#include "standin/StandIn.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"quillmere-standin"_s);

    QCommandLineParser parser;
    parser.setApplicationDescription(u"The Quillmere service in small, on this machine only."_s);
    parser.addHelpOption();
    const QCommandLineOption portOption(u"port"_s, u"Port on 127.0.0.1; 0 takes a free one."_s, u"N"_s, u"8750"_s);
    parser.addOption(portOption);
    parser.process(application);

    bool isPort = false;
    const quint16 port = parser.value(portOption).toUShort(&isPort);
    if (!isPort) {
        std::fprintf(stderr, "quillmere-standin: no port number: %s\n", qPrintable(parser.value(portOption)));
        return 2;
    }
    StandIn service;
    // An account whose authenticator is at hand for everyone who reads docs/service.md.
    service.hasAccount(u"demo@quillmere.example"_s, u"JBSWY3DPEHPK3PXPJBSWY3DPEHPK3PXP"_s);
    service.runsByItself(5s);
    service.dripsEvery(1s);
    service.takesFaultsOverHttp();
    if (!service.listen(port)) {
        std::fprintf(stderr, "quillmere-standin: port %d: %s\n", int(port), qPrintable(service.errorString()));
        return 1;
    }
    std::printf("Listening on %s\n", qPrintable(service.origin()));
    std::fflush(stdout);
    return QCoreApplication::exec();
}
