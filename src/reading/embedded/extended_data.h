#pragma once

#include <zuhost/extended_data.h>

/// Extended data read in place: xData creates a chain with a copy of each value. bare/extended_data.h needs
/// the interface only.
namespace zu {

using zuhost::visitExtendedData;

} // namespace zu
