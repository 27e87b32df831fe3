#include "Monkey.h"

#include "support/Window.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QDir>
#include <QWheelEvent>

#include <array>

using namespace Qt::StringLiterals;

namespace quillmere::testing {

namespace {

constexpr qsizetype remembered = 25;

constexpr std::array keys{Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Escape,
    Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown,
    Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Menu, Qt::Key_F1, Qt::Key_F5, Qt::Key_F11, Qt::Key_A, Qt::Key_C,
    Qt::Key_N, Qt::Key_V, Qt::Key_W, Qt::Key_X, Qt::Key_Z, Qt::Key_1, Qt::Key_Comma, Qt::Key_Plus, Qt::Key_Minus};

constexpr std::array routes{"GET /v1/auth/me", "GET /v1/models", "GET /v1/fine-tuning/jobs", "GET /v1/files",
    "POST /v1/files", "POST /v1/fine-tuning/jobs", "POST /api/auth/login-init", "POST /api/auth/totp-login-v2"};

bool isForPressing(const QQuickItem *item)
{
    const auto *interface = QAccessible::queryAccessibleInterface(const_cast<QQuickItem *>(item));
    if (!interface) {
        return false;
    }
    switch (interface->role()) {
    case QAccessible::Button:
    case QAccessible::CheckBox:
    case QAccessible::ComboBox:
    case QAccessible::EditableText:
    case QAccessible::Link:
    case QAccessible::ListItem:
    case QAccessible::MenuItem:
    case QAccessible::PageTab:
    case QAccessible::RadioButton:
    case QAccessible::Slider:
    case QAccessible::SpinBox:
        return true;
    default:
        return false;
    }
}

} // namespace

Monkey::Monkey(quint32 seed, QQuickWindow &window, PlatformEnvironment &world)
    : m_draws(seed), m_window(window), m_world(world), m_file(QDir::tempPath() + u"/XXXXXX.jsonl"_s)
{
    m_file.open();
    m_file.write(R"({"prompt": "Who are you?", "completion": "A model."})");
    m_file.close();
}

void Monkey::act()
{
    struct Habit {
        int share;
        void (Monkey::*act)();
    };
    static constexpr std::array<Habit, 11> habits{{{20, &Monkey::click}, {30, &Monkey::clickOnControl},
        {3, &Monkey::doubleClick}, {8, &Monkey::drag}, {5, &Monkey::hover}, {8, &Monkey::scroll}, {14, &Monkey::press},
        {6, &Monkey::type}, {1, &Monkey::resize}, {2, &Monkey::changeTheService}, {3, &Monkey::answerThePicker}}};
    int drawn = draw(100);
    for (const Habit &habit : habits) {
        drawn -= habit.share;
        if (drawn < 0) {
            return (this->*habit.act)();
        }
    }
    Q_UNREACHABLE(); // The shares make a hundred.
}

void Monkey::click()
{
    const QPoint where = anywhere();
    const auto button = draw(8) == 0 ? Qt::RightButton : Qt::LeftButton;
    note(u"clicks at %1, %2"_s.arg(where.x()).arg(where.y()));
    QTest::mouseClick(&m_window, button, modifiers(), where);
}

void Monkey::clickOnControl()
{
    QList<QQuickItem *> controls = Window(m_window).all(u"QQuickItem"_s);
    const QRectF inside({}, QSizeF(m_window.size() - QSize(1, 1)));
    controls.removeIf([&](const QQuickItem *item) {
        return !isForPressing(item) || !inside.contains(placeOf(item).center().toPoint());
    });
    if (controls.isEmpty()) {
        return click();
    }
    const QQuickItem *control = controls[draw(int(controls.size()))];
    const QPoint where = placeOf(control).center().toPoint();
    const auto *interface = QAccessible::queryAccessibleInterface(const_cast<QQuickItem *>(control));
    note(u"clicks on %1 at %2, %3"_s.arg(interface->text(QAccessible::Name)).arg(where.x()).arg(where.y()));
    QTest::mouseClick(&m_window, Qt::LeftButton, {}, where);
}

void Monkey::doubleClick()
{
    const QPoint where = anywhere();
    note(u"double clicks at %1, %2"_s.arg(where.x()).arg(where.y()));
    QTest::mouseDClick(&m_window, Qt::LeftButton, {}, where);
}

void Monkey::drag()
{
    const QPoint start = anywhere();
    const QPoint near = start + QPoint(draw(121) - 60, draw(121) - 60);
    const QPoint end = m_window.contentItem()->contains(near) ? near : anywhere();
    note(u"drags from %1, %2 to %3, %4"_s.arg(start.x()).arg(start.y()).arg(end.x()).arg(end.y()));
    QTest::mousePress(&m_window, Qt::LeftButton, {}, start);
    for (int step = 1; step <= 5; ++step) {
        QTest::mouseMove(&m_window, start + (end - start) * step / 5);
    }
    QTest::mouseRelease(&m_window, Qt::LeftButton, {}, end);
}

void Monkey::hover()
{
    const QPoint where = anywhere();
    note(u"points at %1, %2"_s.arg(where.x()).arg(where.y()));
    QTest::mouseMove(&m_window, where);
}

void Monkey::scroll()
{
    const QPoint where = anywhere();
    const int turn = (draw(9) - 4) * 120;
    note(u"scrolls by %1 at %2, %3"_s.arg(turn).arg(where.x()).arg(where.y()));
    QWheelEvent event(
        where, m_window.mapToGlobal(where), {}, QPoint(0, turn), {}, modifiers(), Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&m_window, &event);
}

void Monkey::press()
{
    const Qt::Key key = keys[size_t(draw(int(keys.size())))];
    const Qt::KeyboardModifiers held = modifiers();
    note(u"presses %1 with %2"_s.arg(key, 0, 16).arg(held.toInt(), 0, 16));
    for (int times = draw(4); times >= 0; --times) {
        QTest::keyClick(&m_window, key, held);
    }
}

void Monkey::type()
{
    static const QStringList texts{
        u"a"_s, u"llama"_s, u"ada@example.org"_s, u"  "_s, u"<b>bold</b>"_s, u"-1"_s, u"123456"_s, QString(300, u'w')};
    const QString text = texts[draw(int(texts.size()))];
    note(u"types "_s + text.left(20));
    Window(m_window).type(text);
}

void Monkey::resize()
{
    const QSize size(1200 + draw(500), 800 + draw(300));
    note(u"makes the window %1 by %2"_s.arg(size.width()).arg(size.height()));
    m_window.resize(size);
}

void Monkey::changeTheService()
{
    const char *route = routes[size_t(draw(int(routes.size())))];
    const auto next = m_world.service.on(route, 1);
    switch (draw(8)) {
    case 0:
        note(u"has the next %1 answered with 500"_s.arg(QLatin1String(route)));
        return next.answers(500, R"({"detail": "out of order"})");
    case 1:
        note(u"has the next %1 given no reply"_s.arg(QLatin1String(route)));
        return next.closesWithoutReply();
    case 2:
        note(u"has the next %1 hang"_s.arg(QLatin1String(route)));
        return next.hangsBeforeReply();
    case 3:
        note(u"has the next %1 answered with bad JSON"_s.arg(QLatin1String(route)));
        return next.givesBadJson();
    case 4:
        note(u"has the next %1 answered with 401"_s.arg(QLatin1String(route)));
        return next.answers(401, R"({"detail": "not you"})");
    case 5:
        note(u"lets what hangs go on"_s);
        return m_world.service.release();
    case 6:
        note(u"makes the service well"_s);
        m_world.service.clearFaults();
        return m_world.service.release();
    default:
        note(u"has no jobs, no files and no models"_s);
        m_world.service.hasJobs("[]");
        m_world.service.hasFiles("[]");
        return m_world.service.hasModels("[]");
    }
}

void Monkey::answerThePicker()
{
    if (draw(2) == 0) {
        note(u"picks a file"_s);
        m_world.filePicker.picks(m_file.fileName());
    } else {
        note(u"picks no file"_s);
        m_world.filePicker.answers(QList<QUrl>());
    }
}

QPoint Monkey::anywhere()
{
    return {draw(m_window.width()), draw(m_window.height())};
}

Qt::KeyboardModifiers Monkey::modifiers()
{
    switch (draw(10)) {
    case 0:
        return Qt::ShiftModifier;
    case 1:
        return Qt::ControlModifier;
    case 2:
        return Qt::AltModifier;
    default:
        return Qt::NoModifier;
    }
}

void Monkey::note(const QString &act)
{
    m_acts.append(act);
    if (m_acts.size() > remembered) {
        m_acts.removeFirst();
    }
}

} // namespace quillmere::testing
