#include "afx.h"

#include "zuhost/escaped_exception.h"
#include "zuhost/message_box.h"
#include "zuhost/system_error.h"
#include "zuhost/text_codec.h"

#include <array>
#include <exception>
#include <new>

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CSimpleException, CException)
IMPLEMENT_DYNAMIC(CMemoryException, CSimpleException)
IMPLEMENT_DYNAMIC(CNotSupportedException, CSimpleException)
IMPLEMENT_DYNAMIC(CResourceException, CSimpleException)
IMPLEMENT_DYNAMIC(CUserException, CSimpleException)
IMPLEMENT_DYNAMIC(CInvalidArgException, CSimpleException)
IMPLEMENT_DYNAMIC(CFileException, CException)

namespace {

constexpr const wchar_t* kUnknownError = L"An unknown error occurred.";

/// The reasons of CFileException by cause; they follow the file's name.
constexpr std::array<const wchar_t*, 15> kFileReasons{
    L"no error occurred",
    L"an unknown error occurred",
    L"the file was not found",
    L"the path is not valid",
    L"there are too many open files",
    L"access was denied",
    L"the file is not open",
    L"the current folder can't be removed",
    L"the folder is full",
    L"the position in the file is not valid",
    L"the device reported an error",
    L"the file is in use by another program",
    L"a part of the file is locked by another program",
    L"the disk is full",
    L"the end of the file was reached",
};

BOOL copyMessage(std::wstring_view message, wchar_t* text, UINT size, UINT* helpContext) {
    if (helpContext != nullptr)
        *helpContext = 0;
    if (text == nullptr || size == 0)
        return FALSE;
    const std::size_t count = message.copy(text, size - 1);
    text[count] = L'\0';
    return message.empty() ? FALSE : TRUE;
}

template <typename Exception>
[[noreturn]] void throwShared() {
    static Exception exception(FALSE);
    throw &exception;
}

zuhost::HandledException*& innermost() {
    thread_local zuhost::HandledException* handled = nullptr;
    return handled;
}

} // namespace

void CException::Delete() {
    if (m_bAutoDelete != FALSE)
        delete this;
}

BOOL CException::GetErrorMessage(wchar_t* text, UINT size, UINT* helpContext) const {
    return copyMessage({}, text, size, helpContext);
}

int CException::ReportError(UINT style, UINT messageId) {
    std::array<wchar_t, 512> text{};
    CString message;
    if (GetErrorMessage(text.data(), static_cast<UINT>(text.size())) != FALSE)
        message = text.data();
    else if (messageId == 0 || message.LoadString(messageId) == FALSE)
        message = kUnknownError;
    return AfxMessageBox(message, style);
}

BOOL CMemoryException::GetErrorMessage(wchar_t* text, UINT size, UINT* helpContext) const {
    return copyMessage(L"Out of memory.", text, size, helpContext);
}

BOOL CNotSupportedException::GetErrorMessage(wchar_t* text, UINT size, UINT* helpContext) const {
    return copyMessage(L"The operation is not supported.", text, size, helpContext);
}

BOOL CResourceException::GetErrorMessage(wchar_t* text, UINT size, UINT* helpContext) const {
    return copyMessage(L"A required resource is not available.", text, size, helpContext);
}

BOOL CUserException::GetErrorMessage(wchar_t* text, UINT size, UINT* helpContext) const {
    return copyMessage(L"The operation was cancelled.", text, size, helpContext);
}

BOOL CInvalidArgException::GetErrorMessage(wchar_t* text, UINT size, UINT* helpContext) const {
    return copyMessage(L"An invalid argument was encountered.", text, size, helpContext);
}

int CFileException::OsErrorToException(LONG osError) {
    return zuhost::fileExceptionCauseOfLastError(static_cast<DWORD>(osError));
}

void CFileException::ThrowOsError(LONG osError, const wchar_t* file) {
    AfxThrowFileException(OsErrorToException(osError), osError, file);
}

BOOL CFileException::GetErrorMessage(wchar_t* text, UINT size, UINT* helpContext) const {
    const bool isKnown = m_cause >= 0 && m_cause < static_cast<int>(kFileReasons.size());
    const int cause = isKnown ? m_cause : static_cast<int>(genericException);
    CString message;
    message.Format(L"%s: %s.", m_strFileName.IsEmpty() ? L"File" : m_strFileName.GetString(),
                   kFileReasons[static_cast<std::size_t>(cause)]);
    return copyMessage(message.GetString(), text, size, helpContext);
}

void AfxThrowMemoryException() {
    throwShared<CMemoryException>();
}
void AfxThrowNotSupportedException() {
    throwShared<CNotSupportedException>();
}
void AfxThrowResourceException() {
    throwShared<CResourceException>();
}
void AfxThrowUserException() {
    throwShared<CUserException>();
}
void AfxThrowInvalidArgException() {
    throwShared<CInvalidArgException>();
}
void AfxThrowFileException(int cause, LONG osError, const wchar_t* file) {
    throw new CFileException(cause, osError, file);
}

namespace zuhost {

HandledException::HandledException() : outer_(std::exchange(innermost(), this)) {}

HandledException::~HandledException() {
    if (exception_ != nullptr)
        exception_->Delete();
    innermost() = outer_;
}

void HandledException::handle(CException* exception) {
    innermost()->exception_ = exception;
}

void HandledException::release() {
    for (HandledException* handled = innermost(); handled != nullptr; handled = handled->outer_)
        if (handled->exception_ != nullptr) {
            handled->exception_ = nullptr;
            return;
        }
}

void reportFileError(CFileException* error, int systemError, const wchar_t* path) {
    SetLastError(lastErrorOf(systemError));
    if (error == nullptr)
        return;
    error->m_cause = fileExceptionCauseOf(systemError);
    error->m_lOsError = static_cast<LONG>(GetLastError());
    error->m_strFileName = path;
}

std::wstring deleteEscapedException() {
    try {
        throw;
    } catch (CException* exception) {
        std::array<wchar_t, 512> text{};
        const BOOL hasText = exception->GetErrorMessage(text.data(), static_cast<UINT>(text.size()));
        exception->Delete();
        return hasText != FALSE ? text.data() : kUnknownError;
    } catch (const std::bad_alloc&) {
        return L"Out of memory.";
    } catch (const std::exception& exception) {
        return *exception.what() != '\0' ? fromUtf8(exception.what()) : kUnknownError;
    } catch (...) {
        return kUnknownError;
    }
}

} // namespace zuhost
