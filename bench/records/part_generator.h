#pragma once

#include <cstddef>
#include <string>

/// A part drawing of about that many bytes: lines, arcs, circles, light polylines, texts and block references
/// on a few layers, R2000, as a CAD program writes it. The same on every run.
std::string makePart(std::size_t bytes, bool binary);
