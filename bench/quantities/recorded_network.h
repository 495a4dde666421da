#pragma once

#include <string>

/// Writes a drawing of so many lines and tees of several sizes, uses and kinds, in one route group: each with
/// an attribute record of three items and a link record. Throws std::runtime_error when it can't be written.
void writeNetwork(const std::wstring& path, int count);
