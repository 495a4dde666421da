#pragma once

#include <QString>

namespace zu::picture {

/// Returns the installed font family that a style's font name means ("Arial", "arial.ttf", "msgothic.ttc");
/// empty when the machine has none such, as for stroke fonts (".shx").
[[nodiscard]] QString installedFamily(const QString& font);

/// Returns the family that has every character: a Japanese one where it is installed. Its half-width letters
/// are half as wide as full-width ones where it is for texts in columns, and of their own widths otherwise.
[[nodiscard]] QString fallbackFamily(bool inColumns);

} // namespace zu::picture
