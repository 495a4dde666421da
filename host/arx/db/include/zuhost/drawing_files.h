#pragma once

#include <adesk.h>
#include <zuhost/platform/export.h>

#include <memory>
#include <string>
#include <vector>

class AcDbDatabase;

namespace zuhost {

/// As AcDbDatabase::dxfIn; the first warning is an error.
ZUHOST_API Acad::ErrorStatus dxfInStrict(AcDbDatabase& database, const ACHAR* path);
/// Fills the database from bytes in memory, as AcDbDatabase::dxfIn; `name` is for messages.
ZUHOST_API Acad::ErrorStatus dxfInBytes(AcDbDatabase& database, std::string bytes, const ACHAR* name);

/// As AcDbDatabase::dxfOut, in the given form.
ZUHOST_API Acad::ErrorStatus dxfOut(AcDbDatabase& database, const ACHAR* path, bool binary);
/// Returns the bytes that dxfOut would write.
[[nodiscard]] ZUHOST_API std::string dxfOutBytes(AcDbDatabase& database, bool binary);
/// Returns the same in the drawing's own form. Those of an unedited drawing are not copied; they never change
/// and outlive the database. Null on failure.
[[nodiscard]] ZUHOST_API std::shared_ptr<const std::string> dxfOutShared(AcDbDatabase& database);
/// Returns true when the drawing was read from a binary file.
[[nodiscard]] ZUHOST_API bool isBinary(const AcDbDatabase& database);
/// The number of $ACADVER: 1009 for R12 ... 1032 for R2018; 0 without a drawing.
[[nodiscard]] ZUHOST_API int drawingVersion(const AcDbDatabase& database);

/// "FILE:LINE: PROBLEM" of the last failure to read or write.
[[nodiscard]] ZUHOST_API const std::wstring& lastErrorText(const AcDbDatabase& database);
/// "FILE:LINE: warning: PROBLEM" of each fault that did not keep the drawing from opening, limited in number.
[[nodiscard]] ZUHOST_API std::vector<std::wstring> warnings(const AcDbDatabase& database);

/// Lets the database's next save replace the file that the drawing was opened from although another program
/// has changed or removed it since (AcDbDatabase::dxfOut refuses it with eFileAccessErr). Holds until a save
/// to that file succeeds.
ZUHOST_API void allowReplacingChangedFile(AcDbDatabase& database);

} // namespace zuhost
