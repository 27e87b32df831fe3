#pragma once

#include "platform/Fields.h"

#include <QColor>
#include <QMap>
#include <QObject>
#include <QPointF>
#include <QString>
#include <QUuid>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// The vocabulary of the agent canvas.
namespace AgentVocabulary {
Q_NAMESPACE
QML_NAMED_ELEMENT(AgentVocabulary)

enum class NodeType { Trigger, Logic, Llm, Tool, Data };
Q_ENUM_NS(NodeType)

enum class NodeStatus { Idle, Running, Success, Error };
Q_ENUM_NS(NodeStatus)

// "Trigger", "Logic", "LLM", "Tool", "Data".
QString label(NodeType type);
// What a node is called when it comes: "New Trigger" and so on.
QString newTitle(NodeType type);
QString icon(NodeType type);
QColor color(NodeType type);

// Transparent where there is nothing to show.
QColor color(NodeStatus status);

} // namespace AgentVocabulary

// One node of a workflow.
struct AgentNode {
    Q_GADGET
    QML_VALUE_TYPE(agentNode)

    // A NodeType. Compiled QML cannot read an enumeration from a value in Qt 6.4.
    Q_PROPERTY(int type READ typeNumber)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString description MEMBER description)
    Q_PROPERTY(QString label READ label)
    Q_PROPERTY(QString icon READ icon)
    Q_PROPERTY(QColor color READ color)
    Q_PROPERTY(QString model READ model)

public:
    using NodeType = AgentVocabulary::NodeType;
    using NodeStatus = AgentVocabulary::NodeStatus;

    QUuid id; // never changes
    NodeType type = NodeType::Trigger;
    QPointF position; // of its centre, in points of the canvas
    QString title;
    QString description;
    NodeStatus status = NodeStatus::Idle;
    QMap<QString, QString> metadata;

    // A node with an id of its own.
    static AgentNode make(NodeType type, QPointF position, const QString &title);

    // As QML knows them.
    int typeNumber() const { return int(type); }
    QString identifier() const { return id.toString(QUuid::WithoutBraces); }
    QString label() const { return AgentVocabulary::label(type); }
    QString icon() const { return AgentVocabulary::icon(type); }
    QColor color() const { return AgentVocabulary::color(type); }
    QColor statusColor() const { return AgentVocabulary::color(status); }

    // The entry "model" of the metadata: "GPT-4" as long as there is none, which is not the same as an empty one.
    QString model() const;
    void setModel(const QString &model);

    bool operator==(const AgentNode &) const = default;

    static constexpr auto fields()
    {
        return std::tuple{Field{"identifier", &AgentNode::identifier}, Field{"position", &AgentNode::position},
            Field{"title", &AgentNode::title}, Field{"label", &AgentNode::label}, Field{"icon", &AgentNode::icon},
            Field{"color", &AgentNode::color}, Field{"status", &AgentNode::status},
            Field{"statusColor", &AgentNode::statusColor}};
    }
};

// A line from one node to another, each told by its id.
struct NodeConnection {
    QUuid id;
    QUuid from;
    QUuid to;

    bool operator==(const NodeConnection &) const = default;
};

} // namespace quillmere
