#pragma once

#include "export.h"

#include <acdb.h>
#include <afx.h>

class AcDbDatabase;
class CWnd;

// The library's frame: the language module, the process-wide state that the product's modules share,
// messages.
//
// The state is not locked: use it on the host's main thread only. Until ZuComn_SetResource runs, layer names
// have their built-in defaults and texts come from the library itself (Japanese).

// ---- texts

/// Loads the language module of the user's language and reloads the layer names from it.
///
/// The module is searched in the folder beside the library that is named by the decimal language id. No
/// module is loaded for Japanese or an unknown language. When the module cannot be loaded, the library
/// reports its path on the command line. In these cases all texts come from the library itself. The module is
/// released when the library is unloaded; the layer names stay valid.
///
/// On this host a language module is a UTF-8 file such as "1033/ZuComn.strings" with lines `id = "text"`.
/// Missing and empty texts are taken from the library, so a module can omit the names of layers and of
/// sections and keys of settings files.
ZUCOMN_API void ZuComn_SetResource();

/// Loads a text from the given module only; a null module means the library itself. Empties `text` first.
/// Returns 1 on success, 0 when the module has no such text.
ZUCOMN_API int ZuComn_LoadString(HINSTANCE module, UINT id, CString& text);
/// Loads a text into a buffer of `length` characters, truncated to fit and terminated by NUL. The handle is
/// used as given: here a null module means the program. Returns the number of characters without the NUL; 0
/// with an empty buffer when the module has no such text.
ZUCOMN_API int ZuComn_LoadString(HINSTANCE module, UINT id, wchar_t* buffer, int length);

/// Returns the module that texts come from: the language module, or the library itself when none is loaded.
ZUCOMN_API HINSTANCE ZuComn_GetResource();
/// Returns the language id that ZuComn_SetResource found; 0 before that call and for an unknown language.
ZUCOMN_API LANGID ZuComn_GetResourceLanguage();

// ---- drawing scale, tolerances, database

/// Sets the drawing scale factor, initially 1.0. The value is not checked.
ZUCOMN_API void ZuComn_SetScale(double scale);
/// Returns the drawing scale factor.
ZUCOMN_API double ZuComn_GetGlobalScale();
/// Stores the drawing scale factor in `*scale` unless the pointer is null. Always returns 0.
ZUCOMN_API int ZuComn_GetScale(double* scale);

/// Sets the connection tolerances in drawing units, both initially 0.1: `point` applies at scales above 1.0,
/// `vector` at all other scales. A negative value leaves its tolerance unchanged.
ZUCOMN_API void ZuComn_setTolerance(double point, double vector);
/// Stores the connection tolerances in drawing units; null pointers are skipped.
ZUCOMN_API void ZuComn_getTolerance(double* point, double* vector);

/// Sets the database that the library works on; null selects the host's working database. The caller keeps
/// ownership and resets the pointer before deleting the database.
ZUCOMN_API void ZuComn_workDatabase(AcDbDatabase* database);
/// Returns the database set by ZuComn_workDatabase, else the host's working database; null without either.
ZUCOMN_API AcDbDatabase* ZuComn_getWorkDatabase();

/// Reads a custom variable of the working database. Returns 0 on success, -1 with `value` untouched when the
/// variable or the database is missing.
ZUCOMN_API int ZuComn_GetCustomVar(const wchar_t* name, CString& value);
/// Sets a custom variable of the working database and adds it if necessary. Returns 0 on success, -1 without
/// a database or when the variable cannot be stored.
ZUCOMN_API int ZuComn_SetCustomVar(const wchar_t* name, const wchar_t* value);
/// Returns the custom variable "ZUANNO" as a decimal integer; 0 when it is missing.
ZUCOMN_API int ZuComn_GetEnableAnnoScale();

// ---- messages

/// Kept for compatibility: shows no message box and returns 0.
ZUCOMN_API int ZuComn_ErrorBox(const wchar_t* text, const wchar_t* caption, UINT style);
/// Shows a message box with the stop icon that names the failed file operation and the reason. `operation` is
/// 1 for open, 2 for write, 3 for close; `cause` is a CFileException cause.
ZUCOMN_API void ZuComn_FileErrorMsg(int operation, int cause);

// ---- the windows of the running command
//
// Two records that the product's modules read; the library only sets and clears them. It does not own the
// windows: clear a record before destroying its window.

/// Stores a command text in `close_SendCommand`.
ZUCOMN_API void ZuComn_SetSendCueCommand(const CString& command);
/// Empties `close_SendCommand`.
ZUCOMN_API void ZuComn_ClearSendCueCommand();
/// Sets the first window record and empties `close_SendCommand`.
ZUCOMN_API void ZuComn_SetCurrentWindow(CWnd* window, bool hide, UINT message, UINT wParam, LPARAM lParam);
/// Sets the second window record; `close_SendCommand` is unchanged.
ZUCOMN_API void ZuComn_SetCurrentWindow2(CWnd* window, bool hide, UINT message, UINT wParam, LPARAM lParam);
/// Sets the window of the first record, and with `both` that of the second record, to null. The other members
/// are unchanged. Empties `close_SendCommand`.
ZUCOMN_API void ZuceComn_ClearCurrentWindow(bool both);
/// Applies a show command (SW_...) to the window's parent frame if that is visible. A window without a parent
/// frame, or directly below the host's main frame, is shown or hidden itself. Does nothing for a null pointer
/// or a window without a handle.
ZUCOMN_API void ZuComn_ShowWindow(CWnd* window, int command);

