#include "app/theme/Theme.h"

#include "app/theme/Color.h"

#include <QDirIterator>
#include <QFile>
#include <QFontDatabase>
#include <QResource>
#include <QSet>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

void registerFiles(const QString &pattern)
{
    for (QDirIterator files(u":/fonts"_s, {pattern}, QDir::Files); files.hasNext();) {
        // Of a file that it is given by name the toolkit makes two copies in memory; this way it reads where the program lies.
        QFontDatabase::addApplicationFontFromData(QResource(files.next()).uncompressedData());
    }
}

QString fileOf(const QString &family, int weight)
{
    static const QHash<int, QString> styles{{QFont::Light, u"Light"_s}, {QFont::Normal, u"Regular"_s},
        {QFont::Medium, u"Medium"_s}, {QFont::DemiBold, u"SemiBold"_s}, {QFont::Bold, u"Bold"_s},
        {QFont::Black, u"Black"_s}};
    return QString(family).remove(u' ') + u'-' + styles.value(weight);
}

// At the first use of a face, since the toolkit looks at every glyph of it: all at once they took as many instructions before the first
// frame as half an empty window does from its start.
void makeKnown(const QString &family, int weight)
{
    static QSet<std::pair<QString, int>> known;
    const std::pair face(family, weight);
    if (known.contains(face)) {
        return;
    }
    known.insert(face);
    const QString file = fileOf(family, weight);
    const bool exists =
        QFile::exists(u":/fonts/"_s + file + u".ttf"_s) || QFile::exists(u":/fonts/"_s + file + u".otf"_s);
    // For a weight without a file the toolkit takes the nearest.
    registerFiles(exists ? file + u".*"_s : QString(family).remove(u' ') + u"-*"_s);
}

} // namespace

QColor Theme::background()
{
    return Color::hex(u"09090B"_s);
}

QColor Theme::surface()
{
    return Color::hex(u"121214"_s);
}

QColor Theme::sidebarBackground()
{
    return Color::hex(u"050506"_s);
}

QColor Theme::success()
{
    return Color::hex(u"22C55E"_s);
}

QColor Theme::accent()
{
    return Color::hex(u"3B82F6"_s);
}

QColor Theme::purple()
{
    return Color::hex(u"A855F7"_s);
}

QColor Theme::error()
{
    return Color::hex(u"EF4444"_s);
}

QColor Theme::cyan()
{
    return Color::hex(u"06B6D4"_s);
}

QColor Theme::textPrimary()
{
    return Qt::white;
}

QColor Theme::textSecondary()
{
    return Color::hex(u"A1A1AA"_s);
}

QColor Theme::textTertiary()
{
    return Color::hex(u"71717A"_s);
}

QColor Theme::border()
{
    return Color::hex(u"27272A"_s);
}

QColor Theme::focusRing()
{
    return Color::faded(Color::blue(), 0.8);
}

QColor Theme::textSelection()
{
    return Color::faded(Color::blue(), 0.45);
}

QFont Theme::titleFont()
{
    return face(u"SpaceGrotesk-Light"_s, 24, QFont::Bold);
}

QFont Theme::headingFont()
{
    return face(u"SpaceGrotesk-Light"_s, 18, QFont::Medium);
}

QFont Theme::bodyMediumFont()
{
    return face(u"Inter-Regular"_s, 14, QFont::Medium);
}

QFont Theme::bodyFont()
{
    return face(u"Inter-Regular"_s, 14);
}

QFont Theme::captionFont()
{
    return face(u"Inter-Regular"_s, 12);
}

QFont Theme::monoFont()
{
    return monospaced(12);
}

QFont Theme::face(const QString &name, double size, int weight)
{
    const qsizetype dash = name.indexOf(u'-');
    QString family = name.left(dash);
    if (family == u"SpaceGrotesk"_s) {
        family = u"Space Grotesk"_s;
    }
    if (weight == 0) {
        const QString style = dash < 0 ? QString() : name.mid(dash + 1);
        weight = style == u"Light"_s ? QFont::Light : style == u"Medium"_s ? QFont::Medium : QFont::Normal;
    }
    makeKnown(family, weight);
    QFont font(family);
    font.setPixelSize(qRound(size));
    font.setWeight(QFont::Weight(weight));
    return font;
}

QFont Theme::system(double size, int weight)
{
    return face(u"Inter"_s, size, weight);
}

QFont Theme::monospaced(double size, int weight)
{
    QFont font = face(u"Geist Mono"_s, size, weight);
    font.setStyleHint(QFont::Monospace);
    return font;
}

QFont Theme::rounded(double size, int weight)
{
    return face(u"Open Runde"_s, size, weight);
}

QFont Theme::tracked(QFont font, double spacing)
{
    font.setLetterSpacing(QFont::AbsoluteSpacing, spacing);
    return font;
}

void Theme::registerSymbols()
{
    registerFiles(u"QuillmereSymbols-*"_s);
}

} // namespace quillmere
