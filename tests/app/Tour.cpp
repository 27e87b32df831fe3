#include "app/Tour.h"

#include "analytics/dashboard/StudioAnalyticsTab.h"
#include "app/LifecycleManager.h"
#include "app/RootViewState.h"
#include "app/UpdateManager.h"
#include "identity/AuthManager.h"
#include "platform/Alerts.h"
#include "platform/DesktopFilePicker.h"
#include "platform/FileDialog.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QQuickWindow>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmere::testing {

namespace {

const auto address = u"ada@example.org"_s;
const auto secret = u"JBSWY3DPEHPK3PXP"_s;

bool isOf(const QQuickItem *item, const QString &type)
{
    for (const QMetaObject *meta = item->metaObject(); meta; meta = meta->superClass()) {
        if (QString::fromLatin1(meta->className()).startsWith(type + u"_QML"_s)) {
            return true;
        }
    }
    return false;
}

bool alertComesUp()
{
    return eventually([] { return Alerts::shared().isUp(); });
}

} // namespace

struct Tour::Place {
    enum Start { Splash, SignedOut, SignedIn };

    QString name;
    Start start;
    std::function<bool(Tour &)> way;
};

const QList<Tour::Place> &Tour::table()
{
    using enum Place::Start;
    static const auto destination = [](const char *name, SidebarItem::Case item) {
        return Place{QString::fromLatin1(name), SignedIn, [item](Tour &tour) { return tour.selects(item); }};
    };
    static const auto part = [](const char *name, SidebarItem::Case item, const char *property, const QVariant &value) {
        return Place{QString::fromLatin1(name), SignedIn,
            [=](Tour &tour) { return tour.selects(item) && tour.turns(property, value); }};
    };
    static const auto wizard = [](const char *name, qsizetype steps) {
        return Place{QString::fromLatin1(name), SignedIn,
            [=](Tour &tour) { return tour.selects(SidebarItem::FineTune) && tour.chooses(steps); }};
    };
    // The destination as it is where the service answers like that.
    static const auto answered = [](const char *name, SidebarItem::Case item, const char *route, int status) {
        return Place{QString::fromLatin1(name), SignedIn, [=](Tour &tour) {
                         tour.m_world->service.on(route).answers(status, R"({"data": []})");
                         return tour.selects(item);
                     }};
    };

    static const QList<Place> places{
        {u"splash"_s, Splash, [](Tour &tour) { return tour.shows(u"SplashBrand"_s); }},

        destination("dashboard", SidebarItem::Dashboard),
        destination("projects", SidebarItem::Projects),
        part("projects, a new one", SidebarItem::Projects, "showNewProjectSheet", true),
        destination("datasets", SidebarItem::Datasets),
        answered("datasets, none", SidebarItem::Datasets, "GET /v1/files", 200),
        {u"datasets, dialog for files"_s, SignedIn,
            [](Tour &tour) {
                return tour.selects(SidebarItem::Datasets) && tour.clicks(u"PrimaryButton"_s)
                    && tour.shows(u"FileDialogRow"_s, 2);
            }},
        destination("models", SidebarItem::Models),
        answered("models, none", SidebarItem::Models, "GET /v1/models", 200),
        answered("models, failed", SidebarItem::Models, "GET /v1/models", 500),
        destination("training", SidebarItem::Training),
        answered("training, no jobs", SidebarItem::Training, "GET /v1/fine-tuning/jobs", 200),
        part("training, a new one", SidebarItem::Training, "showNewTrainingSheet", true),
        part("analytics, overview", SidebarItem::Analytics, "selectedTab", StudioAnalyticsTab::Overview),
        part("analytics, training", SidebarItem::Analytics, "selectedTab", StudioAnalyticsTab::Training),
        {u"analytics, full telemetry"_s, SignedIn,
            [](Tour &tour) {
                return tour.selects(SidebarItem::Analytics) && tour.turns("isTelemetryFull", true)
                    && tour.turns("selectedTab", StudioAnalyticsTab::Training);
            }},
        part("analytics, validation", SidebarItem::Analytics, "selectedTab", StudioAnalyticsTab::Validation),
        part("analytics, deployment", SidebarItem::Analytics, "selectedTab", StudioAnalyticsTab::Deployment),
        part("analytics, monitoring", SidebarItem::Analytics, "selectedTab", StudioAnalyticsTab::Monitoring),
        part("analytics, telemetry", SidebarItem::Analytics, "selectedTab", StudioAnalyticsTab::Telemetry),
        part("analytics, system monitor", SidebarItem::Analytics, "showSystemMonitor", true),
        part("settings, account", SidebarItem::Settings, "selectedSection", 0),
        part("settings, subscription", SidebarItem::Settings, "selectedSection", 1),
        part("settings, preferences", SidebarItem::Settings, "selectedSection", 2),
        part("settings, about", SidebarItem::Settings, "selectedSection", 3),
        part("documentation, first steps", SidebarItem::Documentation, "selectedCategory", 0),
        part("documentation, fine-tuning", SidebarItem::Documentation, "selectedCategory", 1),
        part("documentation, datasets", SidebarItem::Documentation, "selectedCategory", 2),
        part("documentation, models", SidebarItem::Documentation, "selectedCategory", 3),
        part("documentation, interface", SidebarItem::Documentation, "selectedCategory", 4),
        part("documentation, shortcuts", SidebarItem::Documentation, "selectedCategory", 5),
        destination("wizard, data", SidebarItem::FineTune),
        wizard("wizard, model", 1),
        wizard("wizard, configuration", 2),
        wizard("wizard, review", 3),
        wizard("wizard, done", 4),
        destination("chat", SidebarItem::Chat),
        {u"chat, answered"_s, SignedIn,
            [](Tour &tour) {
                if (!tour.selects(SidebarItem::Chat) || !tour.clicks(u"MessageField"_s)) {
                    return false;
                }
                tour.m_eyes->type(u"Hello"_s);
                tour.m_eyes->press(Qt::Key_Return);
                tour.clock().advance(1s);
                return tour.shows(u"ChatMessageRow"_s, 2);
            }},
        {u"chat, models"_s, SignedIn,
            [](Tour &tour) {
                return tour.selects(SidebarItem::Chat) && tour.clicks(u"ModelMenu"_s) && tour.shows(u"MenuItem"_s);
            }},
        destination("deployment", SidebarItem::Deployment),
        destination("agents", SidebarItem::Agents),
        {u"agents, model selected"_s, SignedIn, [](Tour &tour) { return tour.selectsNode(1); }},
        {u"agents, tool selected"_s, SignedIn, [](Tour &tour) { return tour.selectsNode(2); }},
        {u"agents, nodes to add"_s, SignedIn,
            [](Tour &tour) {
                return tour.selects(SidebarItem::Agents) && tour.clicks(u"AddNodeMenu"_s) && tour.shows(u"MenuItem"_s);
            }},
        {u"agents, model presets"_s, SignedIn,
            [](Tour &tour) {
                return tour.selectsNode(1) && tour.clicks(u"ModelPresets"_s) && tour.shows(u"MenuItem"_s);
            }},
        {u"agents, kinds of tools"_s, SignedIn,
            [](Tour &tour) {
                if (!tour.selectsNode(2) || !tour.shows(u"ToolTypePicker"_s)) {
                    return false;
                }
                const QQuickItem *picker = tour.m_eyes->all(u"ToolTypePicker"_s)[0];
                tour.m_eyes->click(tour.m_eyes->all(u"ButtonBase"_s, picker).value(0));
                return tour.shows(u"MenuItem"_s);
            }},
        destination("profile", SidebarItem::Profile),
        {u"a newer version"_s, SignedIn,
            [](Tour &tour) {
                tour.m_world->service.offersVersion(u"9.0.0"_s, u"https://quillmere.example/9"_s);
                UpdateManager::shared().checkForUpdates();
                return alertComesUp();
            }},
        {u"a place to move to"_s, SignedIn,
            [](Tour &tour) {
                tour.m_world->environment.program = u"/tmp/Downloads/Quillmere Studio.app/bin/quillmere-studio"_s;
                LifecycleManager::checkLocation();
                return alertComesUp();
            }},

        {u"sign-in, address"_s, SignedOut, [](Tour &tour) { return tour.shows(u"EmailStep"_s); }},
        {u"sign-in, failed"_s, SignedOut,
            [](Tour &tour) {
                tour.m_world->service.on("POST /api/auth/user/login-init").answers(500);
                return tour.entersAddress() && tour.shows(u"FailureLine"_s);
            }},
        {u"sign-in, authenticator to set up"_s, SignedOut,
            [](Tour &tour) { return tour.entersAddress() && tour.shows(u"AuthenticatorSetup"_s) && tour.isStill(); }},
        {u"sign-in, code"_s, SignedOut, [](Tour &tour) { return tour.entersCode(); }},
        {u"sign-in, in the browser"_s, SignedOut,
            [](Tour &tour) {
                if (!tour.entersCode()) {
                    return false;
                }
                tour.m_eyes->type(StandIn::totp(secret, tour.clock().now()));
                tour.m_eyes->press(Qt::Key_Return);
                return tour.shows(u"BrowserPanel"_s);
            }},
    };
    return places;
}

