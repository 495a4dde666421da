#pragma once

namespace zu {

// Give the exported variables of the frame their defaults again.
void resetLayerNames();
void resetCurrentWindows();
void resetDrawingVariables();
void resetSettings();

} // namespace zu
