#pragma once

#include <QByteArray>
#include <QList>

namespace quillmere::testing {

// Something else in the place of a field of a reply.
struct Mutation {
    enum class Kind { Removed, Null, Flag, Whole, Fraction, Text, Date, EmptyList, List, Map };

    QByteArray name;
    Kind kind;
    QByteArray json; // unused where the field is removed
};

const QList<Mutation> &mutations();

// Every field and every place of every list in a JSON text, "data/0/id" among them.
QList<QByteArray> pathsIn(const QByteArray &json);

// The text with a mutation at that path; the empty path is the whole.
QByteArray mutated(const QByteArray &json, const QByteArray &path, const Mutation &mutation);

} // namespace quillmere::testing
