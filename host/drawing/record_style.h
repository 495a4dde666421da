#pragma once

#include "drawing/document.h"

namespace zuhost {

/// How a file spells its records, beyond what they say.
struct RecordStyle {
    DrawingForm form = DrawingForm::ascii;
    std::string lineEnd = "\r\n"; ///< ASCII only.
    std::size_t codeWidth = 3;    ///< ASCII only: group codes are padded with blanks to so many places.
    bool byteCodes = false;       ///< Binary only: group codes of one byte, as before R13.
};

} // namespace zuhost
