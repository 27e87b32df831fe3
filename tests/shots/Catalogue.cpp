#include "shots/Catalogue.h"

#include "analytics/dashboard/StudioAnalyticsTab.h"
#include "app/LifecycleManager.h"
#include "app/UpdateManager.h"
#include "charts/ChartGallery.h"
#include "controls/GalleryPicture.h"
#include "identity/AuthManager.h"
#include "platform/Alerts.h"
#include "platform/BrowserSession.h"
#include "platform/FileDialog.h"
#include "shots/Stage.h"
#include "tools/agents/AgentsState.h"
#include "tools/documentation/DocCategories.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QPainter>

#include <array>
#include <ctime>

#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmere::testing {

namespace {

using AgentVocabulary::NodeStatus;
using AgentVocabulary::NodeType;

// Signing in

// The likes of a code: three finders and a pattern, of 29 modules.
QByteArray qrCode()
{
    constexpr int modules = 29;
    QImage image(modules + 8, modules + 8, QImage::Format_RGB32);
    image.fill(Qt::white);
    for (int y = 0; y < modules; ++y) {
        for (int x = 0; x < modules; ++x) {
            if ((x * x * 7 + y * y * 13 + x * y * 3) % 5 < 2) {
                image.setPixel(x + 4, y + 4, qRgb(0, 0, 0));
            }
        }
    }
    QPainter painter(&image);
    for (const QPoint finder : {QPoint(4, 4), QPoint(modules - 3, 4), QPoint(4, modules - 3)}) {
        painter.fillRect(QRect(finder, QSize(8, 8)).adjusted(-1, -1, 0, 0), Qt::white);
        painter.fillRect(QRect(finder, QSize(7, 7)), Qt::black);
        painter.fillRect(QRect(finder, QSize(7, 7)).adjusted(1, 1, -1, -1), Qt::white);
        painter.fillRect(QRect(finder, QSize(7, 7)).adjusted(2, 2, -2, -2), Qt::black);
    }
    painter.end();
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return "data:image/png;base64," + png.toBase64();
}

StandIn::Route loginInit(Stage &s)
{
    return s.world.service.on("POST /api/auth/user/login-init");
}

StandIn::Route codeCheck(Stage &s)
{
    return s.world.service.on("POST /api/auth/user/totp-login-v2");
}

void goesToTheCode(Stage &s)
{
    s.opensSignedOut();
    s.type(u"ada@example.org"_s);
    s.press(Qt::Key_Return);
    s.see(u"Enter Code"_s);
    s.seeGone(u"Continue"_s);
}

void asAKnownUser(Stage &s)
{
    loginInit(s).answers(200, R"({"mode":"login"})");
    goesToTheCode(s);
}

void asANewUser(Stage &s, const QByteArray &image)
{
    loginInit(s).answers(
        200, R"({"mode":"setup","qrCode":")" + image + R"(","secret":"JBSWY3DPEHPK3PXPJBSWY3DPEHPK3PXP"})");
    goesToTheCode(s);
}

void waitsForTheBrowser(Stage &s)
{
    asAKnownUser(s);
    codeCheck(s).answers(200, R"({"redirectUrl":"https://login.quillmere.example/desktop-login?ticket=t"})");
    s.type(u"123456"_s);
    s.press(Qt::Key_Return);
    s.see(u"Continue in your browser"_s);
}

// Workspace

const QByteArray longName = "Radiology Report Summariser for the Outpatient Clinics of Three Hospitals, "
                            "Fourth Attempt with Cleaned Labels and a Longer Warm-up";

void opensModels(Stage &s, const QString &until = u"Marlowe 7B"_s)
{
    s.opensSignedIn(SidebarItem::Models);
    s.see(until);
}

void beginsToDownload(Stage &s, const QString &name)
{
    const auto due = s.world.clock.dueIn(2s);
    s.click(u"Download "_s + name);
    s.waitFor([&] { return s.world.clock.dueIn(2s) > due; }, u"the download's record"_s);
}

void downloads(Stage &s, const QString &name)
{
    beginsToDownload(s, name);
    s.pass(2s);
}

void opensDatasets(Stage &s, const QString &until = u"style_guide.txt"_s)
{
    s.opensSignedIn(SidebarItem::Datasets);
    s.see(until);
}

// A folder to choose from, at a place whose path is the same on every machine.
void choosesAFile(Stage &s)
{
    opensDatasets(s);
    const QString folder = u"/tmp/quillmere-shots/Datasets"_s;
    const QDateTime changed(QDate(2026, 11, 18), QTime(12, 0), Qt::UTC);
    QDir().mkpath(folder);
    for (const auto &[name, size] : {std::pair{u"contract_clauses.csv"_s, 1'310'720}, {u"notes.txt"_s, 999},
             {u"support_tickets_train.jsonl"_s, 48'230}, {u"style_guide.json"_s, 12'288}}) {
        QFile file(folder + u'/' + name);
        if (file.open(QIODevice::WriteOnly)) {
            file.resize(size);
            file.setFileTime(changed, QFileDevice::FileModificationTime);
        }
    }
    const QByteArray archive = QFile::encodeName(folder + u"/archive"_s);
    const std::timespec time{changed.toSecsSinceEpoch(), 0};
    const std::array times{time, time};
    ::mkdir(archive.constData(), 0755);
    ::utimensat(AT_FDCWD, archive.constData(), times.data(), 0);

    FileRequest request{
        u"Choose a Dataset"_s, u"JSON, plain text, CSV"_s, {u"application/json"_s, u"text/plain"_s, u"text/csv"_s}};
    FileDialog::shared().pick(std::move(request));
    FileDialog::shared().goTo(folder);
    s.see(u"notes.txt"_s);
}

void opensTraining(Stage &s, const QString &until = u"Support Triage Assistant"_s)
{
    s.opensSignedIn(SidebarItem::Training);
    s.see(until);
}

void opensProjects(Stage &s)
{
    s.opensSignedIn(SidebarItem::Projects);
    s.pass(500ms);
    s.see(u"Medical LLM"_s);
}

void createsAProject(Stage &s, const QString &name, const QString &description)
{
    s.click(u"New Project"_s);
    s.type(u"Project Name"_s, name);
    s.type(u"Description"_s, description);
    s.click(u"Create Project"_s);
    s.seeGone(u"Create New Project"_s);
    s.see(name);
}

void opensSettings(Stage &s, const QString &section = {})
{
    s.opensSignedIn();
    // The service's tokens are never twice the same, and four letters at each end are shown.
    AuthManager &auth = AuthManager::shared();
    s.world.service.on("GET /v1/auth/me").answers(200, s.user);
    s.world.secrets.save(u"qm_access_3f9a61d07c52"_s, auth.tokenKey);
    s.goesTo(SidebarItem::Settings);
    if (!section.isEmpty()) {
        s.click(section);
    }
}

// Analytics

void opensAnalytics(Stage &s, StudioAnalyticsTab::Case tab = StudioAnalyticsTab::Overview)
{
    s.opensSignedIn(SidebarItem::Analytics);
    s.nth(u"AnalyticsDashboard"_s)->setProperty("selectedTab", tab);
    settle();
}

void seesTheEnd(Stage &s, const QString &area)
{
    s.wheel(s.nth(area), 100);
}

// Qt draws symbols of more than 64 pixels as paths, and puts their edges a sixty-fourth of a pixel to one side or not.
QImage without(Stage &s, const QRectF &mark)
{
    QImage picture = s.picture();
    QPainter(&picture).fillRect(mark.toRect(), Qt::black);
    return picture;
}

QImage withoutTheMarkOfSuccess(Stage &s)
{
    const QRectF sheet = placeOf(s.nth(u"SuccessView"_s));
    return without(s, {sheet.left(), sheet.top(), sheet.width(), 40 + 77});
}

QImage withoutTheMarkOfEmptiness(Stage &s)
{
    const QQuickItem *column = s.nth(u"EmptyState"_s)->childItems().constFirst();
    return without(s, placeOf(column->childItems().constFirst()));
}

// Tools

void opensWizard(Stage &s, int step, const QString &source = u"Sample Dataset"_s)
{
    s.opensSignedIn(SidebarItem::FineTune);
    if (step > 0) {
        s.click(source);
    }
    for (int i = 0; i < step; ++i) {
        s.click(u"Continue"_s);
    }
}

void says(Stage &s, const QString &text)
{
    s.type(u"Message"_s, text);
    s.press(Qt::Key_Return);
}

AgentsState &agents(Stage &s)
{
    return *s.window().findChild<AgentsState *>();
}

QQuickItem *node(Stage &s, int index)
{
    return s.item(s.nth(u"NodeView"_s, index)->property("accessibleName").toString());
}

void opensPage(Stage &s, int category)
{
    s.opensSignedIn();
    s.world.environment.hosts.apiEndpoint = u"https://api.quillmere.example"_s;
    s.goesTo(SidebarItem::Documentation);
    s.click(s.nth(u"DocCategoryRow"_s, category));
}

void runsFromElsewhere(Stage &s)
{
    s.world.environment.program = u"/media/ada/Quillmere Studio.app/bin/quillmere-studio"_s;
    LifecycleManager::checkLocation();
    s.see(u"Move to Applications?"_s);
}

// Pages of the controls, with the pointer and the keyboard at each state that wants them.
Shot gallery(const QString &name, const QString &page, QSize size)
{
    return {u"gallery-"_s + name, [page](Stage &s) { s.opensPage(QUrl(u"qrc:/controls/"_s + page + u".qml"_s)); }, size,
        [](Stage &s) {
            s.picture();
            return galleryPicture(s.window());
        }};
}

} // namespace

QList<Shot> catalogue()
{
    return {
        // From start to session
        {u"splash"_s, [](Stage &s) { s.opens(); }},
        {u"splash-large"_s, [](Stage &s) { s.opens(); }, Shot::large},

        {u"login-email"_s, [](Stage &s) { s.opensSignedOut(); }},
        {u"login-email-typed"_s,
            [](Stage &s) {
                s.opensSignedOut();
                s.type(u"ada@example.org"_s);
            }},
        {u"login-email-hovered"_s,
            [](Stage &s) {
                s.opensSignedOut();
                s.type(u"ada@example.org"_s);
                s.hover(u"Continue"_s);
            }},
        {u"login-email-focused"_s,
            [](Stage &s) {
                s.opensSignedOut();
                s.type(u"ada@example.org"_s);
                s.press(Qt::Key_Tab);
            }},
        {u"login-email-loading"_s,
            [](Stage &s) {
                loginInit(s).hangsBeforeReply();
                s.opensSignedOut();
                s.type(u"ada@example.org"_s);
                s.press(Qt::Key_Return);
            }},
        {u"login-email-failed"_s,
            [](Stage &s) {
                loginInit(s).answers(500,
                    R"({"error":"The account of this address is locked. Ask your workspace's owner to open it again."})");
                s.opensSignedOut();
                s.type(u"ada@example.org"_s);
                s.press(Qt::Key_Return);
                s.nth(u"FailureLine"_s);
            }},
        {u"login-email-large"_s, [](Stage &s) { s.opensSignedOut(); }, Shot::large},
        {u"login-code"_s, asAKnownUser},
        {u"login-code-typed"_s,
            [](Stage &s) {
                asAKnownUser(s);
                s.type(u"123456"_s);
            }},
        {u"login-code-loading"_s,
            [](Stage &s) {
                asAKnownUser(s);
                codeCheck(s).hangsBeforeReply();
                s.type(u"123456"_s);
                s.press(Qt::Key_Return);
            }},
        {u"login-code-failed"_s,
            [](Stage &s) {
                asAKnownUser(s);
                codeCheck(s).answers(401);
                s.type(u"123456"_s);
                s.press(Qt::Key_Return);
                s.nth(u"FailureLine"_s);
            }},
        {u"login-setup"_s, [](Stage &s) { asANewUser(s, qrCode()); }},
        {u"login-setup-failed"_s,
            [](Stage &s) {
                asANewUser(s, qrCode());
                codeCheck(s).answers(401);
                s.type(u"123456"_s);
                s.press(Qt::Key_Return);
                s.nth(u"FailureLine"_s);
            }},
        {u"login-setup-without-picture"_s, [](Stage &s) { asANewUser(s, "no picture"); }},
        {u"login-browser"_s, waitsForTheBrowser},
        {u"login-browser-unopened"_s,
            [](Stage &s) {
                s.world.urlOpener.opens = false;
                waitsForTheBrowser(s);
            }},
        {u"login-browser-pasted"_s,
            [](Stage &s) {
                waitsForTheBrowser(s);
                s.click(s.nth(u"RoundedField"_s));
                s.type(u"com.quillmere.studio://callback"_s);
            }},

        // The main window
        {u"dashboard"_s, [](Stage &s) { s.opensSignedIn(); }},
        {u"dashboard-large"_s, [](Stage &s) { s.opensSignedIn(); }, Shot::large},
        {u"dashboard-hovered"_s,
            [](Stage &s) {
                s.opensSignedIn();
                s.hover(u"View Logs"_s);
            }},
        {u"dashboard-focused"_s,
            [](Stage &s) {
                s.opensSignedIn();
                s.press(Qt::Key_Tab);
                s.press(Qt::Key_Tab);
            }},
        {u"dashboard-after-a-minute"_s,
            [](Stage &s) {
                s.opensSignedIn();
                s.pass(60s);
            }},
        {u"dashboard-sidebar-hovered"_s,
            [](Stage &s) {
                s.opensSignedIn();
                s.hover(u"Models"_s);
            }},
        {u"dashboard-sidebar-guest"_s,
            [](Stage &s) {
                s.world.service.on("GET /v1/auth/me").hangsBeforeReply();
                s.world.secrets.save(s.world.service.signsIn(u"ada@example.org"_s), AuthManager::shared().tokenKey);
                s.opens();
                s.pass(2500ms);
                s.see(u"Guest"_s);
            }},
        {u"dashboard-sidebar-long-address"_s,
            [](Stage &s) {
                s.hasUser(
                    R"({"id":"u","email":"augusta.ada.king.countess.of.lovelace@analytical-engines.example.org"})");
                s.opensSignedIn();
            }},
        {u"update-offered"_s,
            [](Stage &s) {
                s.world.service.offersVersion(u"2.1.0"_s, u"https://quillmere.example/download"_s);
                s.opensSignedIn();
                s.pass(500ms);
                s.waitFor([] { return Alerts::shared().isUp(); }, u"the offer"_s);
            }},
        {u"move-offered"_s,
            [](Stage &s) {
                s.opensSignedIn();
                runsFromElsewhere(s);
            }},
        {u"move-offered-at-the-splash"_s,
            [](Stage &s) {
                s.opens();
                runsFromElsewhere(s);
            }},
        {u"move-failed"_s,
            [](Stage &s) {
                s.opensSignedIn();
                Alerts::shared().present(u"Could not move to Applications"_s,
                    u"Cannot create \"/home/ada/Applications\": Permission denied"_s, {u"OK"_s});
                s.see(u"OK"_s);
            }},

        // Projects
        {u"projects-loading"_s, [](Stage &s) { s.opensSignedIn(SidebarItem::Projects); }},
        {u"projects"_s, opensProjects},
        {u"projects-large"_s, opensProjects, Shot::large},
        {u"projects-hovered"_s,
            [](Stage &s) {
                opensProjects(s);
                s.hover(s.nth(u"ProjectCard"_s, 1));
            }},
        {u"projects-created"_s,
            [](Stage &s) {
                opensProjects(s);
                createsAProject(s, u"Radiology Report Summariser for the Outpatient Clinics"_s,
                    u"Summaries of findings in plain words, in three languages, for patients and for the doctors who sent them, checked"_s);
                createsAProject(s, u"Nameless"_s, {});
            }},
        {u"projects-none-found"_s,
            [](Stage &s) {
                opensProjects(s);
                s.click(s.nth(u"SearchBox"_s));
                s.type(u"nothing of the kind"_s);
            }},
        {u"projects-sheet"_s,
            [](Stage &s) {
                opensProjects(s);
                s.click(u"New Project"_s);
                s.see(u"Create New Project"_s);
            }},
        {u"projects-sheet-filled"_s,
            [](Stage &s) {
                opensProjects(s);
                s.click(u"New Project"_s);
                s.type(u"Project Name"_s, u"Contract Clauses"_s);
                s.type(u"Description"_s,
                    u"Finds who promised what to whom in contracts of several hundred pages, and answers with the passage that it relies on. Trained on the clauses that our lawyers have marked since March, and tried on those of the year before. The third description line goes on for a while, so that the field has to scroll."_s);
            }},

        // Datasets
        {u"datasets-loading"_s,
            [](Stage &s) {
                s.world.service.on("GET /v1/files").hangsBeforeReply();
                s.opensSignedIn(SidebarItem::Datasets);
            }},
        {u"datasets"_s, [](Stage &s) { opensDatasets(s); }},
        {u"datasets-large"_s, [](Stage &s) { opensDatasets(s); }, Shot::large},
        {u"datasets-hovered"_s,
            [](Stage &s) {
                opensDatasets(s);
                s.hover(s.nth(u"DatasetRow"_s, 1));
            }},
        {u"datasets-empty"_s,
            [](Stage &s) {
                s.world.service.hasFiles("[]");
                opensDatasets(s, u"No Datasets"_s);
            },
            Shot::smallest, withoutTheMarkOfEmptiness},
        {u"datasets-samples"_s,
            [](Stage &s) {
                s.world.service.on("GET /v1/files").answers(503);
                s.opensSignedIn(SidebarItem::Datasets);
                s.waitFor([&] { return s.world.clock.dueIn(300ms) > 0; }, u"the failed load"_s);
                s.pass(300ms);
                s.see(u"medical_qa_val.jsonl"_s);
            }},
        {u"datasets-of-a-purpose"_s,
            [](Stage &s) {
                opensDatasets(s);
                s.click(u"Validation"_s);
            }},
        {u"datasets-none-found"_s,
            [](Stage &s) {
                opensDatasets(s);
                s.click(s.nth(u"SearchBox"_s));
                s.type(u"nothing of the kind"_s);
            }},
        {u"datasets-long-names"_s,
            [](Stage &s) {
                s.world.service.hasFiles(R"([{"id":"1","filename":")" + QByteArray(longName).replace(' ', '_')
                    + R"(.jsonl","purpose":"a purpose of several words","bytes":999950000,"created_at":"2026-09-30T10:00:00Z"},
                    {"id":"2","filename":"a.csv","purpose":"","bytes":0,"created_at":"1999-01-01T10:00:00Z"}])");
                opensDatasets(s, u"a.csv"_s);
            }},
        {u"datasets-uploading"_s,
            [](Stage &s) {
                s.world.service.on("POST /v1/files").hangsBeforeReply();
                opensDatasets(s);
                const QString path = QDir::tempPath() + u"/release_notes.jsonl"_s;
                QFile file(path);
                if (!file.open(QIODevice::WriteOnly) || !file.resize(2'340'000)) {
                    qFatal("%s cannot be written.", qPrintable(path));
                }
                s.click(u"Upload Dataset"_s);
                s.world.filePicker.picks(path);
                s.see(u"release_notes.jsonl"_s);
                QFile::remove(path);
            }},
        {u"datasets-choosing"_s, choosesAFile},

