#include "support/Window.h"

#include "app/theme/Theme.h"

#include <QQmlEngine>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmere::testing {

namespace {

const QQuickItem &given(const QQuickItem *item)
{
    if (!item) {
        qFatal("There is no such item in the window.");
    }
    return *item;
}

// What an item shows of its children. A list keeps delegates that it may use again among them, visible as far as they know.
QList<QQuickItem *> shownChildren(const QQuickItem *item)
{
    const QQuickItem *list = item->parentItem();
    if (!list || !list->inherits("QQuickItemView") || list->property("contentItem").value<QQuickItem *>() != item) {
        return item->childItems();
    }
    QList<QQuickItem *> delegates;
    for (int i = 0; i < list->property("count").toInt(); ++i) {
        QQuickItem *delegate = nullptr;
        QMetaObject::invokeMethod(
            const_cast<QQuickItem *>(list), "itemAtIndex", Q_RETURN_ARG(QQuickItem *, delegate), Q_ARG(int, i));
        if (delegate) {
            delegates.append(delegate);
        }
    }
    return delegates;
}

void collect(const QQuickItem *below, bool fadedOut, QList<QQuickItem *> &items)
{
    for (QQuickItem *child : shownChildren(below)) {
        if (child->isVisible() && (fadedOut || child->opacity() > 0)) {
            items.append(child);
            collect(child, fadedOut, items);
            // Columns and rows put their items into place before the next frame only.
            child->ensurePolished();
        }
    }
}

bool isOf(const QQuickItem *item, const QString &type)
{
    for (const QMetaObject *meta = item->metaObject(); meta; meta = meta->superClass()) {
        const QString name = QString::fromLatin1(meta->className());
        if (name == type || name == u"quillmere::"_s + type || name.startsWith(type + u"_QML"_s)) {
            return true;
        }
    }
    return false;
}

} // namespace

QList<QQuickItem *> Window::seen(const QQuickItem *in) const
{
    QList<QQuickItem *> items;
    collect(in ? in : m_window.contentItem(), false, items);
    std::stable_sort(items.begin(), items.end(), [](const QQuickItem *a, const QQuickItem *b) {
        const QPointF one = placeOf(a).topLeft();
        const QPointF other = placeOf(b).topLeft();
        return one.y() != other.y() ? one.y() < other.y() : one.x() < other.x();
    });
    return items;
}

QList<QQuickItem *> Window::all(const QString &type, const QQuickItem *in) const
{
    QList<QQuickItem *> items = seen(in);
    items.removeIf([&](const QQuickItem *item) { return !isOf(item, type); });
    return items;
}

QStringList Window::texts(const QQuickItem *in) const
{
    QStringList texts;
    for (const QQuickItem *label : all(u"Label"_s, in)) {
        texts.append(label->property("text").toString());
    }
    return texts;
}

QQuickItem *Window::text(const QString &text, const QQuickItem *in) const
{
    for (QQuickItem *label : all(u"QQuickText"_s, in)) {
        if (label->property("text").toString() == text) {
            return label;
        }
    }
    return nullptr;
}

QQuickItem *Window::symbol(const QString &name, const QQuickItem *in) const
{
    for (QQuickItem *symbol : all(u"SymbolIcon"_s, in)) {
        if (symbol->property("name").toString() == name) {
            return symbol;
        }
    }
    return nullptr;
}

QQuickItem *Window::control(QAccessible::Role role, const QString &name, const QQuickItem *in) const
{
    for (QQuickItem *item : seen(in)) {
        const auto *interface = QAccessible::queryAccessibleInterface(item);
        if (interface && interface->role() == role && interface->text(QAccessible::Name) == name) {
            return item;
        }
    }
    return nullptr;
}

QQuickItem *Window::button(const QString &name, const QQuickItem *in) const
{
    return control(QAccessible::Button, name, in);
}

QQuickItem *Window::field(const QString &name, const QQuickItem *in) const
{
    return control(QAccessible::EditableText, name, in);
}

void Window::click(const QQuickItem *item)
{
    QTest::mouseClick(&m_window, Qt::LeftButton, {}, placeOf(item).center().toPoint());
}

void Window::hover(const QQuickItem *item)
{
    QTest::mouseMove(&m_window, placeOf(item).center().toPoint());
}

void Window::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(&m_window, key, modifiers);
}

void Window::type(const QString &text)
{
    for (const QChar character : text) {
        QTest::keyClick(&m_window, character.toLatin1());
    }
}

std::unique_ptr<QQuickView> openView(const QString &file, QSize size)
{
    QAccessible::setActive(true);
    Theme::registerFaces();
    auto view = std::make_unique<QQuickView>();
    view->engine()->addImportPath(u"qrc:/qt/qml"_s);
    view->setResizeMode(QQuickView::SizeRootObjectToView);
    view->resize(size);
    view->setSource(QUrl(u"qrc:/qt/qml/Quillmere/"_s + file));
    view->show();
    view->requestActivate();
    if (!view->rootObject() || !QTest::qWaitForWindowActive(view.get())) {
        qFatal("%s does not show.", qPrintable(file));
    }
    // Out of the way.
    QTest::mouseMove(view.get(), QPoint(size.width() - 1, size.height() - 1));
    return view;
}

QList<QQuickItem *> itemsIn(const QQuickItem *item)
{
    QList<QQuickItem *> items;
    collect(item, true, items);
    return items;
}

void failOnWarnings()
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
}

QRectF placeOf(const QQuickItem *item)
{
    return given(item).mapRectToScene(QRectF(0, 0, item->width(), item->height()));
}

QRectF placeIn(const QQuickItem *item, const QQuickItem *in)
{
    return given(item).mapRectToItem(in, QRectF(0, 0, item->width(), item->height()));
}

double gapAcross(const QQuickItem *left, const QQuickItem *right)
{
    return placeOf(right).left() - placeOf(left).right();
}

double gapBetween(const QQuickItem *upper, const QQuickItem *lower)
{
    return placeOf(lower).top() - placeOf(upper).bottom();
}

QString fontOf(const QQuickItem *text)
{
    const QFont font = given(text).property("font").value<QFont>();
    return u"%1 %2 %3"_s.arg(font.family()).arg(font.pixelSize()).arg(int(font.weight()));
}

QString word(const QColor &color)
{
    return color.name(QColor::HexArgb);
}

QString colorOf(const QQuickItem *item, const char *property)
{
    return word(given(item).property(property).value<QColor>());
}

QString strokeOf(const QQuickItem *box)
{
    const auto *border = given(box).property("border").value<QObject *>();
    return u"%1 %2"_s.arg(word(border->property("color").value<QColor>())).arg(border->property("width").toDouble());
}

double radiusOf(const QQuickItem *box)
{
    return given(box).property("radius").toDouble();
}

QQuickItem *backgroundOf(const QQuickItem *control)
{
    return given(control).property("background").value<QQuickItem *>();
}

QSizeF paddingOf(const QQuickItem *control)
{
    const auto *content = given(control).property("contentItem").value<QQuickItem *>();
    const QPointF start = placeOf(content).topLeft() - placeOf(control).topLeft();
    const QPointF end = placeOf(control).bottomRight() - placeOf(content).bottomRight();
    return start == end ? QSizeF(start.x(), start.y()) : QSizeF();
}

QAccessibleInterface *accessible(QQuickItem *item)
{
    return QAccessible::queryAccessibleInterface(item);
}

} // namespace quillmere::testing
