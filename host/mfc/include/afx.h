#pragma once

#include "afxstr.h"
#include "atlconv.h"
#include "atltime.h"
#include "tchar.h"
#include <windows.h>
#include <zuhost/platform/export.h>

#include <memory>

namespace zuhost {
class LineBlock;
}

// Checks of modules, as the platform's release form has them: only VERIFY evaluates its condition.

#define ASSERT(condition) static_cast<void>(sizeof((condition) ? 1 : 0))
#define VERIFY(condition) static_cast<void>(condition)
#define TRACE(...) static_cast<void>(0)
#define TRACE0(text) TRACE(text)
#define TRACE1(format, a) TRACE(format, a)
#define TRACE2(format, a, b) TRACE(format, a, b)
#define TRACE3(format, a, b, c) TRACE(format, a, b, c)
#define ASSERT_VALID(object) ASSERT((object) != nullptr)
#define ASSERT_KINDOF(class_name, object) ASSERT((object)->IsKindOf(RUNTIME_CLASS(class_name)))
#define ASSERT_POINTER(pointer, type) ASSERT((pointer) != nullptr)
/// Throws the invalid-argument exception unless the condition is true.
#define ENSURE(condition) ((condition) ? static_cast<void>(0) : AfxThrowInvalidArgException())
#define ENSURE_ARG(condition) ENSURE(condition)
#define UNREFERENCED_PARAMETER(parameter) static_cast<void>(parameter)
#define DEBUG_NEW new

/// Marks a handler of a message map, and classes and data that a module exports.
#define afx_msg
#define AFX_EXT_CLASS ZUHOST_EXPORTED
#define AFX_EXT_DATA ZUHOST_EXPORTED
#define AFX_EXT_API ZUHOST_EXPORTED
#define AFXAPI

class CObject;

/// Run-time description of a class of the framework; see RUNTIME_CLASS.
struct ZUHOST_API CRuntimeClass {
    const char* m_lpszClassName;
    CObject* (*m_pfnCreateObject)();
    const CRuntimeClass* m_pBaseClass;

    /// Returns a new object, owned by the caller; null when the class cannot be created dynamically.
    [[nodiscard]] CObject* CreateObject() const {
        return m_pfnCreateObject != nullptr ? m_pfnCreateObject() : nullptr;
    }
    [[nodiscard]] bool IsDerivedFrom(const CRuntimeClass* base) const;
};

/// Root of the framework's classes.
class ZUHOST_API CObject {
public:
    static const CRuntimeClass classCObject;

    virtual ~CObject() = default;
    [[nodiscard]] virtual const CRuntimeClass* GetRuntimeClass() const { return &classCObject; }
    [[nodiscard]] BOOL IsKindOf(const CRuntimeClass* base) const {
        return GetRuntimeClass()->IsDerivedFrom(base) ? TRUE : FALSE;
    }

protected:
    CObject() = default;
    CObject(const CObject&) = default;
    CObject& operator=(const CObject&) = default;
};

#define RUNTIME_CLASS(class_name) (&class_name::class##class_name)

#define DECLARE_DYNAMIC(class_name)                                                                          \
public:                                                                                                      \
    static const CRuntimeClass class##class_name;                                                            \
    const CRuntimeClass* GetRuntimeClass() const override {                                                  \
        return &class##class_name;                                                                           \
    }

#define IMPLEMENT_DYNAMIC(class_name, base_class_name)                                                       \
    const CRuntimeClass class_name::class##class_name = {#class_name, nullptr,                               \
                                                         RUNTIME_CLASS(base_class_name)};

#define DECLARE_DYNCREATE(class_name)                                                                        \
    DECLARE_DYNAMIC(class_name)                                                                              \
    static CObject* CreateObject();

#define IMPLEMENT_DYNCREATE(class_name, base_class_name)                                                     \
    CObject* class_name::CreateObject() {                                                                    \
        return new class_name;                                                                               \
    }                                                                                                        \
    const CRuntimeClass class_name::class##class_name = {#class_name, &class_name::CreateObject,             \
                                                         RUNTIME_CLASS(base_class_name)};

#include "afxexcept_.h"

