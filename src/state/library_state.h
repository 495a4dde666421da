#pragma once

#include <acarray.h>
#include <windows.h>

#include <memory>
#include <unordered_map>

class AcDbDatabase;
class CReplaceReactor;

namespace zu {

class AttributeTables;
class ConnectionIndexes;

/// Every process-wide value of the library, except the variables that its interface exports.
struct LibraryState {
    LibraryState();
    ~LibraryState();
    LibraryState(const LibraryState&) = delete;
    LibraryState& operator=(const LibraryState&) = delete;

    // ---- frame
    HINSTANCE languageModule = nullptr; ///< Null: texts come from the library itself.
    LANGID language = 0;
    double scale = 1.0;
    double pointTolerance = 0.1;
    double vectorTolerance = 0.1;
    AcDbDatabase* workDatabase = nullptr;

    // ---- routes
    std::unordered_map<const AcDbDatabase*, std::unique_ptr<ConnectionIndexes>> connectionIndexes;
    AcArray<CReplaceReactor*> replaceReactors; ///< In order of registration; their owners keep them.

    // ---- attributes
    std::unique_ptr<AttributeTables> attributeTables;
    bool routeAttributeMode = false;
};

/// The one state of the library.
[[nodiscard]] LibraryState& state();

} // namespace zu
