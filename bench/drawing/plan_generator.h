#pragma once

#include <cstdint>
#include <string>

/// The plan's objects have the handles from this one on, without a gap.
constexpr std::uint64_t firstPlanHandle = 0x1000;

/// Writes an ASCII drawing of about so many bytes, the same on every run: a floor plan of block references
/// with extended data and group reactors, polylines, lines and texts, and the groups of the references.
void writePlan(const std::string& path, std::uint64_t bytes);
