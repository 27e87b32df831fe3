#include "app/Tour.h"
#include "controls/Keyboard.h"

#include <QMouseEvent>
#include <QQuickWindow>
#include <QSet>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmere::testing;

namespace quillmere {

namespace {

QString nameOf(const QAccessibleInterface *access)
{
    return access ? access->text(QAccessible::Name) : QString();
}

QString wordsFor(QQuickItem *item)
{
    const auto *access = QAccessible::queryAccessibleInterface(item);
    return u"%1 \"%2\" at %3, %4"_s.arg(QString::fromLatin1(item->metaObject()->className()), nameOf(access))
        .arg(placeOf(item).x())
        .arg(placeOf(item).y());
}

bool takesPresses(const QQuickItem *item)
{
    const QObjectList &parts = item->children();
    const bool isTapped = std::any_of(
        parts.cbegin(), parts.cend(), [](const QObject *part) { return part->inherits("QQuickTapHandler"); });
    const bool isPressed =
        item->inherits("QQuickMouseArea") && item->property("acceptedButtons").toInt() != Qt::NoButton;
    return item->isEnabled() && (isTapped || isPressed);
}

// Is there to be typed in or set, where the pointer is taken by what it stands on.
bool takesValues(QQuickItem *item)
{
    const auto *access = QAccessible::queryAccessibleInterface(item);
    const auto role = access ? access->role() : QAccessible::NoRole;
    return item->inherits("QQuickTextInput") || item->inherits("QQuickTextEdit") || role == QAccessible::Slider
        || role == QAccessible::SpinBox;
}

// The window's own edges and strips, what closes a popup or keeps presses from what lies below, and the ground of the canvas, which
// Escape stands for: there is nothing to press.
bool isGround(QQuickItem *area)
{
    static const QStringList grounds{u"ResizeEdges"_s, u"TitleStrip"_s, u"ContentView"_s, u"WorkflowCanvasView"_s,
        u"CanvasBar"_s, u"InspectorView"_s};
    return std::any_of(grounds.cbegin(), grounds.cend(), [&](const QString &ground) {
        return Tour::around(area->parentItem(), ground) == area->parentItem();
    }) || Tour::around(area, u"ResizeEdges"_s);
}

// What a press goes to.
QQuickItem *controlOf(QQuickItem *area)
{
    QQuickItem *control = area;
    while (control && !QAccessible::queryAccessibleInterface(control)) {
        control = control->parentItem();
    }
    return control;
}

QList<QQuickItem *> controlsIn(const QQuickItem *whole)
{
    QList<QQuickItem *> controls;
    for (QQuickItem *item : itemsIn(whole)) {
        QQuickItem *control = item->activeFocusOnTab() || takesValues(item) ? item : nullptr;
        if (takesPresses(item) && !isGround(item)) {
            control = controlOf(item);
        }
        if (control && !controls.contains(control)) {
            controls.append(control);
        }
    }
    return controls;
}

// Where the keyboard stops, one after the other with the Tab key; the others in a group are its arrow keys'.
QList<QQuickItem *> stopsIn(const QQuickItem *whole)
{
    QList<QQuickItem *> stops = controlsIn(whole);
    stops.removeIf([](const QQuickItem *item) { return !item->activeFocusOnTab() || !item->isEnabled(); });
    return stops;
}

// The keyboard can be at a part of it: the current row of a list. Null where nothing takes it.
QQuickItem *stopAround(QQuickItem *item)
{
    while (item && !item->activeFocusOnTab()) {
        item = item->parentItem();
    }
    return item;
}

// Whether one comes before the other where somebody reads from left to right, line by line and column by column.
bool isReadAgainst(const QRectF &first, const QRectF &second)
{
    const bool isAbove = second.bottom() <= first.top();
    const bool isInLine = second.center().y() > first.top() && second.center().y() < first.bottom();
    return (isAbove && second.left() < first.right()) || (isInLine && second.right() <= first.left());
}

// What a control of a role can be told to do; the last entry stands for roles that have no control.
QStringList actionsFor(QAccessible::Role role)
{
    switch (role) {
    case QAccessible::Button:
    case QAccessible::ButtonMenu:
    case QAccessible::Link:
    case QAccessible::MenuItem:
    case QAccessible::PageTab:
    case QAccessible::ListItem:
        return {QAccessibleActionInterface::pressAction()};
    case QAccessible::RadioButton:
        return {QAccessibleActionInterface::pressAction(), QAccessibleActionInterface::toggleAction()};
    case QAccessible::CheckBox:
        return {QAccessibleActionInterface::toggleAction()};
    case QAccessible::Slider:
    case QAccessible::SpinBox:
        return {QAccessibleActionInterface::increaseAction(), QAccessibleActionInterface::decreaseAction()};
    // Can be typed in or scrolled.
    case QAccessible::EditableText:
    case QAccessible::List:
    case QAccessible::Pane:
        return {};
    default:
        return {u"none: a control cannot be of this role"_s};
    }
}

bool hasAStop(QQuickItem *whole)
{
    const QList<QQuickItem *> items = itemsIn(whole) + QList{whole};
    return std::any_of(items.cbegin(), items.cend(),
        [](const QQuickItem *item) { return item->activeFocusOnTab() && item->isEnabled(); });
}

// Where the Tab key leads to choices or a list, the arrow keys go through them, and the window manager has keys for a window's
// marks. A pane keeps the pointer from what lies below it.
bool hasOtherKeys(QQuickItem *control)
{
    const auto roleOf = [](QQuickItem *item) {
        const auto *access = QAccessible::queryAccessibleInterface(item);
        return access ? access->role() : QAccessible::NoRole;
    };
    if (roleOf(control) == QAccessible::Pane || Tour::around(control, u"WindowMark"_s)) {
        return true;
    }
    if (roleOf(control) == QAccessible::RadioButton && hasAStop(control->parentItem())) {
        return true;
    }
    QQuickItem *outer = control;
    while (outer && roleOf(outer) != QAccessible::List) {
        outer = outer->parentItem();
    }
    return outer && hasAStop(outer);
}

// Has more to show than it has room for.
bool scrolls(const QQuickItem *item)
{
    return item->inherits("QQuickFlickable") && item->property("contentHeight").toDouble() > item->height() + 1;
}

// What a control says of itself is not said again by the texts in it; an entry of a list is read part by part.
bool isSaidTwice(QAccessibleInterface *control, QAccessibleInterface *part)
{
    return control->role() != QAccessible::ListItem && part->role() == QAccessible::StaticText
        && !nameOf(part).isEmpty()
        && (nameOf(control).contains(nameOf(part)) || control->text(QAccessible::Description).contains(nameOf(part)));
}

bool isSecret(const QAccessibleInterface *access)
{
    return access->state().passwordEdit;
}

QList<QAccessibleInterface *> treeBelow(QAccessibleInterface *root)
{
    QList<QAccessibleInterface *> tree;
    for (int i = 0; i < root->childCount(); ++i) {
        if (auto *child = root->child(i)) {
            tree.append(child);
            tree.append(treeBelow(child));
        }
    }
    return tree;
}

// As the window sees a press, without one.
void pointerTakesOver()
{
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(), QPointF(), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    Keyboard::shared().eventFilter(nullptr, &press);
}

} // namespace

// Whatever can be done in the window can be done by the pointer, by the keyboard, and by an assistive program.
class tst_Reach : public TourTest {
    Q_OBJECT

private slots:
    void cleanupTestCase()
    {
        TourTest::cleanupTestCase();
        qInfo("%d controls, %d stops of the Tab key, %d names that changed", m_controls, m_stops, m_renamings);
    }

