// Photographs every screen in every state: "quillmere_shots FOLDER" writes the pictures and a page with all of them; with
// "--against REFERENCES" it compares them too, and with "--accept REFERENCES" it makes the references anew.

#include "shots/Catalogue.h"
#include "shots/Comparison.h"
#include "shots/References.h"
#include "shots/Stage.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QLocale>
#include <QStyleHints>

#include <cstdio>
#include <ctime>

using namespace Qt::StringLiterals;
using namespace quillmere::testing;

namespace {

// What Qt complained of since it was last asked.
QStringList complaints;

void note(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    // Of offscreen windows.
    const bool isOfQt = message.startsWith(u"This plugin does not support"_s);
    if (type != QtDebugMsg && type != QtInfoMsg && !isOfQt) {
        complaints.append(message);
    }
    if (type == QtFatalMsg) {
        std::fprintf(stderr, "%s\n", qPrintable(message));
    }
}

// The same pictures come about everywhere: whatever the machine's time zone, language, scale and fonts are.
void forgetTheMachine()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("FONTCONFIG_FILE", FONT_CONFIGURATION);
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("TZ", "UTC");
    tzset();
    for (const char *variable : {"QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "QT_FONT_DPI", "QT_USE_PHYSICAL_DPI",
             "QT_AUTO_SCREEN_SCALE_FACTOR", "QT_ENABLE_HIGHDPI_SCALING", "QT_QPA_PLATFORMTHEME", "LANGUAGE"}) {
        qunsetenv(variable);
    }
    QLocale::setDefault(QLocale::c());
}

QString groupOf(const QString &name)
{
    return name.section(u'-', 0, 0);
}

bool writePage(const QDir &folder, const QList<Shot> &shots)
{
    QFile page(folder.filePath(u"index.html"_s));
    if (!page.open(QIODevice::WriteOnly)) {
        return false;
    }
    QString html =
        u"<!doctype html>\n<meta charset=\"utf-8\">\n<title>Quillmere Studio: every screen</title>\n<style>\n"
        "body { margin: 2rem; background: #18181b; color: #e4e4e7; font: 14px system-ui, sans-serif }\n"
        "section { display: grid; grid-template-columns: repeat(auto-fill, minmax(420px, 1fr)); gap: 1.5rem }\n"
        "figure { margin: 0 } img { width: 100%; border: 1px solid #3f3f46; border-radius: 6px }\n"
        "figcaption { margin-top: .25rem; color: #a1a1aa } h2 { text-transform: capitalize }\n</style>\n"_s;
    QString group;
    for (const Shot &shot : shots) {
        if (groupOf(shot.name) != group) {
            html += group.isEmpty() ? QString() : u"</section>\n"_s;
            group = groupOf(shot.name);
            html += u"<h2>%1</h2>\n<section>\n"_s.arg(group);
        }
        html += u"<figure id=\"%1\"><a href=\"%1.png\"><img loading=\"lazy\" src=\"%1.png\" alt=\"%1\"></a>"
                "<figcaption>%1</figcaption></figure>\n"_s.arg(shot.name);
    }
    html += u"</section>\n"_s;
    return page.write(html.toUtf8()) > 0;
}

QImage photograph(const Shot &shot)
{
    Stage stage(shot.size);
    shot.set(stage);
    const QImage picture = shot.photograph ? shot.photograph(stage) : stage.picture();
    return picture.convertToFormat(QImage::Format_RGB888);
}

// Why a picture is not as it should be; empty where it is.
QString complaintAbout(const QString &name, const QImage &picture, const References &references, const QDir &folder)
{
    const QImage reference = references.load(name);
    if (reference.isNull()) {
        return u"has no reference"_s;
    }
    const Difference difference = compare(reference, picture);
    if (!difference) {
        return {};
    }
    const QString path = folder.filePath(name + u"-difference.png"_s);
    difference.drawing.save(path);
    const QRect place = difference.place;
    return u"differs in %1 pixels, from (%2, %3) to (%4, %5): %6"_s.arg(difference.pixels)
        .arg(place.left())
        .arg(place.top())
        .arg(place.right())
        .arg(place.bottom())
        .arg(path);
}

} // namespace

int main(int argc, char *argv[])
{
    forgetTheMachine();
    qInstallMessageHandler(note);
    QGuiApplication application(argc, argv);
    QGuiApplication::styleHints()->setCursorFlashTime(0);

    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addPositionalArgument(u"folder"_s, u"where the pictures go"_s);
    parser.addOption({u"against"_s, u"folder of the references to compare with"_s, u"references"_s});
    parser.addOption({u"accept"_s, u"folder of the references to make anew"_s, u"references"_s});
    parser.addOption({u"only"_s, u"those alone whose names begin so"_s, u"beginning"_s});
    parser.process(application);
    if (parser.positionalArguments().size() != 1) {
        parser.showHelp(2);
    }
    const QDir folder(parser.positionalArguments().constFirst());
    const bool compares = parser.isSet(u"against"_s);
    const bool accepts = parser.isSet(u"accept"_s);
    const QDir references(parser.value(compares ? u"against"_s : u"accept"_s));
    references.mkpath(u"."_s);
    folder.mkpath(u"."_s);

    QList<Shot> shots = catalogue();
    References good(references);
    for (const Shot &shot : std::as_const(shots)) {
        good.add(shot.name, shot.size);
    }
    shots.removeIf([&](const Shot &shot) { return !shot.name.startsWith(parser.value(u"only"_s)); });

    int bad = 0;
    const auto complain = [&](const QString &name, const QString &complaint) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(name), qPrintable(complaint));
        ++bad;
    };
    for (const Shot &shot : std::as_const(shots)) {
        complaints.clear();
        QFile::remove(folder.filePath(shot.name + u"-difference.png"_s));
        std::printf("%s\n", qPrintable(shot.name));
        std::fflush(stdout); // told before a state that cannot be had ends everything
        const QImage picture = photograph(shot);
        picture.save(folder.filePath(shot.name + u".png"_s));
        for (const QString &complaint : std::as_const(complaints)) {
            complain(shot.name, complaint);
        }
        const QString complaint = compares ? complaintAbout(shot.name, picture, good, folder) : QString();
        if (!complaint.isEmpty()) {
            complain(shot.name, complaint);
        }
        if (accepts && !good.store(shot.name, picture)) {
            complain(shot.name, u"cannot be kept"_s);
        }
    }
    for (const QString &file : compares || accepts ? good.strays() : QStringList()) {
        if (accepts) {
            QFile::remove(references.filePath(file));
        } else {
            complain(file, u"is a reference of nothing"_s);
        }
    }
    if (!writePage(folder, shots)) {
        complain(u"index.html"_s, u"cannot be written"_s);
    }
    std::printf("%lld pictures, %d complaints\n", static_cast<long long>(shots.size()), bad);
    return bad == 0 ? 0 : 1;
}
