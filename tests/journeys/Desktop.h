#pragma once

#include <QPoint>
#include <QString>

// The X session around a journey: its keyboard and pointer, its windows, and its choice of browser.
namespace desktop {

// By X's names of keys, "Return" or "alt+F4" say.
bool press(const QString &key);
bool type(const QString &text);
bool click(QPoint place);

// Puts a window before the others and gives it the keys, as somebody does who picks it in a task bar.
bool activate(quintptr window);
// The process whose window takes the keys; 0 when there is none.
qint64 activeProcess();

// How many windows show that have this class, which is the identifier of their program.
int windowCount(const QString &windowClass);

// Makes a command the browser of whoever has these folders as XDG_DATA_HOME and XDG_CONFIG_HOME. `command` is one path without
// blanks.
bool setBrowser(const QString &command, const QString &dataFolder, const QString &configFolder);

// The folders of this process, which its children have too.
QString dataFolder();
QString configFolder();

} // namespace desktop
