#include "journeys/Screen.h"

#include "journeys/Desktop.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusReply>
#include <QDBusVariant>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString accessible = u"org.a11y.atspi.Accessible"_s;
const QString actions = u"org.a11y.atspi.Action"_s;
const QString rootPath = u"/org/a11y/atspi/accessible/root"_s;

// Places in the bits of a state set, by AT-SPI's AtspiStateType.
constexpr quint64 activeState = quint64(1) << 1;
constexpr quint64 editableState = quint64(1) << 7;
constexpr quint64 focusedState = quint64(1) << 12;
constexpr quint64 showingState = quint64(1) << 25;

struct Reference {
    QString service;
    QDBusObjectPath path;
};

// What an element can do, as it tells.
struct Ability {
    QString name;
    QString description;
    QString keys;
};

[[maybe_unused]] QDBusArgument &operator<<(QDBusArgument &argument, const Reference &reference)
{
    argument.beginStructure();
    argument << reference.service << reference.path;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, Reference &reference)
{
    argument.beginStructure();
    argument >> reference.service >> reference.path;
    argument.endStructure();
    return argument;
}

[[maybe_unused]] QDBusArgument &operator<<(QDBusArgument &argument, const Ability &ability)
{
    argument.beginStructure();
    argument << ability.name << ability.description << ability.keys;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, Ability &ability)
{
    argument.beginStructure();
    argument >> ability.name >> ability.description >> ability.keys;
    argument.endStructure();
    return argument;
}

QDBusMessage call(const QDBusConnection &bus, const QString &service, const QString &path, const QString &interface,
    const QString &method, const QVariantList &arguments = {})
{
    auto message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    return bus.call(message, QDBus::Block, 5000);
}

QString accessibilityAddress()
{
    const QDBusReply<QString> address =
        call(QDBusConnection::sessionBus(), u"org.a11y.Bus"_s, u"/org/a11y/bus"_s, u"org.a11y.Bus"_s, u"GetAddress"_s);
    return address.value();
}

QList<Reference> children(const QDBusConnection &bus, const QString &service, const QString &path)
{
    const QDBusReply<QList<Reference>> reply = call(bus, service, path, accessible, u"GetChildren"_s);
    return reply.value();
}

quint64 states(const QDBusConnection &bus, const QString &service, const QString &path)
{
    const QDBusReply<QList<uint>> reply = call(bus, service, path, accessible, u"GetState"_s);
    const QList<uint> words = reply.value();
    return words.size() == 2 ? words[0] | quint64(words[1]) << 32 : 0;
}

QVariant property(const QDBusConnection &bus, const QString &service, const QString &path, const QString &interface,
    const QString &name)
{
    const QDBusReply<QDBusVariant> reply =
        call(bus, service, path, u"org.freedesktop.DBus.Properties"_s, u"Get"_s, {interface, name});
    return reply.value().variant();
}

QString name(const QDBusConnection &bus, const QString &service, const QString &path)
{
    return property(bus, service, path, accessible, u"Name"_s).toString();
}

// What stands in a field.
QString content(const QDBusConnection &bus, const QString &service, const QString &path)
{
    constexpr int toTheEnd = -1;
    const QDBusReply<QString> text = call(bus, service, path, u"org.a11y.atspi.Text"_s, u"GetText"_s, {0, toTheEnd});
    return text.value();
}

QRect place(const QDBusConnection &bus, const QString &service, const QString &path)
{
    const uint ofTheScreen = 0;
    const QDBusMessage reply = call(bus, service, path, u"org.a11y.atspi.Component"_s, u"GetExtents"_s, {ofTheScreen});
    if (reply.type() != QDBusMessage::ReplyMessage) {
        return {};
    }
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    const auto argument = reply.arguments().value(0).value<QDBusArgument>();
    argument.beginStructure();
    argument >> x >> y >> width >> height;
    argument.endStructure();
    return {x, y, width, height};
}

bool waitsFor(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, 20'000);
}

} // namespace

Q_DECLARE_METATYPE(Reference)
Q_DECLARE_METATYPE(Ability)

Screen::Screen(qint64 processId)
    : m_processId(processId),
      m_bus(QDBusConnection::connectToBus(accessibilityAddress(), u"screen %1"_s.arg(quintptr(this))))
{
    qDBusRegisterMetaType<Reference>();
    qDBusRegisterMetaType<QList<Reference>>();
    qDBusRegisterMetaType<Ability>();
    qDBusRegisterMetaType<QList<Ability>>();
}

Screen::~Screen()
{
    QDBusConnection::disconnectFromBus(m_bus.name());
}

bool Screen::isShowing(const QString &name) const
{
    return named(name).has_value();
}

bool Screen::shows(const QString &name) const
{
    return waitsFor([&] { return isShowing(name); });
}

bool Screen::shows(const QString &name, const QString &instead) const
{
    return waitsFor([&] { return isShowing(name) && !isShowing(instead); });
}

bool Screen::focuses(const QString &name) const
{
    return waitsFor([&] {
        const auto element = focused();
        return element && element->name == name;
    });
}

