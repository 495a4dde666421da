#pragma once

#include "zuhost/command_line.h"

#include <afxstr.h>

/// Prints on the host's command line (zuhost/command_line.h). The arguments are checked against the format as
/// in CString::Format. Returns the number of characters printed.
template <typename... Arguments>
int acutPrintf(const wchar_t* format, const Arguments&... arguments) {
    CString text;
    text.Format(format, arguments...);
    zuhost::printToCommandLine(text.view());
    return text.GetLength();
}
