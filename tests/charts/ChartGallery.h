#pragma once

#include <QVariantMap>

namespace quillmere::testing {

// What the charts of Charts.qml show.
QVariantMap chartGallery();

} // namespace quillmere::testing
