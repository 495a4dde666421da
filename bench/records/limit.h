#pragma once

#include <string>

/// The least that a reader of drawings has to do: maps the file, finds the end of each line (binary: of each
/// record), converts each number, all by the quickest code there is here. Returns the sum of the numbers, so
/// that nothing can be left out.
double readLimit(const std::string& path);
