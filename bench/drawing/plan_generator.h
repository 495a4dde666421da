#pragma once

#include <cstdint>
#include <string>

/// The plan's objects have consecutive handles from this one on.
constexpr std::uint64_t kFirstPlanHandle = 0x1000;

/// Writes an ASCII drawing of about that many bytes, the same on every run: a floor plan of block references
/// with extended data and group reactors, polylines, lines and texts, and the groups of the references.
void writePlan(const std::string& path, std::uint64_t bytes);
