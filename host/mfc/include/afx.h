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

    /// Returns a new object, owned by the caller; null when the class cannot be created dynamically.
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

#include "afxexcept_.h"

/// A file of bytes.
///
/// A created file (modeCreate without modeNoTruncate) is written to a temporary file, which Close moves to
/// the path: a failed or interrupted write leaves the old file intact. It is written from start to end,
/// without seeking. Paths may contain "\\" or "/"; their case is ignored.
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

/// Some of a text file's lines. Independent of the file, so that blocks may be processed concurrently, each
/// by one thread.
class CTextBlock {
public:
    CTextBlock();
    CTextBlock(CTextBlock&& other) noexcept;
    CTextBlock& operator=(CTextBlock&& other) noexcept;
    ~CTextBlock();

    /// Like CStdioFile::ReadString; returns FALSE after the last line.
    BOOL ReadString(CString& line);
    /// Returns whether the file is known to end with this block.
    [[nodiscard]] BOOL IsLast() const;

private:
    friend class CStdioFile;

    std::unique_ptr<zuhost::TextBlock> lines_;
};

/// A file of lines of text.
///
/// Reads Japanese code page 932, or UTF-8 or UTF-16 LE with a byte-order mark; a line ends in LF or CR LF,
/// the text at the first Ctrl-Z. Writes in the encoding of the file it replaces (932 for a new file), LF as
/// CR LF. A character that the encoding cannot represent is an error (CFileException, cause genericException)
/// and is never replaced.
class CStdioFile : public CFile {
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
    /// Reads the next lines, about `size` bytes, into the block; returns FALSE at the end of the file. Throws
    /// like ReadString.
    BOOL ReadBlock(CTextBlock& block, UINT size);
    /// Throws CFileException.
    void WriteString(const wchar_t* text);

private:
    struct Text;

    BOOL nextLines(CTextBlock& block, std::size_t size);
    void readLinesFrom(ULONGLONG position);

    std::unique_ptr<Text> text_;
};
