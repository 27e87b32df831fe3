#pragma once

#include "platform/Clock.h"

#include <QObject>

namespace quillmere {

// Lets the caret stand still ten seconds after the last key, press or focus that a field got, as GTK does (its setting
// gtk-cursor-blink-timeout), so that a window that nobody touches draws nothing. It watches the fields of the whole application.
class RestingCaret : public QObject {
    Q_OBJECT

public:
    static constexpr std::chrono::seconds blinksFor{10};

    RestingCaret();
    ~RestingCaret() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void blink();

    const int m_flashTime; // the desktop's
    Clock::Timer m_rest = 0;
};

} // namespace quillmere
