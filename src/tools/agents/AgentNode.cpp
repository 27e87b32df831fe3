#include "tools/agents/AgentNode.h"

#include "app/theme/Color.h"

#include <QCoreApplication>

#include <array>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace AgentVocabulary {

namespace {

struct NodeTypeLook {
    const char *label;
    const char *newTitle;
    const char *icon;
    QColor color;
};

const NodeTypeLook &lookOf(NodeType type)
{
    static const std::array looks{
        NodeTypeLook{QT_TRANSLATE_NOOP("AgentNode", "Trigger"), QT_TRANSLATE_NOOP("AgentNode", "New Trigger"),
            "bolt.fill", Color::green()},
        NodeTypeLook{QT_TRANSLATE_NOOP("AgentNode", "Logic"), QT_TRANSLATE_NOOP("AgentNode", "New Logic"),
            "arrow.triangle.branch", Color::orange()},
        NodeTypeLook{QT_TRANSLATE_NOOP("AgentNode", "LLM"), QT_TRANSLATE_NOOP("AgentNode", "New LLM"),
            "brain.head.profile", Color::purple()},
        NodeTypeLook{QT_TRANSLATE_NOOP("AgentNode", "Tool"), QT_TRANSLATE_NOOP("AgentNode", "New Tool"), "hammer.fill",
            Color::blue()},
        NodeTypeLook{QT_TRANSLATE_NOOP("AgentNode", "Data"), QT_TRANSLATE_NOOP("AgentNode", "New Data"),
            "cylinder.fill", Color::yellow()},
    };
    return looks.at(size_t(type));
}

} // namespace

QString label(NodeType type)
{
    return QCoreApplication::translate("AgentNode", lookOf(type).label);
}

QString newTitle(NodeType type)
{
    return QCoreApplication::translate("AgentNode", lookOf(type).newTitle);
}

QString icon(NodeType type)
{
    return QString::fromLatin1(lookOf(type).icon);
}

QColor color(NodeType type)
{
    return lookOf(type).color;
}

QColor color(NodeStatus status)
{
    return std::array{QColor(Qt::transparent), Color::blue(), Color::green(), Color::red()}.at(size_t(status));
}

} // namespace AgentVocabulary

namespace {

const auto modelKey = u"model"_s;

} // namespace

AgentNode AgentNode::make(NodeType type, QPointF position, const QString &title)
{
    return {.id = QUuid::createUuid(),
        .type = type,
        .position = position,
        .title = title,
        .description = QCoreApplication::translate("AgentNode", "Configure this node"),
        .status = NodeStatus::Idle,
        .metadata = {}};
}

QString AgentNode::model() const
{
    return metadata.value(modelKey, u"GPT-4"_s);
}

void AgentNode::setModel(const QString &model)
{
    metadata.insert(modelKey, model);
}

} // namespace quillmere
