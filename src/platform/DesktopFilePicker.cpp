#include "platform/DesktopFilePicker.h"

#include "platform/FileDialog.h"
#include "platform/PortalFileChooser.h"

namespace quillmere {

DesktopFilePicker::~DesktopFilePicker()
{
    if (m_portal) {
        m_portal->close();
    }
}

QCoro::Task<Result<QList<QUrl>>> DesktopFilePicker::pick(FileRequest request)
{
    const QPointer<FileDialog> dialog(&FileDialog::shared());
    if (m_portal || dialog->isUp()) {
        co_return QList<QUrl>();
    }
    const auto portal = std::make_unique<PortalFileChooser>(QDBusConnection::sessionBus());
    m_portal = portal.get();
    const PortalFileChooser::Outcome answer = co_await portal->open(request);
    if (answer) {
        co_return *answer;
    }
    if (!dialog) {
        co_return QList<QUrl>();
    }
    m_portal = nullptr;
    co_return co_await dialog->pick(request);
}

void DesktopFilePicker::cancel()
{
    if (m_portal) {
        m_portal->close();
    }
    FileDialog::shared().close();
}

} // namespace quillmere
