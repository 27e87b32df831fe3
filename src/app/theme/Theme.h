#pragma once

#include <QColor>
#include <QFont>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// The one dark palette and the faces of the program. Sizes are in points of the layout, which are device-independent
// pixels.
class Theme : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(QColor background READ background CONSTANT)
    Q_PROPERTY(QColor surface READ surface CONSTANT)
    Q_PROPERTY(QColor sidebarBackground READ sidebarBackground CONSTANT)
    Q_PROPERTY(QColor success READ success CONSTANT)
    Q_PROPERTY(QColor accent READ accent CONSTANT)
    Q_PROPERTY(QColor purple READ purple CONSTANT)
    Q_PROPERTY(QColor error READ error CONSTANT)
    Q_PROPERTY(QColor cyan READ cyan CONSTANT)
    Q_PROPERTY(QColor textPrimary READ textPrimary CONSTANT)
    Q_PROPERTY(QColor textSecondary READ textSecondary CONSTANT)
    Q_PROPERTY(QColor textTertiary READ textTertiary CONSTANT)
    Q_PROPERTY(QColor border READ border CONSTANT)

    // The toolkit's own colours, for what looks like the desktop's rather than like a card.
    Q_PROPERTY(QColor windowBackground READ windowBackground CONSTANT)
    Q_PROPERTY(QColor controlBackground READ controlBackground CONSTANT)
    Q_PROPERTY(QColor label READ label CONSTANT)
    Q_PROPERTY(QColor secondaryLabel READ secondaryLabel CONSTANT)
    Q_PROPERTY(QColor bordered READ bordered CONSTANT) // fill of a bordered button
    Q_PROPERTY(QColor outline READ outline CONSTANT)   // thin outline of fields
    Q_PROPERTY(QColor hairline READ hairline CONSTANT) // edge of menus and popovers
    Q_PROPERTY(QColor ultraThinMaterial READ ultraThinMaterial CONSTANT)
    Q_PROPERTY(QColor focusRing READ focusRing CONSTANT)
    Q_PROPERTY(QColor hovered READ hovered CONSTANT)             // laid over what the pointer is on
    Q_PROPERTY(QColor track READ track CONSTANT)                 // what a bar or a switch moves along
    Q_PROPERTY(QColor textSelection READ textSelection CONSTANT) // behind selected text
    Q_PROPERTY(QColor scrim READ scrim CONSTANT)                 // over the window behind a sheet or an alert

    Q_PROPERTY(QFont titleFont READ titleFont CONSTANT)
    Q_PROPERTY(QFont headingFont READ headingFont CONSTANT)
    Q_PROPERTY(QFont bodyMediumFont READ bodyMediumFont CONSTANT)
    Q_PROPERTY(QFont bodyFont READ bodyFont CONSTANT)
    Q_PROPERTY(QFont captionFont READ captionFont CONSTANT)
    Q_PROPERTY(QFont monoFont READ monoFont CONSTANT)

public:
    static QColor background();
    static QColor surface();
    static QColor sidebarBackground();
    static QColor success();
    static QColor accent();
    static QColor purple();
    static QColor error();
    static QColor cyan();
    static QColor textPrimary();
    static QColor textSecondary();
    static QColor textTertiary();
    static QColor border();

    static QColor windowBackground() { return QColor(0x1E, 0x1E, 0x20); }
    static QColor controlBackground() { return QColor(0x2A, 0x2A, 0x2D); }
    static QColor label() { return QColor(255, 255, 255, 217); }
    static QColor secondaryLabel() { return QColor(255, 255, 255, 140); }
    static QColor bordered() { return QColor(255, 255, 255, 31); }
    static QColor outline() { return QColor(255, 255, 255, 38); }
    static QColor hairline() { return QColor(255, 255, 255, 26); }
    static QColor ultraThinMaterial() { return QColor(255, 255, 255, 15); }
    static QColor focusRing();
    static QColor hovered() { return QColor(255, 255, 255, 20); }
    static QColor track() { return QColor(255, 255, 255, 38); }
    static QColor textSelection();
    static QColor scrim() { return QColor(0, 0, 0, 140); }

    static QFont titleFont();
    static QFont headingFont();
    static QFont bodyMediumFont();
    static QFont bodyFont();
    static QFont captionFont();
    static QFont monoFont();

    // A face by its name ("Gabarito-Regular", "SpaceGrotesk-Medium", "Inter-Regular", ...) at another weight where one
    // is told; without one the name's own weight holds.
    Q_INVOKABLE static QFont face(const QString &name, double size, int weight = 0);
    // The toolkit's own faces.
    Q_INVOKABLE static QFont system(double size, int weight = QFont::Normal);
    Q_INVOKABLE static QFont monospaced(double size, int weight = QFont::Normal);
    Q_INVOKABLE static QFont rounded(double size, int weight = QFont::Normal);
    // The same font with letters further apart, in points.
    Q_INVOKABLE static QFont tracked(QFont font, double spacing);

    // Makes all faces and the font of the symbols known by their names, before the first text is shown. Further calls do nothing.
    static void registerFaces();
};

} // namespace quillmere