/// First record: the window, whether to hide it, and the message that closes it.
ZUCOMN_API extern CWnd* close_pLastWnd;
ZUCOMN_API extern bool close_bDoHide;
ZUCOMN_API extern UINT close_Msg;
ZUCOMN_API extern UINT close_wParam;
ZUCOMN_API extern LPARAM close_lParam;
/// Second record, with the same members.
ZUCOMN_API extern CWnd* close_pLastWnd2;
ZUCOMN_API extern bool close_bDoHide2;
ZUCOMN_API extern UINT close_Msg2;
ZUCOMN_API extern UINT close_wParam2;
ZUCOMN_API extern LPARAM close_lParam2;
/// Command text that is queued for the host.
ZUCOMN_API extern CString close_SendCommand;

// ---- options of the product

/// Nonzero, the default, to refresh the display when annotation scaling is switched.
ZUCOMN_API extern int gblComn_acedUpdateDisplay;
/// Option of the route network for connection heights, initially false. The library does not read it.
ZUCOMN_API extern bool gblComn_withConnectHeight;
/// Line weights of routes, ducts, equipment and extra-fine lines in hundredths of a millimetre; negative
/// values mean by layer, by block and default. Initially 0, set by ZuComn_SetIniFile.
ZUCOMN_API extern AcDb::LineWeight gblComn_lineWeight;
ZUCOMN_API extern AcDb::LineWeight gblComn_ductLineWeight;
ZUCOMN_API extern AcDb::LineWeight gblComn_kikiLineWeight;
ZUCOMN_API extern AcDb::LineWeight gblComn_SlenderLineWeight;
/// Full path of the master settings file; empty until ZuComn_SetIniFile.
ZUCOMN_API extern CString ZUCE_INIFILE;
/// Option text of the product's other modules, initially empty. The library does not read it.
ZUCOMN_API extern CString sVelmoraOptions;

// ---- layer names: part of the drawings, so language modules do not translate them

ZUCOMN_API extern CString ZUCONECT_LAYER;       ///< connection marks
ZUCOMN_API extern CString ZULENGTH_LAYER;       ///< length marks
ZUCOMN_API extern CString ZUHIDE_LAYER;         ///< hidden parts
ZUCOMN_API extern CString ZUPRIMARY_LAYER;      ///< objects kept for recovery
ZUCOMN_API extern CString STANDPIPE_LAYER;      ///< vertical (riser) routes
ZUCOMN_API extern CString ZUSHELTER_LAYER;      ///< temporary (shelter) objects
ZUCOMN_API extern CString ZUBASIS_LAYER;        ///< reference lines
ZUCOMN_API extern CString ZUSERVICESPACE_LAYER; ///< service space
ZUCOMN_API extern CString ZUSNAP_LAYER;         ///< snap points
ZUCOMN_API extern CString ZUARRANGE_LAYER;      ///< equipment origins
ZUCOMN_API extern CString ZUSUBHIDE_LAYER;      ///< secondary hidden parts
ZUCOMN_API extern CString ZUCENTERLINE_LAYER;   ///< centre lines
ZUCOMN_API extern CString ZUANNO_LAYER;         ///< wiring size notes
ZUCOMN_API extern CString ZUANNOSIZE_LAYER;     ///< route size notes
ZUCOMN_API extern CString ZUANNOFL_LAYER;       ///< height notes
ZUCOMN_API extern CString ZUANNOVARIOUS_LAYER;  ///< use (service) notes
ZUCOMN_API extern CString ZUUNDRAW_LAYER;       ///< reserved, not drawn
ZUCOMN_API extern CString ZUSLENDER_LAYER;      ///< fine lines
ZUCOMN_API extern CString ZUSLOPE_LAYER;        ///< slope marks
ZUCOMN_API extern CString ZUBOXSLOPE_LAYER;     ///< box slope marks
ZUCOMN_API extern CString ZULIGHTING_LAYER;     ///< lighting
ZUCOMN_API extern CString ZUAUXLINE_LAYER;      ///< construction lines
ZUCOMN_API extern CString ZUTABLE_TEXTLAYER;    ///< table text
ZUCOMN_API extern CString ZUTABLE_LAYER;        ///< table frames
ZUCOMN_API extern CString ZUNOTE_LAYER;         ///< legend entries
ZUCOMN_API extern CString ZUDIM_LAYER;          ///< dimension lines
ZUCOMN_API extern CString ZUDIMTEXT_LAYER;      ///< dimension text
ZUCOMN_API extern CString ZUHIDEMARK_LAYER;     ///< hide marks
ZUCOMN_API extern CString ZUMSECTION_LAYER;     ///< pit (box) sections
ZUCOMN_API extern CString ZUMAINTE_LAYER;       ///< maintenance space
ZUCOMN_API extern CString ZUOTHERS_LAYER;       ///< others
ZUCOMN_API extern CString DXF_STANDPIPE_LAYER;  ///< riser layer inside part drawings
ZUCOMN_API extern CString ZURTSIGN_LAYER;       ///< route signs
ZUCOMN_API extern CString ZUWM_1_1_LAYER;       ///< scale 1:1 marks
ZUCOMN_API extern CString ZUWM_1_200_LAYER;     ///< scale 1:200 marks
ZUCOMN_API extern CString ZUWM_1_500_LAYER;     ///< scale 1:500 marks
ZUCOMN_API extern CString ZUWM_16_1_LAYER;      ///< fine lines at 1:1
ZUCOMN_API extern CString ZUWM_16_200_LAYER;    ///< fine lines at 1:200
ZUCOMN_API extern CString ZUWM_16_500_LAYER;    ///< fine lines at 1:500
