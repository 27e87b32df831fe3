#pragma once

#include <QAccessible>
#include <QQuickItem>
#include <QQuickView>
#include <QRectF>

#include <memory>

namespace quillmere::testing {

// A window's content as a user sees and touches it: what is visible is found by what it reads or is called, and gets real mouse
// and key events.
class Window {
public:
    explicit Window(QQuickWindow &window) : m_window(window) { }

    // What can be seen, sheets included, from top to bottom and from left to right. The single ones are null where there is
    // none; `in` narrows the search to what stands in an item.
    QList<QQuickItem *> all(const QString &type, const QQuickItem *in = nullptr) const; // by QML type
    QStringList texts(const QQuickItem *in = nullptr) const;
    QQuickItem *text(const QString &text, const QQuickItem *in = nullptr) const;
    QQuickItem *symbol(const QString &name, const QQuickItem *in = nullptr) const;
    // By role and name for assistive programs.
    QQuickItem *control(QAccessible::Role role, const QString &name, const QQuickItem *in = nullptr) const;
    QQuickItem *button(const QString &name, const QQuickItem *in = nullptr) const;
    QQuickItem *field(const QString &name, const QQuickItem *in = nullptr) const;
    bool shows(const QString &what) const { return text(what) != nullptr; }

    void click(const QQuickItem *item);
    void hover(const QQuickItem *item);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    void type(const QString &text);

private:
    QList<QQuickItem *> seen(const QQuickItem *in) const;

    QQuickWindow &m_window;
};

// Shows a QML file of the program, "Identity/LoginView.qml" say, in a window of its own.
std::unique_ptr<QQuickView> openView(const QString &file, QSize size);

// All that stands in an item, seen or faded out, but for what is hidden or kept by a list for later use.
QList<QQuickItem *> itemsIn(const QQuickItem *item);

// From here on whatever Qt warns about fails the test function that runs.
void failOnWarnings();

// In the window, in points.
QRectF placeOf(const QQuickItem *item);
// Seen from another item, in its points.
QRectF placeIn(const QQuickItem *item, const QQuickItem *in);
// From the end of one item to the start of the next, across and down.
double gapAcross(const QQuickItem *left, const QQuickItem *right);
double gapBetween(const QQuickItem *upper, const QQuickItem *lower);
// A font in words, "Inter 14 500": family, size in points, weight.
QString fontOf(const QQuickItem *text);
// A colour in words, "#ff09090b".
QString word(const QColor &color);
QString colorOf(const QQuickItem *item, const char *property = "color");
// A rectangle's outline in words, "#ff27272a 1": colour, width in points.
QString strokeOf(const QQuickItem *box);
double radiusOf(const QQuickItem *box);
// What stands behind a control.
QQuickItem *backgroundOf(const QQuickItem *control);
// Between a control's edges and its content, across and down; invalid where the two sides differ.
QSizeF paddingOf(const QQuickItem *control);
// What assistive programs are told of an item.
QAccessibleInterface *accessible(QQuickItem *item);

} // namespace quillmere::testing