/// What the system knows about a file; see CFile::GetStatus.
struct CFileStatus {
    CTime
        m_ctime; ///< The time of the last change, as the last access: systems do not always keep the others.
    CTime m_mtime;
    CTime m_atime;
    ULONGLONG m_size = 0;
    BYTE m_attribute = 0; ///< As CFile::Attribute.
    wchar_t m_szFullName[MAX_PATH] = {};
};

// An attribute of files has the name of a C function.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wshadow"
/// A file of bytes.
///
/// A created file (modeCreate without modeNoTruncate) is written to a temporary file, which Close moves to
/// the path: a failed or interrupted write leaves the old file intact. It is written from start to end,
/// without seeking. Paths may contain "\\" or "/"; their case is ignored.
class ZUHOST_API CFile : public CObject {
public:
    enum OpenFlags : UINT {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeReadWrite = 0x0002,
        shareCompat = 0x0000,
        shareExclusive = 0x0010,
        shareDenyWrite = 0x0020,
        shareDenyRead = 0x0030,
        shareDenyNone = 0x0040,
        modeNoInherit = 0x0080,
        modeCreate = 0x1000,
        modeNoTruncate = 0x2000,
        typeText = 0x4000,
        typeBinary = 0x8000
    };
    enum SeekPosition : UINT { begin = 0, current = 1, end = 2 };
    enum Attribute : BYTE {
        normal = 0x00,
        readOnly = 0x01,
        hidden = 0x02,
        system = 0x04,
        volume = 0x08,
        directory = 0x10,
        archive = 0x20
    };

    CFile();
    /// Throws CFileException when the file cannot be opened.
    CFile(const wchar_t* path, UINT flags);
    ~CFile() override;
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;

    /// Returns FALSE when the file cannot be opened, and stores the reason in `error` if it is not null.
    virtual BOOL Open(const wchar_t* path, UINT flags, CFileException* error = nullptr);

    /// Returns the number of bytes read, fewer than `count` at the end of the file. Throws CFileException.
    UINT Read(void* buffer, UINT count);
    /// Throws CFileException.
    void Write(const void* buffer, UINT count);
    /// Returns the new position. Throws CFileException.
    virtual ULONGLONG Seek(std::int64_t offset, UINT from);
    ULONGLONG SeekToEnd() { return Seek(0, end); }
    void SeekToBegin() { Seek(0, begin); }
    [[nodiscard]] ULONGLONG GetLength();
    [[nodiscard]] ULONGLONG GetPosition();
    [[nodiscard]] CString GetFilePath() const { return path_; }
    [[nodiscard]] virtual CString GetFileName() const;
    /// Returns the name without its extension.
    [[nodiscard]] virtual CString GetFileTitle() const;
    /// FALSE, with the status unchanged, when there is no such file. A file being created has the status of
    /// the one that it replaces.
    BOOL GetStatus(CFileStatus& status) const;
    static BOOL GetStatus(const wchar_t* path, CFileStatus& status);

    /// Moves a created file to its path. Throws CFileException when something could not be written; the old
    /// file is then unchanged.
    virtual void Close();
    /// Closes without throwing; discards a file being created.
    virtual void Abort();

    /// Each throws CFileException.
    static void Remove(const wchar_t* path);
    static void Rename(const wchar_t* from, const wchar_t* to);

protected:
    /// Throws the file exception for an error number of the system; discards a file being created.
    [[noreturn]] void fail(int systemError);

private:
    struct Handle;
    std::unique_ptr<Handle> handle_;
    CString path_;
};
#pragma GCC diagnostic pop

/// Finds the files of a folder by a mask with "*" and "?", ordered by name.
class ZUHOST_API CFileFind : public CObject {
public:
    CFileFind() = default;
    ~CFileFind() override;
    CFileFind(const CFileFind&) = delete;
    CFileFind& operator=(const CFileFind&) = delete;

    /// Starts a search; null finds all files of the current folder. FALSE when there is none.
    virtual BOOL FindFile(const wchar_t* mask = nullptr, DWORD unused = 0);
    /// Goes to the first or the next file; returns whether there are more after it.
    virtual BOOL FindNextFile();
    void Close();

    // What follows is empty before the first call of FindNextFile.