        // Models
        {u"models-loading"_s,
            [](Stage &s) {
                s.world.service.on("GET /v1/models").hangsBeforeReply();
                s.opensSignedIn(SidebarItem::Models);
            }},
        {u"models"_s, [](Stage &s) { opensModels(s); }},
        {u"models-large"_s, [](Stage &s) { opensModels(s); }, Shot::large},
        {u"models-hovered"_s,
            [](Stage &s) {
                opensModels(s);
                s.hover(s.nth(u"ModelCatalogCard"_s, 1));
            }},
        {u"models-end"_s,
            [](Stage &s) {
                opensModels(s);
                seesTheEnd(s, u"CardGrid"_s);
            }},
        {u"models-downloading"_s,
            [](Stage &s) {
                opensModels(s);
                beginsToDownload(s, u"Marlowe 7B"_s);
            }},
        {u"models-downloaded"_s,
            [](Stage &s) {
                opensModels(s);
                downloads(s, u"Marlowe 7B"_s);
                downloads(s, u"Marlowe 34B"_s);
            }},
        {u"models-download-failed"_s,
            [](Stage &s) {
                s.world.service.on("GET /v1/models/marlowe-7b/download").answers(503);
                opensModels(s);
                s.click(u"Download Marlowe 7B"_s);
                s.see(u"Failed to Load Models"_s);
            }},
        {u"models-failed"_s,
            [](Stage &s) {
                s.world.service.on("GET /v1/models")
                    .answers(500,
                        R"({"detail":"The catalog is being moved to another machine. It will be back within the hour; until then nothing can be downloaded, and training goes on with the models that are there."})");
                opensModels(s, u"Failed to Load Models"_s);
            }},
        {u"models-none-found"_s,
            [](Stage &s) {
                opensModels(s);
                s.click(u"Downloaded"_s);
            }},
        {u"models-searched"_s,
            [](Stage &s) {
                opensModels(s);
                s.click(s.nth(u"SearchBox"_s));
                s.type(u"brook"_s);
            }},
        {u"models-long-names"_s,
            [](Stage &s) {
                s.world.service.hasModels(R"([{"id":"a","name":")" + longName + R"(","description":")" + longName
                    + longName
                    + R"(","parameters":999999,"context_length":1048576,"size_bytes":999950000,"supports_finetuning":true},
                    {"id":"b","name":"Bare"}])");
                opensModels(s, u"Bare"_s);
            }},

        // Training
        {u"training-loading"_s,
            [](Stage &s) {
                s.world.service.on("GET /v1/fine-tuning/jobs").hangsBeforeReply();
                s.opensSignedIn(SidebarItem::Training);
            }},
        {u"training"_s,
            [](Stage &s) {
                opensTraining(s);
                // Any pointer's move: the scroll bar's length is guessed until all rows that show are made.
                s.hover(u"Monitor and manage your fine-tuning jobs"_s);
            }},
        {u"training-large"_s, [](Stage &s) { opensTraining(s); }, Shot::large},
        {u"training-hovered"_s,
            [](Stage &s) {
                opensTraining(s);
                s.hover(s.nth(u"TrainingJobCard"_s));
            }},
        {u"training-end"_s,
            [](Stage &s) {
                opensTraining(s);
                seesTheEnd(s, u"CardList"_s);
            }},
        {u"training-failed-ones"_s,
            [](Stage &s) {
                opensTraining(s);
                s.click(u"Failed"_s);
            }},
        {u"training-samples"_s,
            [](Stage &s) {
                s.world.service.on("GET /v1/fine-tuning/jobs").answers(503);
                s.opensSignedIn(SidebarItem::Training);
                s.waitFor([&] { return s.world.clock.dueIn(300ms) > 0; }, u"the failed load"_s);
                s.pass(300ms);
                s.see(u"Medical LLaMA Fine-Tuning"_s);
            }},
        {u"training-empty"_s,
            [](Stage &s) {
                s.world.service.hasJobs("[]");
                opensTraining(s, u"No Training Jobs"_s);
            },
            Shot::smallest, withoutTheMarkOfEmptiness},
        {u"training-long-names"_s,
            [](Stage &s) {
                s.world.service.hasJobs(R"([{"id":"ft-)" + longName.toLower().replace(' ', '-') + R"(","name":")"
                    + longName + R"(","status":"running","progress":100,"created_at":"2026-11-20T10:00:00Z"},
                    {"id":"2","name":"Short","status":"waiting for a machine of the right size","progress":0,"created_at":"2026-11-20T10:00:00Z"}])");
                opensTraining(s, u"Short"_s);
            }},
        {u"training-sheet"_s,
            [](Stage &s) {
                opensTraining(s);
                s.click(u"New Training"_s);
                s.see(u"Select Training Data"_s);
            }},
        // Analytics
        {u"analytics-overview"_s, [](Stage &s) { opensAnalytics(s); }},
        {u"analytics-overview-large"_s, [](Stage &s) { opensAnalytics(s); }, Shot::large},
        {u"analytics-overview-end"_s,
            [](Stage &s) {
                opensAnalytics(s);
                s.wheel(s.item(u"TOKEN DISTRIBUTION"_s), 100);
            }},
        {u"analytics-overview-controls-moved"_s,
            [](Stage &s) {
                opensAnalytics(s);
                s.click(u"Min Tokens"_s);
                s.click(u"Normalize Text"_s);
                s.click(u"Middle"_s);
            }},
        {u"analytics-monitor"_s,
            [](Stage &s) {
                opensAnalytics(s);
                s.click(u"System Monitor"_s);
                s.see(u"SYSTEM MONITOR"_s);
            }},
        {u"analytics-monitor-other-device"_s,
            [](Stage &s) {
                opensAnalytics(s);
                s.click(u"System Monitor"_s);
                s.click(u"CPU"_s);
            }},
        {u"analytics-training-begins"_s, [](Stage &s) { opensAnalytics(s, StudioAnalyticsTab::Training); }},
        {u"analytics-training"_s,
            [](Stage &s) {
                opensAnalytics(s, StudioAnalyticsTab::Training);
                s.pass(60s);
            }},
        {u"analytics-training-full"_s,
            [](Stage &s) {
                opensAnalytics(s, StudioAnalyticsTab::Training);
                s.click(u"Full Telemetry"_s);
                s.pass(60s);
            }},
        {u"analytics-training-full-end"_s,
            [](Stage &s) {
                opensAnalytics(s, StudioAnalyticsTab::Training);
                s.click(u"Full Telemetry"_s);
                s.pass(20s);
                s.wheel(s.item(u"LOSS CURVES"_s), 100);
            }},
        {u"analytics-training-full-large"_s,
            [](Stage &s) {
                opensAnalytics(s, StudioAnalyticsTab::Training);
                s.click(u"Full Telemetry"_s);
                s.pass(60s);
            },
            Shot::large},
        {u"analytics-validation"_s, [](Stage &s) { opensAnalytics(s, StudioAnalyticsTab::Validation); }},
        {u"analytics-validation-large"_s, [](Stage &s) { opensAnalytics(s, StudioAnalyticsTab::Validation); },
            Shot::large},
        {u"analytics-deployment"_s, [](Stage &s) { opensAnalytics(s, StudioAnalyticsTab::Deployment); }},
        {u"analytics-monitoring"_s, [](Stage &s) { opensAnalytics(s, StudioAnalyticsTab::Monitoring); }},
        {u"analytics-gauges"_s, [](Stage &s) { opensAnalytics(s, StudioAnalyticsTab::Telemetry); }},
        {u"analytics-gauges-end"_s,
            [](Stage &s) {
                opensAnalytics(s, StudioAnalyticsTab::Telemetry);
                s.wheel(s.item(u"SYSTEM TELEMETRY"_s), 100);
            }},
        {u"analytics-gauges-large"_s, [](Stage &s) { opensAnalytics(s, StudioAnalyticsTab::Telemetry); }, Shot::large},
        {u"analytics-gauges-hovered"_s,
            [](Stage &s) {
                opensAnalytics(s, StudioAnalyticsTab::Telemetry);
                s.pass(30s);
                s.hover(s.nth(u"GaugeMeterView"_s, 1));
            }},

        // Settings
        {u"settings-account"_s, [](Stage &s) { opensSettings(s); }},
        {u"settings-account-large"_s, [](Stage &s) { opensSettings(s); }, Shot::large},
        {u"settings-account-unknown"_s,
            [](Stage &s) {
                s.world.service.on("GET /v1/auth/me").hangsBeforeReply();
                s.world.secrets.save(u"short"_s, AuthManager::shared().tokenKey);
                s.opens();
                s.pass(2500ms);
                s.see(u"Guest"_s);
                s.goesTo(SidebarItem::Settings);
                s.see(u"Not Signed In"_s);
            }},
        {u"settings-account-long-name"_s,
            [](Stage &s) {
                s.hasUser(
                    R"({"id":"u","email":"augusta.ada.king.countess.of.lovelace.the.enchantress.of.numbers@analytical-engines.example.org","name":"Augusta Ada King, Countess of Lovelace, born Byron, First of the Programmers of the Engine"})");
                opensSettings(s);
            }},
        {u"settings-log-out-hovered"_s,
            [](Stage &s) {
                opensSettings(s);
                s.hover(u"Log Out"_s);
            }},
        {u"settings-subscription"_s, [](Stage &s) { opensSettings(s, u"Subscription"_s); }},
        {u"settings-preferences"_s, [](Stage &s) { opensSettings(s, u"Preferences"_s); }},
        {u"settings-about"_s, [](Stage &s) { opensSettings(s, u"About"_s); }},
        {u"settings-about-hovered"_s,
            [](Stage &s) {
                opensSettings(s, u"About"_s);
                s.hover(u"Privacy Policy"_s);
            }},

        // Documentation
        {u"documentation-getting-started"_s, [](Stage &s) { opensPage(s, 0); }},
        {u"documentation-getting-started-large"_s, [](Stage &s) { opensPage(s, 0); }, Shot::large},
        {u"documentation-fine-tuning"_s, [](Stage &s) { opensPage(s, 1); }},
        {u"documentation-fine-tuning-end"_s,
            [](Stage &s) {
                opensPage(s, 1);
                s.wheel(s.item(u"Fine-Tuning Guide"_s), 100);
            }},
        {u"documentation-datasets"_s, [](Stage &s) { opensPage(s, 2); }},
        {u"documentation-models"_s, [](Stage &s) { opensPage(s, 3); }},
        {u"documentation-api"_s, [](Stage &s) { opensPage(s, 4); }},
        {u"documentation-shortcuts"_s, [](Stage &s) { opensPage(s, 5); }},
        {u"documentation-searched"_s,
            [](Stage &s) {
                opensPage(s, 0);
                s.click(s.nth(u"SearchBox"_s));
                s.type(u"hyperparameters"_s);
            }},
        {u"documentation-hovered"_s,
            [](Stage &s) {
                opensPage(s, 0);
                s.hover(u"GitHub"_s);
            }},

        // The wizard
        {u"wizard-data"_s, [](Stage &s) { opensWizard(s, 0); }},
        {u"wizard-data-large"_s, [](Stage &s) { opensWizard(s, 0); }, Shot::large},
        {u"wizard-data-chosen"_s,
            [](Stage &s) {
                opensWizard(s, 0);
                s.click(u"Database"_s);
            }},
        {u"wizard-data-hovered"_s,
            [](Stage &s) {
                opensWizard(s, 0);
                s.hover(u"Import URL"_s);
            }},
        {u"wizard-model"_s, [](Stage &s) { opensWizard(s, 1); }},
        {u"wizard-model-hovered"_s,
            [](Stage &s) {
                opensWizard(s, 1);
                s.hover(u"Claude 3"_s);
            }},
        {u"wizard-goal"_s, [](Stage &s) { opensWizard(s, 2); }},
        {u"wizard-goal-chosen"_s,
            [](Stage &s) {
                opensWizard(s, 2);
                s.click(u"Code Generation"_s);
            }},
        {u"wizard-review"_s, [](Stage &s) { opensWizard(s, 3); }},
        {u"wizard-review-large"_s, [](Stage &s) { opensWizard(s, 3); }, Shot::large},
        {u"wizard-starting"_s,
            [](Stage &s) {
                opensWizard(s, 3);
                s.click(u"Start Fine-Tuning"_s);
                s.see(u"Starting..."_s);
            }},
        {u"wizard-started"_s,
            [](Stage &s) {
                opensWizard(s, 3);
                s.click(u"Start Fine-Tuning"_s);
                s.see(u"Starting..."_s);
                s.pass(2s);
                s.see(u"Training Started!"_s);
            },
            Shot::smallest, withoutTheMarkOfSuccess},

        // Chat
        {u"chat"_s, [](Stage &s) { s.opensSignedIn(SidebarItem::Chat); }},
        {u"chat-typed"_s,
            [](Stage &s) {
                s.opensSignedIn(SidebarItem::Chat);
                s.type(u"Message"_s, u"What does the contract say about the notice period?"_s);
            }},
        {u"chat-blanks-typed"_s,
            [](Stage &s) {
                s.opensSignedIn(SidebarItem::Chat);
                s.type(u"Message"_s, u"   "_s);
            }},
        {u"chat-conversation"_s,
            [](Stage &s) {
                s.opensSignedIn(SidebarItem::Chat);
                says(s, u"Hi"_s);
                s.pass(1s);
                says(s,
                    u"Summarise the three letters of last week in one sentence each, say who wrote them, and put the one that wants an answer first. Then draft that answer in the tone of the last one, but shorter, and leave out the greeting."_s);
                s.pass(61s);
                says(s, u"Thanks!"_s);
            }},
        {u"chat-long-conversation"_s,
            [](Stage &s) {
                s.opensSignedIn(SidebarItem::Chat);
                for (int i = 1; i <= 8; ++i) {
                    says(s, u"Question %1"_s.arg(i));
                    s.pass(1s);
                }
                s.hover(s.nth(u"MessageList"_s));
            }},
        {u"chat-large"_s,
            [](Stage &s) {
                s.opensSignedIn(SidebarItem::Chat);
                says(s, u"A short question from a wide window, and a long answer to it that has room enough?"_s);
                s.pass(1s);
            },
            Shot::large},
        {u"chat-lines"_s,
            [](Stage &s) {
                s.opensSignedIn(SidebarItem::Chat);
                s.click(s.look().field(u"Message"_s));
                for (int i = 1; i <= 7; ++i) {
                    s.type(u"line %1"_s.arg(i));
                    s.press(Qt::Key_Return, Qt::ShiftModifier);
                }
            }},
        {u"chat-model-menu"_s,
            [](Stage &s) {
                s.opensSignedIn(SidebarItem::Chat);
                s.click(u"Model: GPT-4 Custom"_s);
                s.hover(u"Gemini Pro Custom"_s);
            }},

        // Deployment
        {u"deployment"_s, [](Stage &s) { s.opensSignedIn(SidebarItem::Deployment); }},
        {u"deployment-large"_s, [](Stage &s) { s.opensSignedIn(SidebarItem::Deployment); }, Shot::large},
        {u"deployment-hovered"_s,
            [](Stage &s) {
                s.opensSignedIn(SidebarItem::Deployment);
                s.click(u"v1.0.0"_s);
                s.hover(u"Quantize (4-bit)"_s);
            }},
        {u"deployment-generating"_s,
            [](Stage &s) {
                s.opensSignedIn(SidebarItem::Deployment);
                s.click(u"RUN INFERENCE"_s);
                s.see(u"GENERATING..."_s);
            }},
        {u"deployment-answered"_s,
            [](Stage &s) {
                s.opensSignedIn(SidebarItem::Deployment);
                s.click(u"RUN INFERENCE"_s);
                s.see(u"GENERATING..."_s);
                s.pass(1s);
                s.see(u"RUN INFERENCE"_s);
            }},

        // The agent canvas
        {u"agents"_s, [](Stage &s) { s.opensSignedIn(SidebarItem::Agents); }},
        {u"agents-large"_s, [](Stage &s) { s.opensSignedIn(SidebarItem::Agents); }, Shot::large},
        {u"agents-hovered"_s,
            [](Stage &s) {
                s.opensSignedIn(SidebarItem::Agents);
                s.hover(node(s, 1));
            }},
        {u"agents-trigger-selected"_s,
            [](Stage &s) {
                s.opensSignedIn(SidebarItem::Agents);
                s.click(node(s, 0));
            }},
        {u"agents-model-selected"_s,
            [](Stage &s) {
                s.opensSignedIn(SidebarItem::Agents);
                s.click(node(s, 1));
            }},
        {u"agents-model-presets"_s,
            [](Stage &s) {
                s.opensSignedIn(SidebarItem::Agents);
                s.click(node(s, 1));
                s.click(u"Model Presets"_s);
                s.hover(u"Claude 3 Opus"_s);
            }},
        {u"agents-tool-selected"_s,
            [](Stage &s) {
                s.opensSignedIn(SidebarItem::Agents);
                s.goesTo(SidebarItem::Agents);
                agents(s).select(agents(s).nodes()[2].identifier());
            }},
        {u"agents-tool-types"_s,
            [](Stage &s) {
                s.opensSignedIn(SidebarItem::Agents);
                agents(s).select(agents(s).nodes()[2].identifier());
                s.click(u"Type: Google Search"_s);
            }},
        {u"agents-long-texts"_s,
            [](Stage &s) {
                s.opensSignedIn(SidebarItem::Agents);
                AgentNode changed = agents(s).nodes()[0];
                changed.title = QString::fromUtf8(longName);
                changed.description = QString::fromUtf8(longName + longName);
                agents(s).setNode(changed);
                agents(s).select(changed.identifier());
            }},
        {u"agents-running"_s,
            [](Stage &s) {
                s.opensSignedIn(SidebarItem::Agents);
                s.click(u"Run Agent"_s);
            }},
        {u"agents-palette"_s,
            [](Stage &s) {
                s.opensSignedIn(SidebarItem::Agents);
                s.click(u"Add Node"_s);
                s.hover(u"Router"_s);
            }},
        {u"agents-zoomed-out"_s,
            [](Stage &s) {
                s.opensSignedIn(SidebarItem::Agents);
                for (int i = 0; i < 5; ++i) {
                    s.click(u"Zoom Out"_s);
                }
            }},
        {u"agents-zoomed-in"_s,
            [](Stage &s) {
                s.opensSignedIn(SidebarItem::Agents);
                for (int i = 0; i < 5; ++i) {
                    s.click(u"Zoom In"_s);
                }
            }},
        {u"agents-connected"_s,
            [](Stage &s) {
                s.opensSignedIn(SidebarItem::Agents);
                auto nodes = agents(s).nodes();
                nodes.append(AgentNode::make(NodeType::Logic, {400, 460}, u"Router"_s));
                nodes.append(AgentNode::make(NodeType::Data, {700, 460}, u"Vector Store"_s));
                nodes[0].status = NodeStatus::Success;
                nodes[1].status = NodeStatus::Running;
                nodes[2].status = NodeStatus::Error;
                agents(s).setNodes(nodes);
                QList<NodeConnection> connections;
                for (const auto &[from, to] : {std::pair{0, 1}, {1, 2}, {0, 3}, {3, 4}}) {
                    connections.append({QUuid::createUuid(), nodes[from].id, nodes[to].id});
                }
                agents(s).setConnections(connections);
            }},

        {u"profile"_s, [](Stage &s) { s.opensSignedIn(SidebarItem::Profile); }},
        {u"profile-large"_s, [](Stage &s) { s.opensSignedIn(SidebarItem::Profile); }, Shot::large},

        gallery(u"controls"_s, u"Gallery"_s, {1320, 1100}),
        gallery(u"values"_s, u"Values"_s, {1200, 180}),
        gallery(u"popups"_s, u"Popups"_s, {1200, 460}),
        gallery(u"modals"_s, u"Modals"_s, {1200, 840}),
        {u"gallery-charts"_s, [](Stage &s) { s.opensPage(QUrl(u"qrc:/charts/Charts.qml"_s), chartGallery()); },
            {1200, 1360}},
    };
}

} // namespace quillmere::testing
