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

/// The process-wide values of the library, except the variables that its interface exports.
struct LibraryState {
    LibraryState();
    ~LibraryState();
    LibraryState(const LibraryState&) = delete;
    LibraryState& operator=(const LibraryState&) = delete;

    // ---- frame
    HINSTANCE languageModule = nullptr; ///< Null while texts come from the library itself.
    LANGID language = 0;
    double scale = 1.0;
    double pointTolerance = 0.1;          ///< In drawing units, for scales above 1.0.
    double vectorTolerance = 0.1;         ///< In drawing units, for all other scales.
    AcDbDatabase* workDatabase = nullptr; ///< Null for the host's working database. Not owned.

    // ---- routes
    std::unordered_map<const AcDbDatabase*, std::unique_ptr<ConnectionIndexes>> connectionIndexes;
    AcArray<CReplaceReactor*> replaceReactors; ///< In order of registration. Not owned.

    // ---- attributes
    std::unique_ptr<AttributeTables> attributeTables;
};

/// Returns the state of the library; zucomn::resetLibrary replaces it.
[[nodiscard]] LibraryState& state();

} // namespace zu
