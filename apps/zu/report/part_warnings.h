#pragma once

#include <zucomn/dxf.h>

#include <string>

namespace zu::app {

/// Prints the faults of a part drawing on the standard error, one a line, each with its line in the file or
/// its byte in a binary one. Of very many faults it prints the first ones and the number of the others.
void printWarnings(const std::string& file, const zu::dxf::Findings& findings);

} // namespace zu::app
