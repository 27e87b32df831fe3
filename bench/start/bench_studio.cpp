// The application as it is shipped, but led through its screens: it says on standard output what it saw on the way, a line each of a
// word and a number. Its service comes from QUILLMERE_SERVICE, its way from QUILLMERE_TOUR:
//
//   store TOKEN    stores the session's token
//   start          to the first frame
//   login          to the login screen
//   session        to the main window
//   visit          to the main window, and twice to each of its destinations and all their tabs
//   rest SCREEN    to one screen, where it stays. SCREEN is "login" or a destination, with a slash and the number of a tab where it
//                  has tabs.
#include "Bench.h"
#include "Frames.h"

#include "app/Quillmere_StudioApp.h"
#include "app/SidebarItem.h"
#include "identity/AuthManager.h"
#include "platform/Environment.h"

#include <QGuiApplication>
#include <QImage>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include <QCoroTimer>

#include <atomic>
#include <cstdio>
#include <ctime>

using namespace quillmere;
using namespace quillmere::bench;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

void say(const QByteArray &what, double number)
{
    std::printf("%s %.3f\n", what.constData(), number);
    std::fflush(stdout);
}

// Tabs of a destination: the property of its screen that selects one.
struct Tabs {
    int destination;
    const char *property;
    int count;
};

constexpr Tabs tabs[] = {
    {SidebarItem::Analytics, "selectedTab", 6}, {SidebarItem::Documentation, "selectedCategory", 6}};

class Tour : public QObject {
    Q_OBJECT

public:
    Tour() { qApp->installEventFilter(this); }

    const QByteArray way = qgetenv("QUILLMERE_TOUR").split(' ').value(0);
    const QByteArray end = qgetenv("QUILLMERE_TOUR").split(' ').value(1);

    bool isSignedIn() const { return way == "session" || way == "visit" || (way == "rest" && end != "login"); }

    void sessionCheckBegins() { m_sessionCheck = nanoseconds(); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *window = event->type() == QEvent::PlatformSurface ? qobject_cast<QQuickWindow *>(watched) : nullptr;
        if (window) {
            qApp->removeEventFilter(this);
            m_window = window;
            m_frames = std::make_unique<Frames>(*window);
            // In the renderer's thread, where it has one; the main thread stands still meanwhile.
            connect(
                window, &QQuickWindow::afterSynchronizing, this, [this] { synchronized(); }, Qt::DirectConnection);
            connect(
                window, &QQuickWindow::frameSwapped, this, [this] { swapped(); }, Qt::DirectConnection);
            QMetaObject::invokeMethod(
                this, [this] { go(); }, Qt::QueuedConnection);
        }
        return false;
    }

private:
    void synchronized()
    {
        if (m_sessionCheck > 0 && m_firstWithMain == 0 && mainWindow()) {
            m_firstWithMain = m_frames->count() + 1;
        }
    }

    void swapped()
    {
        if (m_frames->count() == 1) {
            // At once, as the empty window does: what the program does next is not on the way to this frame.
            say("first-frame-work", processorTime());
            say("first-frame", double(m_frames->lastAt()));
            m_hasFrame = true;
        }
        if (m_frames->count() == m_firstWithMain) {
            m_mainAt = m_frames->lastAt();
        }
    }

    // All of it on the program's own event loop: in a loop within, the screens that were left would not be deleted.
    QCoro::Task<> go()
    {
        while (!m_hasFrame) {
            co_await QCoro::sleepFor(2ms);
        }
        if (way == "login") {
            while (!screen("LoginView")) {
                co_await QCoro::sleepFor(100ms);
            }
            co_await tellMemory("login");
        } else if (isSignedIn()) {
            while (m_mainAt == 0) {
                co_await QCoro::sleepFor(2ms);
            }
            say("session", double(m_mainAt - m_sessionCheck) / 1e6);
        }
        if (way == "visit") {
            co_await tellMemory("main");
            co_await visitAll();
            co_await visitAll();
            co_await tellMemory("visited");
        } else if (way == "rest") {
            co_await rest();
        }
        QCoreApplication::quit();
    }

    QCoro::Task<> visitAll()
    {
        QQuickItem *const floor = plainRectangle();
        for (int item = 0; item < SidebarItem::count; ++item) {
            const std::function<void()> change = [floor, item] {
                floor->setProperty("color", QColor::fromHsv(item * 20, 255, 255));
            };
            say("floor", co_await m_frames->timeOf(change));
            const QByteArray name = SidebarItem::rawValue(item).toUtf8();
            co_await select(mainWindow(), "selection", item, name);
            for (const Tabs &of : tabs) {
                for (int tab = 0; of.destination == item && tab < of.count; ++tab) {
                    co_await select(destination(), of.property, tab, name + '/' + QByteArray::number(tab));
                }
            }
        }
        floor->deleteLater();
    }

    QCoro::Task<> select(QQuickItem *in, const char *property, int value, QByteArray name)
    {
        if (in->property(property) != value) {
            const std::function<void()> change = [in, property, value] { in->setProperty(property, value); };
            const double time = co_await m_frames->timeOf(change);
            say("to-" + name, time);
            co_await QCoro::sleepFor(400ms); // what was asked of the service comes, and what moves arrives
        }
    }