    [[nodiscard]] virtual CString GetFileName() const;
    /// Returns the name without its extension.
    [[nodiscard]] virtual CString GetFileTitle() const;
    [[nodiscard]] virtual CString GetFilePath() const;
    /// Returns the folder with a final separator.
    [[nodiscard]] CString GetRoot() const;
    [[nodiscard]] ULONGLONG GetLength() const;
    [[nodiscard]] virtual BOOL MatchesMask(DWORD attributes) const;
    /// Returns whether the file is "." or "..".
    [[nodiscard]] virtual BOOL IsDots() const;
    [[nodiscard]] BOOL IsDirectory() const { return MatchesMask(FILE_ATTRIBUTE_DIRECTORY); }
    [[nodiscard]] BOOL IsReadOnly() const { return MatchesMask(FILE_ATTRIBUTE_READONLY); }
    [[nodiscard]] BOOL IsHidden() const { return MatchesMask(FILE_ATTRIBUTE_HIDDEN); }
    virtual BOOL GetLastWriteTime(CTime& time) const;

private:
    [[nodiscard]] const WIN32_FIND_DATAW& current() const;

    HANDLE search_ = INVALID_HANDLE_VALUE;
    WIN32_FIND_DATAW current_;
    WIN32_FIND_DATAW next_;
    bool hasCurrent_ = false;
    bool hasNext_ = false;
    CString root_; ///< The folder without a final separator.
};

/// A file of lines of text.
///
/// Reads Japanese code page 932, or UTF-8 or UTF-16 LE with a byte-order mark; a line ends in LF or CR LF,
/// the text at the first Ctrl-Z. Writes in the encoding of the file it replaces (932 for a new file), LF as
/// CR LF. A character that the encoding cannot represent is an error (CFileException, cause genericException)
/// and is never replaced.
class ZUHOST_API CStdioFile : public CFile {
public:
    CStdioFile();
    /// Throws CFileException when the file cannot be opened.
    CStdioFile(const wchar_t* path, UINT flags);
    ~CStdioFile() override;

    BOOL Open(const wchar_t* path, UINT flags, CFileException* error = nullptr) override;

    /// Lines are read from the new position on. The current position is after the bytes read ahead.
    ULONGLONG Seek(std::int64_t offset, UINT from) override;

    /// Reads the next line, without its line end; returns FALSE at the end of the file. Throws CFileException
    /// for a failed read or a line of more than 16 MiB (2^24 bytes). Read does not return bytes read ahead.
    BOOL ReadString(CString& line);
    /// Reads up to `count` - 1 characters of the line into the buffer, with "\\n" at its end, and returns the
    /// buffer; the next call goes on from there. Null at the end of the file. Throws like the above.
    wchar_t* ReadString(wchar_t* buffer, UINT count);
    /// Throws CFileException.
    void WriteString(const wchar_t* text);

private:
    friend class zuhost::LineBlock;
    struct Text;

    bool nextLines(zuhost::LineBlock& block, std::size_t size);
    void readLinesFrom(ULONGLONG position);

    std::unique_ptr<Text> text_;
};

/// Copies the piece at an index (from 0) of a text that a character separates. FALSE with an empty piece when
/// there are fewer pieces.
ZUHOST_API BOOL AfxExtractSubString(CString& piece, const wchar_t* text, int index,
                                    wchar_t separator = L'\n');

/// Replace "%1" and "%2" (up to "%9") in a format, or in a string resource.
ZUHOST_API void AfxFormatString1(CString& result, const wchar_t* format, const wchar_t* first);
ZUHOST_API void AfxFormatString1(CString& result, UINT id, const wchar_t* first);
ZUHOST_API void AfxFormatString2(CString& result, const wchar_t* format, const wchar_t* first,
                                 const wchar_t* second);
ZUHOST_API void AfxFormatString2(CString& result, UINT id, const wchar_t* first, const wchar_t* second);
ZUHOST_API void AfxFormatStrings(CString& result, const wchar_t* format, const wchar_t* const* texts,
                                 int count);
ZUHOST_API void AfxFormatStrings(CString& result, UINT id, const wchar_t* const* texts, int count);
