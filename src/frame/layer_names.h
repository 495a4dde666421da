#pragma once

namespace zu {

/// Sets the layer names from the current texts; a text that is missing or empty leaves the built-in name.
void reloadLayerNames();

} // namespace zu