    void tellsAssistiveProgramsOfEachControl_data() { Tour::addRows(); }
    void tellsAssistiveProgramsOfEachControl()
    {
        QFETCH(QString, place);
        QVERIFY(m_tour->goesTo(place));
        const QList<QAccessibleInterface *> tree = treeBelow(QAccessible::queryAccessibleInterface(m_tour->window()));
        QStringList complaints;
        for (QQuickItem *control : controlsIn(m_tour->foremost())) {
            ++m_controls;
            auto *access = QAccessible::queryAccessibleInterface(control);
            if (!access) {
                complaints.append(u"unknown: "_s + wordsFor(control));
                continue;
            }
            if (!tree.contains(access)) {
                complaints.append(u"not in the tree: "_s + wordsFor(control));
            }
            if (!control->activeFocusOnTab() && !hasOtherKeys(control)) {
                complaints.append(u"not for the keyboard: "_s + wordsFor(control));
            }
            if (isSecret(access)) {
                // Says nothing of itself; what is around it has the name.
                QVERIFY(nameOf(access->parent()) != QString());
                continue;
            }
            for (QAccessibleInterface *part : treeBelow(access)) {
                if (isSaidTwice(access, part)) {
                    complaints.append(u"says \"%1\" twice: "_s.arg(nameOf(part)) + wordsFor(control));
                }
            }
            if (nameOf(access).isEmpty()) {
                complaints.append(u"no name: "_s + wordsFor(control));
            }
            auto *actions = access->actionInterface();
            for (const QString &action : actionsFor(access->role())) {
                if (!actions || !actions->actionNames().contains(action)) {
                    complaints.append(u"no %1 of role %2: "_s.arg(action).arg(int(access->role())) + wordsFor(control));
                }
            }
            if (!control->isEnabled() && access->text(QAccessible::Description).isEmpty()) {
                complaints.append(u"does not say that it is disabled: "_s + wordsFor(control));
            }
            if (control->isEnabled() && control->activeFocusOnTab() && !access->state().focusable) {
                complaints.append(u"does not say that it can have the keyboard: "_s + wordsFor(control));
            }
        }
        for (QQuickItem *item : itemsIn(m_tour->foremost())) {
            if (scrolls(item) && !hasAStop(item)) {
                complaints.append(u"scrolls, but not by the keyboard: "_s + wordsFor(item));
            }
        }
        QVERIFY2(complaints.isEmpty(), qPrintable(complaints.join(u"\n"_s)));
    }

