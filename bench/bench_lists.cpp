// How the long lists of the workspace keep up with their user: how soon a list is on the screen once the service's reply
// has been read, how soon the answer to a keystroke in its search is, how long a frame takes while it scrolls, and how many
// rows it keeps alive meanwhile. The floor of each figure is what the same screen takes for as many records as fit in it.
#include "Bench.h"
#include "Frames.h"
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

constexpr double mostToOpen = 100;
constexpr double mostToAnswer = 33;

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

void fillDatasets(StandIn &service, int count)
{
    static const QByteArrayList endings{"jsonl", "csv", "txt", "parquet"};
    QByteArray files = "[";
    for (int i = 0; i < count; ++i) {
        const QByteArray number = QByteArray::number(i);
        files += i == 0 ? "" : ",";
        files += R"({"id":"file-)" + number + R"(","filename":"support_tickets_)" + number + '.'
            + endings[i % endings.size()] + R"(","purpose":"fine-tune","bytes":)" + QByteArray::number(1000 + i * 977LL)
            + R"(,"created_at":"2026-05-01T12:00:00Z"})";
    }
    service.hasFiles(files + ']');
}

const std::vector<Screen> screens{
    {"models", u"Workspace/ModelsView.qml"_s, u"models"_s, "ModelCatalogCard", fillModels, u"vivid model"_s},
    {"datasets", u"Workspace/DatasetsView.qml"_s, u"datasets"_s, "QQuickColumn", fillDatasets, u"tickets_1"_s},
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

class Window {
public:
    explicit Window(const Screen &screen) : m_screen(screen)
    {
        m_view.engine()->addImportPath(u"qrc:/qt/qml"_s);
        m_view.setResizeMode(QQuickView::SizeRootObjectToView);
        m_view.resize(1700, 1160);
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
        m_frames.timeTo([] {});
        return double(m_sinceReply.nsecsElapsed()) / 1e6;
    }

    Samples types(const QString &text)
    {
        Samples times;
        const auto press = [&](int key, const QString &letter) {
            times.push_back(m_frames.timeTo([&] {
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

    Samples scrolls(int frames, double step)
    {
        Samples times;
        for (int i = 0; i < frames; ++i) {
            times.push_back(m_frames.timeTo([&] {
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
    QQuickView m_view;
    Frames m_frames{m_view};
};

struct Figures {
    Samples openings;
    Samples keys;
    Samples frames;
    int rows = 0;
};

void measure(const Screen &screen, StandIn &service, int count, int rounds, Figures &figures)
{
    screen.fill(service, count);
    for (int round = 0; round < rounds; ++round) {
        Window window(screen);
        figures.openings.push_back(window.opens());
        if (round + 1 == rounds) {
            window.focusSearch();
            const Samples keys = window.types(screen.search);
            figures.keys.insert(figures.keys.end(), keys.cbegin(), keys.cend());
            const Samples frames = window.scrolls(120, 60);
            figures.frames.insert(figures.frames.end(), frames.cbegin(), frames.cend());
            figures.rows = window.liveRows();
        }
    }
}

void report(const Screen &screen, StandIn &service, int turns)
{
    for (const int count : {10'000, 100'000}) {
        Figures floor;
        Figures figures;
        for (int turn = 0; turn < turns; ++turn) {
            measure(screen, service, 12, 3, floor);
            measure(screen, service, count, 3, figures);
        }
        const QString name = u"%1 %2: "_s.arg(count).arg(QLatin1String(screen.name));
        const QString least = u"twelve of them"_s;
        print({name + u"from reply to frame"_s, "ms", figures.openings, least, floor.openings, atMost(mostToOpen)});
        print({name + u"from keystroke to frame"_s, "ms", figures.keys, least, floor.keys, atMost(mostToAnswer)});
        print({name + u"frame of a scroll"_s, "ms", figures.frames, least, floor.frames, atMost(mostToAnswer)});
        print({name + u"rows alive"_s, "", {double(figures.rows)}, least, {double(floor.rows)}, atMost(60)});
    }
}

} // namespace

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    Theme::registerFaces();

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

    for (const Screen &screen : screens) {
        report(screen, service, isQuick(argc, argv) ? 2 : 4);
    }
    return exitCode();
}
