#pragma once

#include <QString>

#include <utility>
#include <variant>

namespace quillmere {

// Why an operation failed. `kind` says which layer speaks; `code` is that layer's own number (the case of an APIError
// or AuthError, or 0); the text is fit to be shown to the user and never holds a token or a reply.
class Failure {
public:
    enum class Kind { Service, SignIn, Transport, Decoding, Encoding, File };

    Failure(Kind kind, QString text, int code = 0) : m_kind(kind), m_code(code), m_text(std::move(text)) { }

    Kind kind() const { return m_kind; }
    int code() const { return m_code; }
    QString localizedDescription() const { return m_text; }

private:
    Kind m_kind;
    int m_code;
    QString m_text;
};

// What every fallible operation returns: a value or a Failure. Coroutines return it instead of throwing, since an
// exception out of a task that nobody awaits would vanish.
template <typename T> class [[nodiscard]] Result {
public:
    Result(T value) : m_outcome(std::in_place_index<0>, std::move(value)) { }
    Result(Failure failure) : m_outcome(std::in_place_index<1>, std::move(failure)) { }

    bool succeeded() const { return m_outcome.index() == 0; }
    explicit operator bool() const { return succeeded(); }

    // The value; only after a look at succeeded().
    T &operator*() & { return std::get<0>(m_outcome); }
    const T &operator*() const & { return std::get<0>(m_outcome); }
    T &&operator*() && { return std::get<0>(std::move(m_outcome)); }
    T *operator->() { return &std::get<0>(m_outcome); }
    const T *operator->() const { return &std::get<0>(m_outcome); }

    // The failure; only where succeeded() is false.
    const Failure &failure() const { return std::get<1>(m_outcome); }

private:
    std::variant<T, Failure> m_outcome;
};

} // namespace quillmere