    void goesThroughEachControlByKeyboard_data() { Tour::addRows(); }
    void goesThroughEachControlByKeyboard()
    {
        QFETCH(QString, place);
        QVERIFY(m_tour->goesTo(place));
        QQuickItem *front = m_tour->foremost();
        QStringList complaints;
        pointerTakesOver();
        QCOMPARE(m_tour->eyes().all(u"FocusRing"_s), QList<QQuickItem *>());
        QStringList wayBack;
        QQuickItem *last = nullptr;
        const QList<QQuickItem *> stops = goesRound(Qt::Key_Tab, [&](QQuickItem *stop) {
            if (last && isReadAgainst(placeOf(last), placeOf(stop))) {
                wayBack.append(wordsFor(last) + u" to "_s + wordsFor(stop));
            }
            last = stop;
            if (!stop->isVisible() || !stop->isEnabled() || !isWithin(stop, front) || !stop->activeFocusOnTab()) {
                complaints.append(u"lost at "_s + wordsFor(stop));
            }
            // The sidebar is the same at every place.
            if (place == u"dashboard" || !Tour::around(stop, u"SidebarView"_s)) {
                complaints += ringsMissingAt(stop);
            }
        });
        m_stops += int(stops.size());
        for (QQuickItem *stop : stopsIn(front)) {
            if (!stops.contains(stop)) {
                complaints.append(u"never at "_s + wordsFor(stop));
            }
        }
        // From the last one to the first.
        if (wayBack.size() > 1) {
            complaints.append(u"against reading: "_s + wayBack.join(u", "_s));
        }
        QVERIFY2(complaints.isEmpty(), qPrintable(complaints.join(u"\n"_s)));
        if (stops.isEmpty()) {
            return;
        }

        // The other way is the same backwards.
        QCOMPARE(stopAround(m_tour->window()->activeFocusItem()), stops.first());
        QList<QQuickItem *> back = goesRound(Qt::Key_Backtab, [](QQuickItem *) {});
        std::reverse(back.begin(), back.end());
        std::rotate(back.begin(), std::find(back.begin(), back.end(), stops.first()), back.end());
        // The toolkit passes over a list on the way back from what stands in it.
        QList<QQuickItem *> forth = stops;
        forth.removeIf([](const QQuickItem *stop) { return stop->inherits("QQuickListView"); });
        back.removeIf([](const QQuickItem *stop) { return stop->inherits("QQuickListView"); });
        for (QQuickItem *stop : forth + back) {
            if (!forth.contains(stop) || !back.contains(stop)) {
                complaints.append(u"one way only: "_s + wordsFor(stop));
            }
        }
        QVERIFY2(complaints.isEmpty(), qPrintable(complaints.join(u"\n"_s)));
        QCOMPARE(back, forth);

        // What came up closes, wherever in it the keyboard is.
        QQuickItem *ground = m_tour->window()->contentItem();
        if (front != ground) {
            m_tour->eyes().press(Qt::Key_Escape);
            QVERIFY(eventually([&] { return m_tour->foremost() == ground; }));
        }
    }

    void tellsOfEachNameThatChanges_data() { Tour::addRows(); }
    void tellsOfEachNameThatChanges()
    {
        QFETCH(QString, place);
        QVERIFY(m_tour->goesTo(place));
        const auto names = [&] {
            QHash<QQuickItem *, QString> names;
            for (QQuickItem *item : itemsIn(m_tour->foremost())) {
                if (const auto *access = QAccessible::queryAccessibleInterface(item)) {
                    names.insert(item, nameOf(access));
                }
            }
            return names;
        };
        const auto before = names();
        // What the toolkit tells assistive programs goes with this signal.
        std::map<QQuickItem *, std::unique_ptr<QSignalSpy>> spies;
        for (auto it = before.cbegin(); it != before.cend(); ++it) {
            for (const QObject *part : it.key()->children()) {
                if (part->inherits("QQuickAccessibleAttached")) {
                    spies[it.key()] = std::make_unique<QSignalSpy>(part, SIGNAL(nameChanged()));
                }
            }
        }
        m_tour->clock().advance(4s);
        settle();
        const auto after = names();
        QStringList complaints;
        for (auto it = after.cbegin(); it != after.cend(); ++it) {
            if (before.contains(it.key()) && before[it.key()] != it.value()) {
                ++m_renamings;
                if (!spies.contains(it.key()) || spies[it.key()]->isEmpty()) {
                    complaints.append(wordsFor(it.key()));
                }
            }
        }
        QVERIFY2(complaints.isEmpty(), qPrintable(complaints.join(u"\n"_s)));
    }

