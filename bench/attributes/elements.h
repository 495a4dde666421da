#pragma once

#include <dbid.h>
#include <dbmain.h>

#include <string>
#include <vector>

inline constexpr int kAttributes = 20;

/// Writes a drawing of elements on a few layers, each with a record of the attributes "S1" to "S20".
void writeElements(const std::wstring& path, int count);

/// Such a drawing, opened; nothing of it is built yet.
struct Elements {
    explicit Elements(const std::wstring& path);

    AcDbDatabase database{false};
    std::vector<AcDbObjectId> ids;
};
