#pragma once

#include <zuhost/platform/export.h>

// The framework's exceptions: thrown by pointer, caught by pointer, and deleted by the handler with Delete.
// Included by afx.h.

/// Root of the framework's exceptions.
class ZUHOST_API CException : public CObject {
    DECLARE_DYNAMIC(CException)

public:
    /// An exception created with new; Delete frees it.
    CException() = default;
    /// `autoDelete` is whether Delete frees the exception: FALSE for one that is not created with new.
    explicit CException(BOOL autoDelete) : m_bAutoDelete(autoDelete) {}

    /// Frees the exception if it was created with new. Called by the handler that does not throw it again.
    void Delete();

    /// Copies the exception's text, truncated to `size` characters with the final zero, and sets the help
    /// context to 0. FALSE with an empty text when there is none or no buffer.
    virtual BOOL GetErrorMessage(wchar_t* text, UINT size, UINT* helpContext = nullptr) const;

    /// Shows the exception's text in a message box and returns the button chosen. Without a text, shows the
    /// string resource `messageId`, or a general text without that.
    virtual int ReportError(UINT style = MB_OK, UINT messageId = 0);

protected:
    BOOL m_bAutoDelete = TRUE;
};

/// Root of the exceptions with a fixed text. AfxThrow functions throw one object per class, which Delete
/// leaves alone.
class ZUHOST_API CSimpleException : public CException {
    DECLARE_DYNAMIC(CSimpleException)

public:
    using CException::CException;
};

/// Not enough memory.
class ZUHOST_API CMemoryException : public CSimpleException {
    DECLARE_DYNAMIC(CMemoryException)

public:
    using CSimpleException::CSimpleException;
    BOOL GetErrorMessage(wchar_t* text, UINT size, UINT* helpContext = nullptr) const override;
};

/// A feature that is not supported.
class ZUHOST_API CNotSupportedException : public CSimpleException {
    DECLARE_DYNAMIC(CNotSupportedException)

public:
    using CSimpleException::CSimpleException;
    BOOL GetErrorMessage(wchar_t* text, UINT size, UINT* helpContext = nullptr) const override;
};

/// A resource that does not exist.
class ZUHOST_API CResourceException : public CSimpleException {
    DECLARE_DYNAMIC(CResourceException)

public:
    using CSimpleException::CSimpleException;
    BOOL GetErrorMessage(wchar_t* text, UINT size, UINT* helpContext = nullptr) const override;
};

/// An operation ended by the program after the user was informed.
class ZUHOST_API CUserException : public CSimpleException {
    DECLARE_DYNAMIC(CUserException)

public:
    using CSimpleException::CSimpleException;
    BOOL GetErrorMessage(wchar_t* text, UINT size, UINT* helpContext = nullptr) const override;
};

/// An argument out of range, such as an index beyond an array's end.
class ZUHOST_API CInvalidArgException : public CSimpleException {
    DECLARE_DYNAMIC(CInvalidArgException)

public:
    using CSimpleException::CSimpleException;
    BOOL GetErrorMessage(wchar_t* text, UINT size, UINT* helpContext = nullptr) const override;
};

/// A failed file operation; `m_cause` is the reason as one of the framework's numbers.
class ZUHOST_API CFileException : public CException {
    DECLARE_DYNAMIC(CFileException)

public:
    enum Cause : int {
        none = 0,
        genericException = 1,
        fileNotFound = 2,
        badPath = 3,
        tooManyOpenFiles = 4,
        accessDenied = 5,
        invalidFile = 6,
        removeCurrentDir = 7,
        directoryFull = 8,
        badSeek = 9,
        hardIO = 10,
        sharingViolation = 11,
        lockViolation = 12,
        diskFull = 13,
        endOfFile = 14
    };

    explicit CFileException(int cause = none, LONG osError = -1, const wchar_t* file = nullptr)
        : m_cause(cause), m_lOsError(osError), m_strFileName(file) {}

    /// Returns the cause for an error number of GetLastError.
    [[nodiscard]] static int OsErrorToException(LONG osError);
    /// Throws the exception for an error number of GetLastError.
    [[noreturn]] static void ThrowOsError(LONG osError, const wchar_t* file = nullptr);

    BOOL GetErrorMessage(wchar_t* text, UINT size, UINT* helpContext = nullptr) const override;

    int m_cause;
    LONG m_lOsError; ///< As of GetLastError; -1 when unknown.
    CString m_strFileName;
};

[[noreturn]] ZUHOST_API void AfxThrowMemoryException();
[[noreturn]] ZUHOST_API void AfxThrowNotSupportedException();
[[noreturn]] ZUHOST_API void AfxThrowResourceException();
[[noreturn]] ZUHOST_API void AfxThrowUserException();
[[noreturn]] ZUHOST_API void AfxThrowInvalidArgException();
[[noreturn]] ZUHOST_API void AfxThrowFileException(int cause, LONG osError = -1,
                                                   const wchar_t* file = nullptr);

namespace zuhost {

/// The exception that a block of TRY and CATCH handles; deletes it at the end of the block unless
/// THROW_LAST throws it again.
class ZUHOST_API HandledException {
public:
    HandledException();
    ~HandledException();
    HandledException(const HandledException&) = delete;
    HandledException& operator=(const HandledException&) = delete;

    /// Called by the handlers of the innermost block.
    static void handle(CException* exception);
    /// Leaves the exception that this thread is handling to the next handler.
    static void release();

private:
    CException* exception_ = nullptr;
    HandledException* outer_;
};

} // namespace zuhost

#define ZU_JOINED_NAME(name, line) name##line
#define ZU_NAME_OF_LINE(name, line) ZU_JOINED_NAME(name, line)

// The handlers below delete the exception at the end of the block.

#define TRY                                                                                                  \
    {                                                                                                        \
        const zuhost::HandledException ZU_NAME_OF_LINE(zuHandled, __LINE__);                                 \
        try {

// NOLINTBEGIN(bugprone-macro-parentheses): declarations.
#define CATCH(class_name, name)                                                                              \
    }                                                                                                        \
    catch (class_name * name) {                                                                              \
        zuhost::HandledException::handle(name);
// NOLINTEND(bugprone-macro-parentheses)

#define AND_CATCH(class_name, name) CATCH(class_name, name)

#define END_CATCH                                                                                            \
    }                                                                                                        \
    }

#define CATCH_ALL(name) CATCH(CException, name)
#define AND_CATCH_ALL(name) CATCH(CException, name)
#define END_CATCH_ALL END_CATCH

/// Ends a TRY block without handlers; ignores every exception of the framework.
#define END_TRY                                                                                              \
    CATCH(CException, zuIgnored)                                                                             \
    END_CATCH

#define THROW(exception) throw(exception)
#define THROW_LAST() (zuhost::HandledException::release(), throw)
