#include "faults/ReplyMutation.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace quillmere::testing {

namespace {

// Stands for a text that no encoder writes, such as a number of more than 64 bits, until all is written.
const auto placeholder = u"@placeholder@"_s;

void collect(const QJsonValue &value, const QByteArray &path, QList<QByteArray> &paths)
{
    if (!path.isEmpty()) {
        paths.append(path);
    }
    const QByteArray within = path.isEmpty() ? path : path + '/';
    const QJsonObject object = value.toObject();
    for (auto field = object.begin(); field != object.end(); ++field) {
        collect(*field, within + field.key().toUtf8(), paths);
    }
    const QJsonArray array = value.toArray();
    for (qsizetype place = 0; place < array.size(); ++place) {
        collect(array[place], within + QByteArray::number(place), paths);
    }
}

QJsonValue changed(const QJsonValue &value, const QByteArrayList &path, bool removes)
{
    if (path.isEmpty()) {
        return placeholder;
    }
    const bool removesHere = removes && path.size() == 1;
    if (value.isArray()) {
        QJsonArray array = value.toArray();
        const qsizetype place = path.constFirst().toLongLong();
        if (removesHere) {
            array.removeAt(place);
        } else {
            array[place] = changed(array[place], path.mid(1), removes);
        }
        return array;
    }
    QJsonObject object = value.toObject();
    const QString key = QString::fromUtf8(path.constFirst());
    if (removesHere) {
        object.remove(key);
    } else {
        object[key] = changed(object[key], path.mid(1), removes);
    }
    return object;
}

} // namespace

const QList<Mutation> &mutations()
{
    using Kind = Mutation::Kind;
    static const QList<Mutation> all{
        {"removed", Kind::Removed, {}},
        {"null", Kind::Null, "null"},
        {"true", Kind::Flag, "true"},
        {"false", Kind::Flag, "false"},
        {"0", Kind::Whole, "0"},
        {"-1", Kind::Whole, "-1"},
        {"1.0", Kind::Whole, "1.0"},
        {"the largest number of 64 bits", Kind::Whole, "9223372036854775807"},
        {"a number of more than 64 bits", Kind::Fraction, "9223372036854775808"},
        {"1.5", Kind::Fraction, "1.5"},
        {"1e300", Kind::Fraction, "1e300"},
        {"an empty text", Kind::Text, R"("")"},
        {"a text", Kind::Text, R"("text")"},
        {"a number as a text", Kind::Text, R"("12")"},
        {"a day", Kind::Text, R"("2026-11-20")"},
        {"a date with a fraction", Kind::Text, R"("2026-11-20T12:00:00.5Z")"},
        {"a date without a zone", Kind::Text, R"("2026-11-20T12:00:00")"},
        {"a date of no calendar", Kind::Text, R"("2026-02-30T12:00:00Z")"},
        {"a date", Kind::Date, R"("2026-11-20T12:00:00Z")"},
        {"an empty list", Kind::EmptyList, "[]"},
        {"a list", Kind::List, "[null, 1]"},
        {"an empty object", Kind::Map, "{}"},
        {"an object", Kind::Map, R"({"a": {"b": [1.5]}})"},
    };
    return all;
}

QList<QByteArray> pathsIn(const QByteArray &json)
{
    QList<QByteArray> paths;
    collect(QJsonDocument::fromJson(json).object(), {}, paths);
    return paths;
}

QByteArray mutated(const QByteArray &json, const QByteArray &path, const Mutation &mutation)
{
    const bool removes = mutation.kind == Mutation::Kind::Removed;
    if (path.isEmpty()) {
        return removes ? QByteArray() : mutation.json;
    }
    const QJsonValue bent = changed(QJsonDocument::fromJson(json).object(), path.split('/'), removes);
    return QJsonDocument(bent.toObject())
        .toJson(QJsonDocument::Compact)
        .replace('"' + placeholder.toUtf8() + '"', mutation.json);
}

} // namespace quillmere::testing