QStringList Tour::places()
{
    QStringList names;
    for (const Place &place : table()) {
        names.append(place.name);
    }
    return names;
}

void Tour::addRows()
{
    QTest::addColumn<QString>("place");
    for (const QString &place : places()) {
        QTest::addRow("%s", qPrintable(place)) << place;
    }
}

Tour::Tour(QSize size) : m_size(size)
{
    QAccessible::setActive(true);
    QCoreApplication::setApplicationVersion(u"1.0.0"_s); // which is the newest that the service has
    qputenv("HOME", QFile::encodeName(m_home.path()));
    QDir(m_home.path()).mkdir(u"Samples"_s);
    QFile dataset(m_home.filePath(u"questions.json"_s));
    if (!dataset.open(QIODevice::WriteOnly)) {
        qFatal("%s cannot be written.", qPrintable(dataset.fileName()));
    }
}

Tour::~Tour()
{
    m_studio.reset();
}

bool Tour::goesTo(const QString &name)
{
    const auto place =
        std::find_if(table().cbegin(), table().cend(), [&](const Place &one) { return one.name == name; });
    if (place == table().cend()) {
        return false;
    }
    if (place->start == Place::SignedIn && isSignedIn()) {
        turnsBack();
    } else {
        starts(place->start == Place::SignedIn);
        if (place->start != Place::Splash) {
            clock().advance(RootViewState::splashTime);
        }
    }
    const bool isThere = place->start != Place::SignedIn || eventually([this] { return isSignedIn(); });
    const bool arrives = isThere && place->way(*this);
    settle();
    return arrives;
}

