#pragma once

#include "records/styles.h"
#include "shape.h"

#include <gepnt3d.h>

namespace zu::picture {

/// Returns the advance of a text in capital heights.
[[nodiscard]] double advanceOf(const QString& text, const QString& family, bool bold, bool italic,
                               bool onGrid);

/// Returns a run of letters in a style's font, its width measured and its `place` the identity.
[[nodiscard]] TextRun runOf(const QString& text, const TextStyle& style);

/// A text of one line with "%%d" and its kin resolved. Underlined and overlined stretches are positions in
/// the text: start and end alternate.
struct CodedText {
    QString text;
    std::vector<qsizetype> underlined;
    std::vector<qsizetype> overlined;
};
[[nodiscard]] CodedText resolveCodes(const QString& text);

} // namespace zu::picture
