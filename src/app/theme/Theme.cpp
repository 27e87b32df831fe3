#include "app/theme/Theme.h"

#include "app/theme/Color.h"

#include <QDirIterator>
#include <QFontDatabase>
#include <QResource>

using namespace Qt::StringLiterals;

namespace quillmere {

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

void Theme::registerFaces()
{
    // In one go: with each face that becomes known the toolkit throws away what it knows of all others, down to the outlines of their
    // letters, and sets every text anew.
    static const bool registered = [] {
        for (QDirIterator files(u":/fonts"_s, QDir::Files); files.hasNext();) {
            // Of a file that it is given by name the toolkit makes two copies in memory; this way it reads where the program lies.
            QFontDatabase::addApplicationFontFromData(QResource(files.next()).uncompressedData());
        }
        return true;
    }();
    Q_UNUSED(registered)
}

} // namespace quillmere
