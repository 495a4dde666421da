#pragma once

#include "model/language.h"

#include <QString>

namespace zu::app {

/// Words of plans; ids of the language files.
enum class PlanText : unsigned {
    equipment = 215,
    otherElements,
    joined,
    dangling,
    named = 3001, ///< Words and what they stand for or how many there are,
    kindCount,    ///< a kind and the number of its elements.
    comma
};

[[nodiscard]] inline QString planText(PlanText id) {
    return QString::fromStdWString(programText(static_cast<unsigned>(id)));
}

} // namespace zu::app
