#pragma once

#include <afxcoll.h>
#include <dbid.h>

class AcDbObject;

// Shared helpers of the product's modules on the host's interface. Results are 0 for success and -1 for
// failure.

// ---- texts in the extended data of an object

/// What ApiComn_appendAttributes does with an application that the drawing doesn't know, and the kind of
/// item.
inline constexpr int APICOMN_REGISTER = 1;
inline constexpr int APICOMN_TEXT_ITEM = 2;

/// Appends one text to the application's extended data. With `registering` APICOMN_REGISTER the application
/// is made known to the drawing when it is not; `itemKind` must be APICOMN_TEXT_ITEM. -1, with nothing
/// changed, when the object is not open for write, the application is not known, or the object's data would
/// become too large.
int ApiComn_appendAttributes(AcDbObject* object, const wchar_t* application, int registering, int itemKind,
                             const wchar_t* text);

/// Makes the given texts the texts of the application's extended data: each takes the place of the text that
/// stood there, more are appended, surplus ones go; items of other kinds stay where they are. Registers the
/// application. -1 with nothing changed as above.
int ApiComn_appendAttributesArray(AcDbObject* object, const wchar_t* application, const CStringArray& texts);
/// The same, opening the object; -1 also when it can't be opened for write.
int ApiComn_appendAttributesArray(AcDbObjectId id, const wchar_t* application, const CStringArray& texts);

/// Reads the texts of the application's extended data in order; the array is emptied first. -1 when the
/// object has no data of the application.
int ApiComn_extractAttributesArray(const AcDbObject* object, const wchar_t* application, CStringArray& texts);
/// The same, opening the object for read (not an erased one); -1 also when it can't be opened.
int ApiComn_extractAttributesArrayID(AcDbObjectId id, const wchar_t* application, CStringArray& texts);

// ---- settings, commands, angles

/// A value of a settings file. -1, with `value` untouched, when it is missing or reads "error".
int ApiComn_GetEnv(CString& value, const wchar_t* file, const wchar_t* section, const wchar_t* key);

/// Sends a command to the host, as if its name were typed; it runs when the host is idle. With `first` it
/// goes before what was sent and has not run yet, with `wait` it runs now (after what was sent), with `enter`
/// the name is ended by a line end. -1 for an empty name.
int ApiComn_sendCommand(const wchar_t* command, int first, int wait, int enter);

double ApiComn_DegreeToRadian(double degrees);
double ApiComn_RadianToDegree(double radians);
