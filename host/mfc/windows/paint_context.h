#pragma once

#include "zuhost/windows/gdi.h"

namespace zuhost {

/// Draws with a painter of the desktop.
class PaintContext : public CDC {
public:
    explicit PaintContext(QPainter& painter) : CDC(painter) {}
};

} // namespace zuhost
