#pragma once

#include <afxcoll.h>
#include <dbid.h>
#include <zuhost/platform/export.h>

class AcDbObject;

// Shared helpers of the product's modules on the host's interface. Results are 0 for success and -1 for
// failure.

// ---- texts in the extended data of an object

/// Arguments of ApiComn_appendAttributes: register an unknown application; append a text.
inline constexpr int APICOMN_REGISTER = 1;
inline constexpr int APICOMN_TEXT_ITEM = 2;

/// Appends a text to the application's extended data. With `registering` APICOMN_REGISTER an unknown
/// application is registered in the drawing; `itemKind` must be APICOMN_TEXT_ITEM. -1 with the object
/// unchanged when it is not open for write, the application is not registered, or the object's data would
/// become too large.
ZUHOST_API int ApiComn_appendAttributes(AcDbObject* object, const wchar_t* application, int registering,
                                        int itemKind, const wchar_t* text);

/// Replaces the texts of the application's extended data, in order: further texts are appended, surplus ones
/// removed; items of other types keep their places. Registers the application. -1 with the object unchanged
/// as above.
ZUHOST_API int ApiComn_appendAttributesArray(AcDbObject* object, const wchar_t* application,
                                             const CStringArray& texts);
/// As above, but opens the object; -1 also when it can't be opened for write.
ZUHOST_API int ApiComn_appendAttributesArray(AcDbObjectId id, const wchar_t* application,
                                             const CStringArray& texts);

/// Reads the texts of the application's extended data in order; empties the array first. -1 when the object
/// has no data of the application.
ZUHOST_API int ApiComn_extractAttributesArray(const AcDbObject* object, const wchar_t* application,
                                              CStringArray& texts);
/// As above, but opens the object for read; -1 also when it can't be opened, as when it is erased.
ZUHOST_API int ApiComn_extractAttributesArrayID(AcDbObjectId id, const wchar_t* application,
                                                CStringArray& texts);

// ---- settings, commands, angles

/// Reads a value of a settings file, up to 511 characters. -1 with `value` unchanged when it is missing or is
/// "error".
ZUHOST_API int ApiComn_GetEnv(CString& value, const wchar_t* file, const wchar_t* section,
                              const wchar_t* key);

/// Sends a command to the host as if the user had typed it; it runs when the host is idle. `first` puts it
/// before commands that were sent and have not run yet, `wait` runs it and all pending commands now, `enter`
/// appends a line end. -1 for an empty command.
ZUHOST_API int ApiComn_sendCommand(const wchar_t* command, int first, int wait, int enter);

ZUHOST_API double ApiComn_DegreeToRadian(double degrees);
ZUHOST_API double ApiComn_RadianToDegree(double radians);
