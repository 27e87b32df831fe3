// How the long lists of the workspace keep up with their user: how soon a list is on the screen once the service's reply
// has been read, how soon the answer to a keystroke in its search is, how long a frame takes while it scrolls, and how many
// rows it keeps alive meanwhile. The floor of each figure is what the same screen takes for as many records as fit in it,
// measured in the same run. The exit code is 1 when the median of an opening is above 100 ms for 10,000 records, or that of
// a keystroke or of a frame above 33 ms for any number.

#include "Bench.h"
#include "app/theme/Theme.h"
#include "identity/AuthManager.h"
#include "platform/Environment.h"
#include "platform/Observable.h"
#include "platform/SystemClock.h"
#include "platform/SystemRandom.h"
#include "standin/StandIn.h"

#include <QGuiApplication>
#include <QHash>
#include <QKeyEvent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>

using namespace quillmere;
using namespace quillmere::bench;
using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 15;
constexpr double mostToOpen = 100;
constexpr double mostToAnswer = 33;
constexpr int timeout = 60'000;

// A screen with a long list.
struct Screen {
    const char *name;
    QString file;    // of the view
    QString records; // the field that says that the reply was read
    const char *row; // the QML type of a row
    void (*fill)(StandIn &service, int count);
    QString search; // what is typed, letter by letter
};

void fillModels(StandIn &service, int count)
{
    static const QByteArrayList tones{"calm", "terse", "vivid", "formal", "playful"};
    QByteArray models = "[";
    for (int i = 0; i < count; ++i) {
        const QByteArray number = QByteArray::number(i);
        models += i == 0 ? "" : ",";
        models += R"({"id":"model-)" + number + R"(","name":"Marlowe )" + number + R"( Instruct","description":"A )"
            + tones[i % tones.size()]
            + R"( model of the family, for support assistants, rewriting and summaries.","parameters":7000000000,)"
              R"("context_length":8192,"supports_finetuning":true,"size_bytes":14483464192})";
    }
    service.hasModels(models + ']');
}

const std::vector<Screen> screens{
    {"Models", u"Workspace/ModelsView.qml"_s, u"models"_s, "ModelCatalogCard", fillModels, u"vivid model"_s},
};

class MemorySecrets : public SecretStore {
public:
    void save(const QString &value, const QString &account) override { m_secrets[account] = value; }
    QCoro::Task<std::optional<QString>> read(const QString &account) override
    {
        const auto secret = m_secrets.constFind(account);
        co_return secret == m_secrets.cend() ? std::nullopt : std::optional(*secret);
    }
    void remove(const QString &account) override { m_secrets.remove(account); }

private:
    QHash<QString, QString> m_secrets;
};

void runUntil(auto condition, const char *what)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        check(timer.elapsed() < timeout, what);
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

class Window {
public:
    explicit Window(const Screen &screen) : m_screen(screen)
    {
        m_view.engine()->addImportPath(u"qrc:/qt/qml"_s);
        m_view.setResizeMode(QQuickView::SizeRootObjectToView);
        m_view.resize(1700, 1160);
        QObject::connect(&m_view, &QQuickWindow::frameSwapped, [this] { ++m_frames; });
        m_view.setSource(QUrl(u"qrc:/qt/qml/Quillmere/"_s + screen.file));
        check(m_view.rootObject(), "The view does not show.");
        // Of the view model, which begins its first load with the view.
        for (auto *object : m_view.rootObject()->findChildren<Observable *>()) {
            QObject::connect(object, &Observable::willChange, [this](const QString &field) {
                if (field == m_screen.records) {
                    m_sinceReply.start();
                }
            });
        }
        m_view.show();
        m_view.requestActivate();
    }

    // From the reply's being read to the first frame with a row.
    double opens()
    {
        runUntil([this] { return m_sinceReply.isValid() && !rows().isEmpty(); }, "No row came.");
        nextFrame([] {});
        return double(m_sinceReply.nsecsElapsed()) / 1e6;
    }

    // From here to the next frame on the screen.
    double nextFrame(auto &&change)
    {
        return millisecondsOf([&] {
            const int before = m_frames;
            change();
            m_view.update();
            runUntil([&] { return m_frames > before; }, "No frame came.");
        });
    }

