#pragma once

#include <QString>
#include <QStringList>

#include <string_view>

namespace zu::preview {

/// A text with "%%d" and its kin as the characters they stand for; underlining and the like is left out.
[[nodiscard]] QString plainText(std::wstring_view text);

/// The lines of a multi-line text without its format codes; fractions are written with "/".
[[nodiscard]] QStringList plainLines(std::wstring_view text);

} // namespace zu::preview