bool Screen::tabsTo(const QString &name) const
{
    constexpr int furthest = 40;
    QStringList passed;
    for (int presses = 0; presses < furthest; ++presses) {
        const auto before = focused();
        if (before && before->name == name) {
            return true;
        }
        desktop::press(u"Tab"_s);
        const auto moves = [&] {
            const auto now = focused();
            return now && (!before || now->path != before->path);
        };
        if (!waitsFor(moves)) {
            break;
        }
        passed.append(before ? before->name : QString());
    }
    qWarning("The Tab key led from \"%s\" and not to \"%s\"", qPrintable(passed.join(u"\", \""_s)), qPrintable(name));
    return false;
}

bool Screen::clicks(const QString &name) const
{
    const auto element = named(name);
    return element && desktop::click(element->place.center());
}

QStringList Screen::readsAloud() const
{
    QStringList texts;
    if (const QString program = service(); !program.isEmpty()) {
        readAloud(program, rootPath, texts);
    }
    return texts;
}

bool Screen::does(const QString &action, const QString &name) const
{
    const bool done = does(action, [&](const Element &element) { return element.name == name; });
    if (!done) {
        qWarning("Nothing called \"%s\" can \"%s\"", qPrintable(name), qPrintable(action));
    }
    return done;
}

bool Screen::does(const QString &action, const Test &isIt) const
{
    std::optional<Element> element;
    int place = -1;
    const auto finds = [&] {
        element = find([&](const Element &one) {
            place = isIt(one) ? placeOfAction(one, action) : -1;
            return place >= 0;
        });
        return element.has_value();
    };
    if (!waitsFor(finds)) {
        return false;
    }
    const QDBusReply<bool> done = call(m_bus, service(), element->path, actions, u"DoAction"_s, {place});
    return done.value();
}

bool Screen::writes(const QString &text, const QString &name) const
{
    // Its label may have the same name.
    const auto isField = [&](const Element &element) { return element.editable && element.name == name; };
    if (!does(u"SetFocus"_s, isField) || !focuses(name)) {
        return false;
    }
    const int unused = 0;
    const uint string = 4; // of AtspiKeySynthType
    const QDBusMessage typed =
        call(m_bus, u"org.a11y.atspi.Registry"_s, u"/org/a11y/atspi/registry/deviceeventcontroller"_s,
            u"org.a11y.atspi.DeviceEventController"_s, u"GenerateKeyboardEvent"_s, {unused, text, string});
    QString reads;
    const auto isThere = [&] {
        const auto element = focused();
        reads = element ? content(m_bus, service(), element->path) : QString();
        return reads.contains(text);
    };
    if (typed.type() == QDBusMessage::ReplyMessage && waitsFor(isThere)) {
        return true;
    }
    qWarning("After \"%s\" was typed into \"%s\", that reads \"%s\". %s", qPrintable(text), qPrintable(name),
        qPrintable(reads), qPrintable(typed.errorMessage()));
    return false;
}

std::optional<Screen::Element> Screen::named(const QString &name) const
{
    return find([&](const Element &element) { return element.name == name; });
}

std::optional<Screen::Element> Screen::focused() const
{
    return find([](const Element &element) { return element.active && element.focused; });
}

std::optional<Screen::Element> Screen::find(const Test &isIt) const
{
    const QString program = service();
    if (program.isEmpty()) {
        return {};
    }
    for (const Reference &window : children(m_bus, program, rootPath)) {
        if (const auto found = findIn(program, window.path.path(), false, isIt)) {
            return found;
        }
    }
    return {};
}

std::optional<Screen::Element> Screen::findIn(
    const QString &service, const QString &path, bool isActive, const Test &isIt) const
{
    const quint64 state = states(m_bus, service, path);
    if (!(state & showingState)) {
        return {};
    }
    // A dialog may be active where the window that it lies in is not.
    isActive = isActive || (state & activeState);
    for (const Reference &child : children(m_bus, service, path)) {
        if (const auto found = findIn(service, child.path.path(), isActive, isIt)) {
            return found;
        }
    }
    Element element{
        path, name(m_bus, service, path), isActive, (state & focusedState) != 0, (state & editableState) != 0, {}};
    if (!isIt(element)) {
        return {};
    }
    element.place = place(m_bus, service, path);
    return element;
}

void Screen::readAloud(const QString &service, const QString &path, QStringList &texts) const
{
    texts << name(m_bus, service, path) << property(m_bus, service, path, accessible, u"Description"_s).toString()
          << property(m_bus, service, path, u"org.a11y.atspi.Value"_s, u"CurrentValue"_s).toString()
          << content(m_bus, service, path);
    for (const Reference &child : children(m_bus, service, path)) {
        readAloud(service, child.path.path(), texts);
    }
}

int Screen::placeOfAction(const Element &element, const QString &action) const
{
    const QDBusReply<QList<Ability>> reply = call(m_bus, service(), element.path, actions, u"GetActions"_s);
    const QList<Ability> abilities = reply.value();
    const auto able = std::find_if(
        abilities.cbegin(), abilities.cend(), [&](const Ability &ability) { return ability.name == action; });
    return able == abilities.cend() ? -1 : int(able - abilities.cbegin());
}

QString Screen::service() const
{
    for (const Reference &program : children(m_bus, u"org.a11y.atspi.Registry"_s, rootPath)) {
        if (m_bus.interface()->servicePid(program.service).value() == m_processId) {
            return program.service;
        }
    }
    return {};
}
