#include <zucomn/frame.h>

#include "library_text.h"
#include "resource_ids.h"

#include <afxwin.h>

namespace {

constexpr int kFirstCause = CFileException::fileNotFound;
constexpr int kLastCause = CFileException::endOfFile;

CString reasonText(int cause) {
    const bool known = cause >= kFirstCause && cause <= kLastCause;
    return zu::libraryText(zu::text::kFileReason + (known ? static_cast<UINT>(cause) : 0));
}

CString operationText(int operation) {
    return operation >= 1 && operation <= 3
               ? zu::libraryText(zu::text::kFileOperation + static_cast<UINT>(operation))
               : CString();
}

} // namespace

int ZuComn_ErrorBox(const wchar_t* /*text*/, const wchar_t* /*caption*/, UINT /*style*/) {
    return 0;
}

void ZuComn_FileErrorMsg(int operation, int cause) {
    CString message;
    message.Format(zu::libraryText(zu::text::kFileFailed), operationText(operation), reasonText(cause));
    AfxMessageBox(message, MB_OK | MB_ICONSTOP);
}
