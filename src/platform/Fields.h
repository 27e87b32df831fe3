#pragma once

#include <tuple>
#include <type_traits>

namespace quillmere {

// One field of a record: its name and where it stands. A record lists its fields once, in a static member function
//
//     static constexpr auto fields() { return std::tuple {Field {"id", &Job::id}, Field {"name", &Job::name}}; }
//
// and decoding, encoding and the roles of a list model all come from that list. A member function without arguments
// counts as a field that can be read.
template <typename Member> struct Field {
    const char *name;
    Member member;
};

template <typename Member> Field(const char *, Member) -> Field<Member>;

template <typename Record, typename Visit> constexpr void forEachField(Visit &&visit)
{
    std::apply([&](const auto &...field) { (visit(field), ...); }, Record::fields());
}

template <typename Record> constexpr std::size_t fieldCount = std::tuple_size_v<decltype(Record::fields())>;

} // namespace quillmere