void Tour::starts(bool signedIn)
{
    m_studio.reset();
    m_world.reset();
    m_world = std::make_unique<TestEnvironment>();
    m_world->environment.filePicker = std::make_unique<DesktopFilePicker>();
    if (signedIn) {
        m_world->secrets.save(m_world->service.signsIn(address), AuthManager::shared().tokenKey);
    }
    m_studio = std::make_unique<Quillmere_StudioApp>();
    if (!m_studio->open()) {
        qFatal("The program does not open.");
    }
    window()->resize(m_size);
    window()->requestActivate();
    if (!QTest::qWaitForWindowActive(window())) {
        qFatal("The program's window does not show.");
    }
    m_eyes = std::make_unique<Window>(*window());
    settle();
}

bool Tour::isSignedIn() const
{
    return m_studio && AuthManager::shared().hasCurrentUser() && content();
}

void Tour::turnsBack()
{
    m_world->service.clearFaults();
    while (Alerts::shared().isUp()) {
        Alerts::shared().answer(int(Alerts::shared().buttons().size()) - 1);
        settle();
    }
    FileDialog::shared().close();
    window()->resize(m_size);
    content()->setProperty("selection", SidebarItem::Profile);
    settle();
    // Menus and sheets go with what put them up.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QQuickWindow *Tour::window() const
{
    return m_studio->window();
}

QQuickItem *Tour::foremost() const
{
    QQuickItem *front = window()->contentItem();
    double height = -1;
    for (QQuickItem *layer : window()->contentItem()->childItems()) {
        if (!layer->inherits("QQuickOverlay")) {
            continue;
        }
        for (QQuickItem *popup : layer->childItems()) {
            if (popup->inherits("QQuickPopupItem") && popup->isVisible() && popup->z() >= height) {
                front = popup;
                height = popup->z();
            }
        }
    }
    return front;
}

QQuickItem *Tour::around(QQuickItem *item, const QString &type)
{
    while (item && !isOf(item, type)) {
        item = item->parentItem();
    }
    return item;
}

QQuickItem *Tour::content() const
{
    return m_eyes->all(u"ContentView"_s).value(0);
}

QQuickItem *Tour::destination() const
{
    for (QQuickItem *child : content()->childItems()) {
        if (child->inherits("QQuickLoader")) {
            return child->property("item").value<QQuickItem *>();
        }
    }
    return nullptr;
}

bool Tour::selects(SidebarItem::Case item)
{
    // What is selected already would stay as it is.
    for (const int step : {int(item == SidebarItem::Profile ? SidebarItem::Chat : SidebarItem::Profile), int(item)}) {
        content()->setProperty("selection", step);
        settle();
    }
    if (!destination()) {
        return false;
    }
    // Some load from the service, others bring their samples after a while.
    clock().advance(500ms);
    return isStill();
}

bool Tour::turns(const char *property, const QVariant &value)
{
    const bool turned = destination()->setProperty(property, value);
    settle();
    return turned && isStill();
}

bool Tour::clicks(const QString &type, qsizetype index)
{
    if (!shows(type, index + 1)) {
        return false;
    }
    m_eyes->click(m_eyes->all(type)[index]);
    settle();
    return true;
}

bool Tour::shows(const QString &type, qsizetype atLeast)
{
    return eventually([&] { return m_eyes->all(type).size() >= atLeast; });
}

// Nothing is being loaded.
bool Tour::isStill()
{
    return eventually([this] { return m_eyes->all(u"Spinner"_s).isEmpty(); });
}

bool Tour::entersAddress()
{
    if (!shows(u"EmailStep"_s)) {
        return false;
    }
    m_eyes->type(address);
    m_eyes->press(Qt::Key_Return);
    return true;
}

bool Tour::entersCode()
{
    m_world->service.hasAccount(address, secret);
    return entersAddress() && shows(u"AuthenticatorStep"_s) && isStill();
}

// The wizard's next step so many times; the last one starts the training.
bool Tour::chooses(qsizetype steps)
{
    bool isThere = clicks(u"DatasetOptionCard"_s, 1);
    for (qsizetype i = 0; i < std::min<qsizetype>(steps, 3); ++i) {
        isThere = isThere && clicks(u"ContinueButton"_s);
    }
    if (steps < 4 || !isThere) {
        return isThere;
    }
    const QQuickItem *review = m_eyes->all(u"ReviewStep"_s).value(0);
    m_eyes->click(m_eyes->all(u"ButtonBase"_s, review).last());
    clock().advance(2s);
    return shows(u"SuccessView"_s);
}

bool Tour::selectsNode(int index)
{
    return selects(SidebarItem::Agents) && clicks(u"NodeView"_s, index) && shows(u"InspectorView"_s);
}

void TourTest::initTestCase()
{
    failOnWarnings();
    m_tour = std::make_unique<Tour>();
}

void TourTest::init()
{
    failOnWarnings();
}

void TourTest::cleanupTestCase()
{
    m_tour.reset();
}

QRectF visiblePart(const QQuickItem *item, QRectF part)
{
    for (const QQuickItem *outer = item->parentItem(); outer; outer = outer->parentItem()) {
        if (outer->clip()) {
            part &= placeOf(outer);
        }
    }
    return part;
}

bool isWithin(const QQuickItem *item, const QQuickItem *whole)
{
    while (item && item != whole) {
        item = item->parentItem();
    }
    return item != nullptr;
}

} // namespace quillmere::testing
