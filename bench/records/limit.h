#pragma once

#include <string>

/// The minimum work of a reader of drawings: maps the file, finds the end of each line (binary: of each
/// record) and converts each number, by the fastest code of this project. Returns the sum of the numbers, so
/// that the compiler cannot omit any work.
double readLimit(const std::string& path);
