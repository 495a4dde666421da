#pragma once

#include <QString>

namespace zu::picture {

/// Returns the installed font family that a style's font name means ("Arial", "arial.ttf", "msgothic.ttc");
/// empty when the machine has none such, as for stroke fonts (".shx").
[[nodiscard]] QString installedFamily(const QString& font);

/// Returns the family that has every character: a Japanese one where it is installed.
[[nodiscard]] QString fallbackFamily();

} // namespace zu::picture
