#pragma once

#include <QImage>

class QQuickWindow;

namespace quillmere::testing {

// A page of the gallery in all its states. One pointer and one keyboard cannot be everywhere at once: each control that is to be
// seen hovered, pressed or focused is brought there by itself, and its place is cut out of a picture of its own.
QImage galleryPicture(QQuickWindow &view);

} // namespace quillmere::testing