    void goesThroughRowsWithTheArrowKeys_data()
    {
        QTest::addColumn<QString>("place");
        QTest::addColumn<QString>("row");
        QTest::newRow("sidebar") << u"dashboard"_s << u"SidebarRow"_s;
        QTest::newRow("settings") << u"settings, about"_s << u"SettingsRow"_s;
        QTest::newRow("documentation") << u"documentation, models"_s << u"DocCategoryRow"_s;
    }
    void goesThroughRowsWithTheArrowKeys()
    {
        QFETCH(QString, place);
        QFETCH(QString, row);
        QVERIFY(m_tour->goesTo(place));
        QList<QQuickItem *> rows = m_tour->eyes().all(row);
        if (row == u"SettingsRow") {
            rows.removeLast(); // Logging out stands apart.
        }
        QVERIFY(rows.size() >= 4);
        const QStringList before = m_tour->eyes().texts();
        rows.first()->forceActiveFocus(Qt::TabFocusReason);
        for (QQuickItem *next : rows.mid(1)) {
            m_tour->eyes().press(Qt::Key_Down);
            QCOMPARE(m_tour->window()->activeFocusItem(), next);
        }
        m_tour->eyes().press(Qt::Key_Down);
        QCOMPARE(m_tour->window()->activeFocusItem(), rows.last());
        for (qsizetype i = rows.size() - 2; i >= 0; --i) {
            m_tour->eyes().press(Qt::Key_Up);
            QCOMPARE(m_tour->window()->activeFocusItem(), rows[i]);
        }
        // They only lead there; what a row is for waits for its press.
        QCOMPARE(m_tour->eyes().texts(), before);
    }

private:
    // Where the keyboard goes by one key until it is somewhere for the second time.
    QList<QQuickItem *> goesRound(Qt::Key key, const std::function<void(QQuickItem *)> &look)
    {
        QList<QQuickItem *> stops;
        constexpr int furthest = 200;
        for (int i = 0; i < furthest; ++i) {
            m_tour->eyes().press(key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
            QQuickItem *stop = stopAround(m_tour->window()->activeFocusItem());
            if (!stop || stops.contains(stop)) {
                break;
            }
            stops.append(stop);
            look(stop);
        }
        return stops;
    }

    // It can be seen, as a whole, while the keyboard is in use, and not any more as soon as the pointer is.
    QStringList ringsMissingAt(QQuickItem *stop)
    {
        QStringList complaints;
        settle();
        const auto *access = QAccessible::queryAccessibleInterface(stop);
        const QImage before = m_tour->window()->grabWindow();
        for (const QQuickItem *ring : m_tour->eyes().all(u"FocusRing"_s)) {
            const QRectF whole = placeOf(ring);
            // But for what is larger than its region.
            if (visiblePart(ring, whole) != whole && whole.height() < m_tour->window()->height() / 2.0) {
                complaints.append(u"cut off: "_s + wordsFor(stop));
            }
        }
        pointerTakesOver();
        settle();
        // Fields show it in their frame, whoever brought the keyboard there, menus in a bar, and what scrolls by its own bar.
        const bool showsItAnyway = access
            && (access->role() == QAccessible::Pane || access->role() == QAccessible::List
                || access->role() == QAccessible::EditableText || access->role() == QAccessible::MenuItem
                || isSecret(access));
        if (before == m_last) {
            complaints.append(u"looks as it did before: "_s + wordsFor(stop));
        }
        m_last = before;
        if (!showsItAnyway && before == m_tour->window()->grabWindow()) {
            complaints.append(u"nothing to be seen: "_s + wordsFor(stop));
        }
        if (!m_tour->eyes().all(u"FocusRing"_s).isEmpty()) {
            complaints.append(u"ring stays: "_s + wordsFor(stop));
        }
        return complaints;
    }

    QImage m_last;
    int m_controls = 0;
    int m_stops = 0;
    int m_renamings = 0;
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_Reach)
#include "tst_Reach.moc"
