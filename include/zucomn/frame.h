#pragma once

#include "export.h"

#include <acdb.h>
#include <afx.h>

class AcDbDatabase;
class CWnd;

// The library's frame: its language module, the state that the product's modules share, messages.
//
// The state is process-wide, has no lock and is used on the host's main thread only. Until ZuComn_SetResource
// runs, layer names have their built-in defaults and texts come from the library itself (Japanese).

// ---- texts

/// Chooses the language module by the user's language, loads it from the folder named by the decimal language
/// id beside the library, and reloads the layer names from it. For Japanese, or no language, the library's
/// own texts are used. When the module can't be loaded, the command line shows its path and the library's own
/// texts are used. The module is freed when the library is unloaded; layer names keep their texts.
///
/// On this host a language module is a UTF-8 file "1033/ZuComn.strings" of lines `id = "text"`. What it lacks
/// or has empty the library takes from its own texts: names of layers, and of sections and keys of settings,
/// need not be in it.
ZUCOMN_API void ZuComn_SetResource();

/// Loads a text of a module (null: the library itself), and of no other. The text is emptied first. Nonzero
/// when there is such a text.
ZUCOMN_API int ZuComn_LoadString(HINSTANCE module, UINT id, CString& text);
/// The same into a buffer of `length` characters, with the handle exactly as given: null is the program. The
/// characters loaded, without the NUL; what does not fit is cut off.
ZUCOMN_API int ZuComn_LoadString(HINSTANCE module, UINT id, wchar_t* buffer, int length);

/// The module that texts come from: the language module; the library itself when none is loaded.
ZUCOMN_API HINSTANCE ZuComn_GetResource();
/// Returns the id of the user's language as ZuComn_SetResource found it; 0 before, or when it is unknown.
ZUCOMN_API LANGID ZuComn_GetResourceLanguage();

// ---- drawing scale, tolerances, database

/// Sets the drawing scale factor (1.0 at start). Any value is taken.
ZUCOMN_API void ZuComn_SetScale(double scale);
ZUCOMN_API double ZuComn_GetGlobalScale();
/// Writes the scale if the pointer is not null. Always 0.
ZUCOMN_API int ZuComn_GetScale(double* scale);

/// Sets the two connection tolerances in drawing units (both 0.1 at start): the first for scales above 1.0,
/// the second for others. A negative value leaves its tolerance as it is.
ZUCOMN_API void ZuComn_setTolerance(double point, double vector);
/// Writes each tolerance whose pointer is not null.
ZUCOMN_API void ZuComn_getTolerance(double* point, double* vector);

/// Sets the database that the library works on; null for the host's working database. The caller keeps it.
ZUCOMN_API void ZuComn_workDatabase(AcDbDatabase* database);
/// The database set, else the host's working database; null when there is neither.
ZUCOMN_API AcDbDatabase* ZuComn_getWorkDatabase();

/// Value of a custom variable of the working database. 0, or -1 with the text untouched when there is none.
ZUCOMN_API int ZuComn_GetCustomVar(const wchar_t* name, CString& value);
/// Sets a custom variable of the working database, adding it where needed. 0, or -1 without a database.
ZUCOMN_API int ZuComn_SetCustomVar(const wchar_t* name, const wchar_t* value);
/// The decimal value of the custom variable "ZUANNO"; 0 when it is missing.
ZUCOMN_API int ZuComn_GetEnableAnnoScale();

// ---- messages

/// Does nothing and returns 0: no box appears.
ZUCOMN_API int ZuComn_ErrorBox(const wchar_t* text, const wchar_t* caption, UINT style);
/// Shows in a box with the stop icon why a file operation failed. Operation: 1 open, 2 write, 3
/// close; cause: a CFileException cause.
ZUCOMN_API void ZuComn_FileErrorMsg(int operation, int cause);

// ---- the window that a command uses
//
// The product's modules read the records; the library only fills and clears them. It does not own the
// windows: clear the record before destroying a window.

/// Stores the text in `close_SendCommand`.
ZUCOMN_API void ZuComn_SetSendCueCommand(const CString& command);
/// Empties `close_SendCommand`.
ZUCOMN_API void ZuComn_ClearSendCueCommand();
/// Fills the first window record and empties `close_SendCommand`.
ZUCOMN_API void ZuComn_SetCurrentWindow(CWnd* window, bool hide, UINT message, UINT wParam, LPARAM lParam);
/// Fills the second window record; `close_SendCommand` stays as it is.
ZUCOMN_API void ZuComn_SetCurrentWindow2(CWnd* window, bool hide, UINT message, UINT wParam, LPARAM lParam);
/// Clears the first record's window, with `both` the second's too, and empties `close_SendCommand`.
ZUCOMN_API void ZuceComn_ClearCurrentWindow(bool both);
/// Applies the show command to the window's parent frame (to the window itself under the host's main frame or
/// none), if that is visible. Nothing for null or a window without a handle.
ZUCOMN_API void ZuComn_ShowWindow(CWnd* window, int command);

/// The first record: the window, whether it is to be hidden, and the message that closes it.
ZUCOMN_API extern CWnd* close_pLastWnd;
ZUCOMN_API extern bool close_bDoHide;
ZUCOMN_API extern UINT close_Msg;
ZUCOMN_API extern UINT close_wParam;
ZUCOMN_API extern LPARAM close_lParam;
/// The second record, for another window.
ZUCOMN_API extern CWnd* close_pLastWnd2;
ZUCOMN_API extern bool close_bDoHide2;
ZUCOMN_API extern UINT close_Msg2;
ZUCOMN_API extern UINT close_wParam2;
ZUCOMN_API extern LPARAM close_lParam2;
/// A command text queued for the host.
ZUCOMN_API extern CString close_SendCommand;

// ---- options of the product

/// Nonzero: switching annotation scaling refreshes the display.
ZUCOMN_API extern int gblComn_acedUpdateDisplay;
/// Option of the route network.
ZUCOMN_API extern bool gblComn_withConnectHeight;
/// Line weights of routes, ducts, equipment and extra-fine lines in hundredths of a millimetre (negative: by
/// layer, by block, default), set by ZuComn_SetIniFile; 0 at start.
ZUCOMN_API extern AcDb::LineWeight gblComn_lineWeight;
ZUCOMN_API extern AcDb::LineWeight gblComn_ductLineWeight;
ZUCOMN_API extern AcDb::LineWeight gblComn_kikiLineWeight;
ZUCOMN_API extern AcDb::LineWeight gblComn_SlenderLineWeight;
/// Full path of the master settings file; empty until ZuComn_SetIniFile.
ZUCOMN_API extern CString ZUCE_INIFILE;
/// Kept for the product's other modules.
ZUCOMN_API extern CString sVelmoraOptions;

// ---- layer names: part of the drawings, whatever the user's language

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