    // One of the size of a destination, whose change is the least that a frame with a new screen can bring.
    QQuickItem *plainRectangle()
    {
        QQmlComponent component(qmlEngine(mainWindow()));
        component.setData("import QtQuick; Rectangle { x: 220; y: 40 }", QUrl());
        auto *rectangle = qobject_cast<QQuickItem *>(component.create());
        rectangle->setParentItem(m_window->contentItem());
        rectangle->setSize(QSizeF(m_window->width() - 220, m_window->height() - 40));
        rectangle->setZ(-1);
        return rectangle;
    }

    QCoro::Task<> rest()
    {
        if (end != "login") {
            const QByteArrayList place = end.split('/');
            int item = 0;
            while (SidebarItem::rawValue(item) != QLatin1String(place[0])) {
                check(++item < SidebarItem::count, "There is no such destination.");
            }
            co_await select(mainWindow(), "selection", item, end);
            for (const Tabs &of : tabs) {
                if (of.destination == item) {
                    co_await select(destination(), of.property, place[1].toInt(), end);
                }
            }
        }
        co_await QCoro::sleepFor(4s);

        const int frames = m_frames->count();
        const std::clock_t before = std::clock();
        co_await QCoro::sleepFor(30s);
        say("share", 100 * double(std::clock() - before) / CLOCKS_PER_SEC / 30);
        say("frames", m_frames->count() - frames);
        if (m_frames->count() > frames) {
            m_seen = picture();
            connect(m_frames.get(), &Frames::swapped, this, &Tour::compare);
            co_await QCoro::sleepFor(10s);
            say("idle-frames", m_idleFrames);
        }
    }

    // Not what the screen shows at its place, which may be another window.
    QImage picture() const { return m_window->grabWindow(); }

    // Counts the frames after which the window looks as it did before.
    void compare()
    {
        const QImage now = picture();
        m_idleFrames += now == m_seen ? 1 : 0;
        m_seen = now;
    }

    QCoro::Task<> tellMemory(QByteArray where)
    {
        co_await QCoro::sleepFor(2s);
        say("memory-" + where, proportionalMemory(QCoreApplication::applicationPid()));
        say("anonymous-" + where, anonymousMemory(QCoreApplication::applicationPid()));
    }

    // A loaded item of this type, at most three levels below the window's own.
    QQuickItem *screen(const char *type) const { return find(m_window->contentItem(), type, 4); }
    QQuickItem *mainWindow() const { return screen("ContentView"); }

    QQuickItem *destination() const
    {
        for (QQuickItem *child : mainWindow()->childItems()) {
            if (child->inherits("QQuickLoader")) {
                return child->property("item").value<QQuickItem *>();
            }
        }
        return nullptr;
    }

    static QQuickItem *find(QQuickItem *item, const char *type, int depth)
    {
        if (QByteArray(item->metaObject()->className()).startsWith(type)) {
            return item;
        }
        for (QQuickItem *child : depth > 0 ? item->childItems() : QList<QQuickItem *>()) {
            if (QQuickItem *found = find(child, type, depth - 1)) {
                return found;
            }
        }
        return nullptr;
    }

    QQuickWindow *m_window = nullptr;
    qint64 m_sessionCheck = 0;
    std::unique_ptr<Frames> m_frames;
    std::atomic<int> m_firstWithMain = 0; // the frame that shows the main window
    QImage m_seen;
    int m_idleFrames = 0;
    std::atomic<bool> m_hasFrame = false;
    std::atomic<qint64> m_mainAt = 0;
};

// The real store, which tells when it is asked.
class WatchedSecrets : public SecretStore {
public:
    WatchedSecrets(std::unique_ptr<SecretStore> store, Tour &tour) : m_store(std::move(store)), m_tour(tour) { }

    void save(const QString &value, const QString &account) override { m_store->save(value, account); }
    void remove(const QString &account) override { m_store->remove(account); }

    QCoro::Task<std::optional<QString>> read(const QString &account) override
    {
        m_tour.sessionCheckBegins();
        return m_store->read(m_tour.isSignedIn() ? account : u"nobody"_s);
    }

private:
    std::unique_ptr<SecretStore> m_store;
    Tour &m_tour;
};

} // namespace

int main(int argc, char *argv[])
{
    return Quillmere_StudioApp::run(argc, argv, [] {
        auto environment = Environment::real();
        const QString service = qEnvironmentVariable("QUILLMERE_SERVICE");
        environment->hosts.apiEndpoint = service;
        environment->hosts.loginHost = service;
        environment->hosts.downloadHost = service;
        auto *tour = new Tour;
        tour->setParent(qApp);
        if (tour->way == "store") {
            environment->secrets->save(QString::fromUtf8(tour->end), AuthManager::shared().tokenKey);
            std::exit((environment.reset(), 0));
        }
        environment->secrets = std::make_unique<WatchedSecrets>(std::move(environment->secrets), *tour);
        return environment;
    });
}

#include "bench_studio.moc"
