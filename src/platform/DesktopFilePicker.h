#pragma once

#include "platform/FilePicker.h"

#include <QPointer>

namespace quillmere {

class PortalFileChooser;

// The desktop's own dialog where its portal has one, and otherwise the dialog within the window.
class DesktopFilePicker : public FilePicker {
public:
    ~DesktopFilePicker() override;

    QCoro::Task<Result<QList<QUrl>>> pick(FileRequest request) override;
    void cancel() override;

private:
    QPointer<PortalFileChooser> m_portal;
};

} // namespace quillmere
