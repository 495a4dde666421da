#pragma once

namespace zu {

/// Takes the layer names from the texts in force; a text that is missing or empty leaves the built-in name.
void reloadLayerNames();

} // namespace zu
