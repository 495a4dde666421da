#pragma once

#include "afxstr.h"
#include "windows.h"

#include <memory>

namespace zuhost {
class TextBlock;
}

class CObject;

/// Run-time description of a class of the framework; see RUNTIME_CLASS.
struct CRuntimeClass {
    const char* m_lpszClassName;
    CObject* (*m_pfnCreateObject)();
    const CRuntimeClass* m_pBaseClass;

    /// A new object, owned by the caller; null when the class can't be created dynamically.
    [[nodiscard]] CObject* CreateObject() const {
        return m_pfnCreateObject != nullptr ? m_pfnCreateObject() : nullptr;
    }
    [[nodiscard]] bool IsDerivedFrom(const CRuntimeClass* base) const;
};

/// Root of the framework's classes.
class CObject {
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

/// Root of the framework's exceptions; thrown by value, caught by reference.
class CException : public CObject {
public:
    [[nodiscard]] virtual CString GetErrorText() const { return {}; }
};

/// An argument out of range, such as an index beyond an array's end.
class CInvalidArgException : public CException {
public:
    [[nodiscard]] CString GetErrorText() const override { return L"An invalid argument was encountered."; }
};

/// An operation of a file failed; `m_cause` says why in the framework's own numbers.
class CFileException : public CException {
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

    explicit CFileException(int cause = none, LONG osError = 0, const wchar_t* file = nullptr)
        : m_cause(cause), m_lOsError(osError), m_strFileName(file) {}

    int m_cause;
    LONG m_lOsError;
    CString m_strFileName;
};

/// A file as bytes.
///
/// A file that is created (modeCreate without modeNoTruncate) is written beside its place and put there by
/// Close as a whole, so that a failed or interrupted write leaves the old file; it is written from start to
/// end, without seeking. Paths may hold "\\" or "/" and are found whatever their case.
class CFile : public CObject {
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

    CFile();
    /// Throws CFileException when the file can't be opened.
    CFile(const wchar_t* path, UINT flags);
    ~CFile() override;
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;

    /// FALSE when the file can't be opened; the reason goes to `error` when one is given.
    virtual BOOL Open(const wchar_t* path, UINT flags, CFileException* error = nullptr);

    /// Bytes read, fewer than asked at the end of the file. Throws CFileException.
    UINT Read(void* buffer, UINT count);
    /// Throws CFileException.
    void Write(const void* buffer, UINT count);
    /// The new position. Throws CFileException.
    virtual ULONGLONG Seek(std::int64_t offset, UINT from);
    ULONGLONG SeekToEnd() { return Seek(0, end); }
    void SeekToBegin() { Seek(0, begin); }
    [[nodiscard]] ULONGLONG GetLength();
    [[nodiscard]] ULONGLONG GetPosition();
    [[nodiscard]] CString GetFilePath() const { return path_; }

    /// Puts a created file in place. Throws CFileException when something could not be written; the old file
    /// is then as it was.
    virtual void Close();
    /// Closes without an exception; a file being created is given up.
    virtual void Abort();

    /// Each throws CFileException.
    static void Remove(const wchar_t* path);
    static void Rename(const wchar_t* from, const wchar_t* to);

protected:
    /// Throws the file exception for an error number of the system; a file being created is given up.
    [[noreturn]] void fail(int systemError);

private:
    struct Handle;
    std::unique_ptr<Handle> handle_;
    CString path_;
};

/// Some of a text file's lines. It does not need the file, so that blocks may be read at the same time, each
/// by one thread.
class CTextBlock {
public:
    CTextBlock();
    CTextBlock(CTextBlock&& other) noexcept;
    CTextBlock& operator=(CTextBlock&& other) noexcept;
    ~CTextBlock();

    /// As CStdioFile::ReadString; FALSE behind the last line.
    BOOL ReadString(CString& line);
    /// The file is known to end with this block.
    [[nodiscard]] BOOL IsLast() const;

private:
    friend class CStdioFile;

    std::unique_ptr<zuhost::TextBlock> lines_;
};

/// A file as lines of text.
///
/// Read: Japanese code page 932 unless a byte-order mark says UTF-8 or UTF-16 LE; a line ends at LF or CR LF,
/// the text at the first Ctrl-Z. Written: in the encoding of the file that is replaced (932 for a new one),
/// LF as CR LF. A character that the encoding can't hold is a failure (CFileException, cause
/// genericException), never replaced.
class CStdioFile : public CFile {
public:
    CStdioFile();
    /// Throws CFileException when the file can't be opened.
    CStdioFile(const wchar_t* path, UINT flags);
    ~CStdioFile() override;

    BOOL Open(const wchar_t* path, UINT flags, CFileException* error = nullptr) override;

    /// The next line is read from the new position on; what was read ahead of lines counts as read.
    ULONGLONG Seek(std::int64_t offset, UINT from) override;

    /// The next line without its line end; FALSE at the end of the file. A line of more than 16 MiB (2^24
    /// bytes) throws CFileException, as does a failed read. Bytes read ahead are not seen by Read.
    BOOL ReadString(CString& line);
    /// The next lines, about `size` bytes of them, to be read from the block; FALSE at the end of the file.
    /// Throws like ReadString.
    BOOL ReadBlock(CTextBlock& block, UINT size);
    /// Throws CFileException.
    void WriteString(const wchar_t* text);

private:
    struct Text;

    BOOL nextLines(CTextBlock& block, std::size_t size);
    void readLinesFrom(ULONGLONG position);

    std::unique_ptr<Text> text_;
};

[[noreturn]] void AfxThrowInvalidArgException();
[[noreturn]] void AfxThrowFileException(int cause, LONG osError = 0, const wchar_t* file = nullptr);
