// The application as it is shipped, but for the service it talks to: its origin comes from the environment, so that each
// journey has a service of its own on a free port. A line on standard input selects the destination of that raw value, since no row
// of the sidebar leads to some.
#include "app/Quillmere_StudioApp.h"
#include "app/SidebarItem.h"
#include "platform/Environment.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSocketNotifier>

#include <iostream>
#include <string>

#include <unistd.h>

using namespace quillmere;

namespace {

// The main window's content, which has the selection; null while another screen shows.
QQuickItem *contentIn(QQuickItem *item)
{
    if (item->metaObject()->indexOfProperty("selection") >= 0) {
        return item;
    }
    for (QQuickItem *child : item->childItems()) {
        if (QQuickItem *content = contentIn(child)) {
            return content;
        }
    }
    return nullptr;
}

void select(const QString &destination)
{
    for (int item = 0; item < SidebarItem::count; ++item) {
        if (SidebarItem::rawValue(item) != destination) {
            continue;
        }
        for (QWindow *window : QGuiApplication::topLevelWindows()) {
            const auto *scene = qobject_cast<QQuickWindow *>(window);
            if (QQuickItem *content = scene ? contentIn(scene->contentItem()) : nullptr) {
                content->setProperty("selection", item);
            }
        }
    }
}

void listenToStandardInput()
{
    auto *input = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, qApp);
    QObject::connect(input, &QSocketNotifier::activated, qApp, [input] {
        std::string line;
        if (std::getline(std::cin, line)) {
            select(QString::fromStdString(line));
        } else {
            input->setEnabled(false);
        }
    });
}

} // namespace

int main(int argc, char *argv[])
{
    return Quillmere_StudioApp::run(argc, argv, [] {
        auto environment = Environment::real();
        const QString service = qEnvironmentVariable("QUILLMERE_SERVICE");
        environment->hosts.apiEndpoint = service;
        environment->hosts.loginHost = service;
        environment->hosts.downloadHost = service;
        listenToStandardInput();
        return environment;
    });
}
