#pragma once

#include <dbid.h>
#include <dbmain.h>

#include <string>
#include <vector>

inline constexpr int kAttributes = 20;

/// Writes a drawing of elements on a few layers, each with a record of the attributes "S1" to "S20".
void writeElements(const std::wstring& path, int count);

/// Opens such a drawing; its objects are not built yet.
struct Elements {
    explicit Elements(const std::wstring& path);

    AcDbDatabase database{false};
    std::vector<AcDbObjectId> ids;
};
