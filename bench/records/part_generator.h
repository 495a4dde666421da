#pragma once

#include <cstddef>
#include <string>

/// Returns an R2000 part drawing of about that many bytes, the same on every run: lines, arcs, circles,
/// lightweight polylines, texts and block references on a few layers.
std::string makePart(std::size_t bytes, bool binary);
