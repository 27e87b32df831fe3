// Colours by hexadecimal digits.
#include "Fuzz.h"

#include "app/theme/Color.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace quillmere::fuzz {

void feed(const QByteArray &input)
{
    const QString text = QString::fromUtf8(input);
    const QColor color = Color::hex(text);
    HOLDS(color.isValid() && color.spec() == QColor::Rgb);
    HOLDS(Color::hex(u"# "_s + text + u"\n;"_s) == color);
    // The case of the letters A to Z, and of no others.
    HOLDS(Color::hex(QString::fromUtf8(input.toUpper())) == color);

    static const QRegularExpression hexadecimal(u"\\A[0-9A-Fa-f]+\\z"_s);
    const bool isTold =
        (text.size() == 3 || text.size() == 6 || text.size() == 8) && hexadecimal.match(text).hasMatch();
    if (isTold) {
        // Qt reads the same forms behind a mark.
        HOLDS(color == QColor(u'#' + text));
        HOLDS(Color::hex(color.name(QColor::HexArgb)) == color);
    }
}

} // namespace quillmere::fuzz
