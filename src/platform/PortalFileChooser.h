#pragma once

#include "platform/FilePicker.h"

#include <QDBusConnection>
#include <QObject>
#include <QPromise>
#include <QVariantMap>

#include <optional>
#include <utility>

namespace quillmere {

// One dialog of the desktop's portal (org.freedesktop.portal.FileChooser), from the call to its answer. The portal shows it in a
// process of its own, and may go away at any time.
class PortalFileChooser : public QObject {
    Q_OBJECT

public:
    using Outcome = std::optional<Result<QList<QUrl>>>;

    explicit PortalFileChooser(QDBusConnection bus) : m_bus(std::move(bus)) { }
    // Whoever waits gets no file.
    ~PortalFileChooser() override;

    // What was picked. Empty where no dialog came: there is no bus, no portal on it, or none that picks files. To be called once.
    QCoro::Task<Outcome> open(FileRequest request);

    // The answer is then that nothing was picked.
    void close();

private:
    Q_SLOT void answered(uint code, const QVariantMap &results);
    void call(const FileRequest &request);
    void follow(const QString &path);
    void callOff();
    void end(Outcome outcome);

    QDBusConnection m_bus;
    QString m_path; // of the object that stands for this dialog
    QPromise<Outcome> m_outcome;
    bool m_replied = false; // the dialog is on its way, or up
    bool m_ended = false;
};

} // namespace quillmere
