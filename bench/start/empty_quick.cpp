// The floor of every program made with Qt Quick: a window with nothing in it, compiled as ours is. Says when its first frame was on
// the screen, and every 30 seconds what share of a core it used.
#include "Bench.h"

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QTimer>

#include <cstdio>
#include <ctime>

using namespace Qt::StringLiterals;

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    QQmlApplicationEngine engine;
    engine.addImportPath(u"qrc:/qt/qml"_s);
    engine.load(QUrl(u"qrc:/qt/qml/Quillmere/Bench/EmptyWindow.qml"_s));
    auto *window = qobject_cast<QQuickWindow *>(engine.rootObjects().value(0));
    QObject::connect(
        window, &QQuickWindow::frameSwapped, window,
        [first = true]() mutable {
            if (std::exchange(first, false)) {
                std::printf("first-frame-work %.3f\n", quillmere::bench::processorTime());
                std::printf("first-frame %lld\n", static_cast<long long>(quillmere::bench::nanoseconds()));
                std::fflush(stdout);
            }
        },
        Qt::DirectConnection);
    if (argc > 1) {
        // At rest from the fourth second on.
        QTimer::singleShot(4000, [] {
            QTimer::singleShot(30'000, [before = std::clock()] {
                std::printf("share %.3f\n", 100.0 * double(std::clock() - before) / CLOCKS_PER_SEC / 30);
                QCoreApplication::quit();
            });
        });
    }
    return QGuiApplication::exec();
}
