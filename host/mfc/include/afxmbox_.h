#pragma once

#include <windows.h>
#include <zuhost/platform/export.h>

// Included by afxwin.h.

/// As MessageBoxW, with the application's title as caption.
ZUHOST_API int AfxMessageBox(const wchar_t* text, UINT style = MB_OK, UINT helpId = 0);
