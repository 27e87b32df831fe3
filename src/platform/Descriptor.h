#pragma once

#include <QtGlobal>

#include <unistd.h>

namespace quillmere {

// Owns a file descriptor of the system and closes it; negative where opening failed.
class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) { }
    ~Descriptor()
    {
        if (m_number >= 0) {
            ::close(m_number);
        }
    }
    Q_DISABLE_COPY_MOVE(Descriptor)

    operator int() const { return m_number; }

private:
    int m_number;
};

} // namespace quillmere
