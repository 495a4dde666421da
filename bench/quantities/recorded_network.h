#pragma once

#include <string>

enum class Design {
    faulty, ///< One route; joined elements differ in size and height, and the branches of tees join nothing.
    sound   ///< Routes of two tracks each, the tees of which join; the ends of the tracks join nothing.
};

/// Writes a drawing of so many lines and tees of several sizes, uses and kinds: each with an attribute record
/// of three items and a link record. Throws std::runtime_error when it can't be written.
void writeNetwork(const std::wstring& path, int count, Design design);
