#pragma once

#include <windows.h>

// Included by afxwin.h.

/// As MessageBoxW, with the application's title as caption.
int AfxMessageBox(const wchar_t* text, UINT style = MB_OK, UINT helpId = 0);
