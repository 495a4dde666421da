#pragma once

#include <zuhost/line_block.h>

/// Lines of a text file in blocks. The embedded host gives the bytes of a block, so that the thread that
/// processes the lines decodes them. bare/line_block.h needs the interface only.
namespace zu {

using zuhost::LineBlock;
using zuhost::readLines;

} // namespace zu
