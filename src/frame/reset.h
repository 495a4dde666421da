#pragma once

namespace zu {

// Restore the defaults of the variables that this folder exports.
void resetLayerNames();
void resetCurrentWindows();
void resetDrawingVariables();
void resetSettings();

} // namespace zu
