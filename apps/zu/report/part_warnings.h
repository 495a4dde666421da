#pragma once

#include <zucomn/dxf.h>

#include <string>

namespace zu::app {

/// Prints what was wrong with a part drawing on the standard error, a line each, by line of the file or byte
/// of a binary one; of very many faults the first ones and the number of the others.
void printWarnings(const std::string& file, const zu::dxf::Findings& findings);

} // namespace zu::app