    std::vector<double> types(const QString &text)
    {
        std::vector<double> times;
        const auto press = [&](int key, const QString &letter) {
            times.push_back(nextFrame([&] {
                QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, letter);
                QCoreApplication::sendEvent(&m_view, &down);
                QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, letter);
                QCoreApplication::sendEvent(&m_view, &up);
            }));
        };
        const int all = list()->property("count").toInt();
        for (const QChar letter : text) {
            press(0, letter);
        }
        const int found = list()->property("count").toInt();
        check(found > 0 && (all < 100 || found < all), "The search does not search.");
        for (qsizetype i = 0; i < text.size(); ++i) {
            press(Qt::Key_Backspace, u"\b"_s);
        }
        check(list()->property("count").toInt() == all, "The search does not end.");
        return times;
    }

    std::vector<double> scrolls(int frames, double step)
    {
        std::vector<double> times;
        for (int i = 0; i < frames; ++i) {
            times.push_back(nextFrame([&] {
                const double y = list()->property("contentY").toDouble();
                const double last = list()->property("contentHeight").toDouble() - list()->height();
                list()->setProperty("contentY", last > 0 ? std::fmod(y + step, last) : y + (i % 2 == 0 ? 1 : -1));
            }));
        }
        return times;
    }

    int liveRows() const { return int(rows().size()); }

    void focusSearch()
    {
        for (auto *item : m_view.rootObject()->findChildren<QQuickItem *>()) {
            if (item->inherits("QQuickTextInput")) {
                item->forceActiveFocus();
                return;
            }
        }
        check(false, "There is no search.");
    }

private:
    QQuickItem *list() const
    {
        for (auto *item : m_view.rootObject()->findChildren<QQuickItem *>()) {
            if (item->inherits("QQuickItemView") && item->isVisible()) {
                return item;
            }
        }
        return nullptr;
    }

    QList<QQuickItem *> rows() const
    {
        QList<QQuickItem *> rows;
        if (auto *view = list()) {
            rows = view->property("contentItem").value<QQuickItem *>()->childItems();
            rows.removeIf([this](const QQuickItem *item) {
                return !QByteArray(item->metaObject()->className()).startsWith(m_screen.row);
            });
        }
        return rows;
    }

    const Screen &m_screen;
    QElapsedTimer m_sinceReply;
    int m_frames = 0;
    QQuickView m_view;
};

struct Figures {
    std::vector<double> openings;
    std::vector<double> keys;
    std::vector<double> frames;
    int rows = 0;
};

Figures measure(const Screen &screen, StandIn &service, int count)
{
    screen.fill(service, count);
    Figures figures;
    const int times = count > 10'000 ? 3 : rounds;
    for (int round = 0; round < times; ++round) {
        Window window(screen);
        figures.openings.push_back(window.opens());
        if (round + 1 == times) {
            window.focusSearch();
            figures.keys = window.types(screen.search);
            figures.frames = window.scrolls(240, 60);
            figures.rows = window.liveRows();
        }
    }
    return figures;
}

double mostOf(const std::vector<double> &times)
{
    return *std::max_element(times.cbegin(), times.cend());
}

bool report(const Screen &screen, StandIn &service)
{
    std::printf("%s: median (worst) in milliseconds, beside the floor\n", screen.name);
    const Figures floor = measure(screen, service, 12);
    bool isFast = true;
    for (const int count : {10'000, 100'000}) {
        const Figures figures = measure(screen, service, count);
        std::printf("  %d records, %d rows alive\n", count, figures.rows);
        const auto print = [](const char *what, const std::vector<double> &times, const std::vector<double> &least) {
            std::printf("    %-28s %6.1f (%5.1f)   %6.1f   %.2f\n", what, medianOf(times), mostOf(times),
                medianOf(least), medianOf(times) / medianOf(least));
        };
        print("from reply to frame", figures.openings, floor.openings);
        print("from keystroke to frame", figures.keys, floor.keys);
        print("a frame of 60 points' scroll", figures.frames, floor.frames);
        isFast = isFast && (count > 10'000 || medianOf(figures.openings) <= mostToOpen)
            && std::max(medianOf(figures.keys), medianOf(figures.frames)) <= mostToAnswer;
    }
    return isFast;
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QGuiApplication application(argc, argv);
    Theme::registerFonts();

    StandIn service;
    check(service.listen(), "The stand-in service has no port.");
    Environment environment;
    environment.hosts = Hosts::builtIn();
    environment.hosts.apiEndpoint = service.origin();
    environment.clock = std::make_unique<SystemClock>();
    environment.secrets = std::make_unique<MemorySecrets>();
    environment.makeRandomSource = [] { return std::make_unique<SystemRandom>(1); };
    environment.animations = false;
    AuthManager &auth = AuthManager::shared();
    environment.secrets->save(service.signsIn(u"ada@example.org"_s), auth.tokenKey);
    auth.setIsAuthenticated(true);

    bool isFast = true;
    for (const Screen &screen : screens) {
        isFast = report(screen, service) && isFast;
    }
    return isFast ? 0 : 1;
}
