#include "afx.h"

#include "zuhost/atomic_file.h"
#include "zuhost/line_block.h"
#include "zuhost/paths.h"
#include "zuhost/system_error.h"
#include "zuhost/text_file.h"

#include <algorithm>
#include <cerrno>
#include <limits>
#include <stdexcept>

using zuhost::LineBlock;
using zuhost::TextBlock;
using zuhost::TextBlocks;
using zuhost::TextEncoding;

struct CStdioFile::Text {
    TextEncoding encoding;
    std::optional<TextBlocks> blocks;
    LineBlock block; ///< The block being read.
    CString rest;    ///< Of a line that did not fit into a buffer.
    bool markWritten = false;
};

namespace {

/// Detects the encoding of an existing file; returns 0 or the system's error number.
int findEncoding(const std::string& path, TextEncoding& encoding) {
    zuhost::file_ops::File file;
    int error = file.open(path, zuhost::file_ops::File::Mode::read);
    if (error == ENOENT || error == ENOTDIR)
        return 0;
    char start[3] = {};
    std::size_t count = 0;
    if (error == 0)
        error = file.read(start, sizeof start, count);
    if (error == 0)
        encoding = TextEncoding::of({start, count});
    return error;
}

std::wstring withCarriageReturns(std::wstring_view text) {
    std::wstring result;
    for (const wchar_t c : text) {
        if (c == L'\n')
            result += L'\r';
        result += c;
    }
    return result;
}

} // namespace

LineBlock::LineBlock() = default;
LineBlock::LineBlock(LineBlock&& other) noexcept = default;
LineBlock& LineBlock::operator=(LineBlock&& other) noexcept = default;
LineBlock::~LineBlock() = default;

bool LineBlock::readLine(CString& line) {
    const auto bytes = lines_ != nullptr ? lines_->next() : std::nullopt;
    if (!bytes)
        return false;
    wchar_t* const buffer = line.GetBuffer(static_cast<int>(bytes->size()));
    line.ReleaseBuffer(static_cast<int>(lines_->encoding().decode(*bytes, buffer)));
    return true;
}

bool LineBlock::isLast() const {
    return lines_ != nullptr && lines_->isLast();
}

CStdioFile::CStdioFile() = default;

CStdioFile::CStdioFile(const wchar_t* path, UINT flags) {
    CFileException error;
    if (!CStdioFile::Open(path, flags, &error))
        AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
}

CStdioFile::~CStdioFile() = default;

BOOL CStdioFile::Open(const wchar_t* path, UINT flags, CFileException* error) {
    auto text = std::make_unique<Text>();
    const bool writes = path != nullptr && (flags & (modeWrite | modeReadWrite)) != 0;
    if (const int failure = writes ? findEncoding(zuhost::systemPath(path), text->encoding) : 0) {
        zuhost::reportFileError(error, failure, path);
        return FALSE;
    }
    if (!CFile::Open(path, flags, error))
        return FALSE;
    text->markWritten = (flags & modeCreate) == 0 || (flags & modeNoTruncate) != 0;
    text_ = std::move(text);
    readLinesFrom(0);
    return TRUE;
}

void CStdioFile::readLinesFrom(ULONGLONG position) {
    std::optional<TextEncoding> encoding;
    if (position > 0) {
        // The byte-order mark is at the start of the file.
        char start[3] = {};
        CFile::Seek(0, begin);
        encoding = TextEncoding::of({start, Read(start, sizeof start)});
        CFile::Seek(static_cast<std::int64_t>(position), begin);
    }
    text_->block = {};
    text_->rest.Empty();
    text_->blocks.emplace(
        [this](char* place, std::size_t size) { return Read(place, static_cast<UINT>(size)); }, encoding);
}

ULONGLONG CStdioFile::Seek(std::int64_t offset, UINT from) {
    const ULONGLONG position = CFile::Seek(offset, from);
    if (text_ != nullptr)
        readLinesFrom(position);
    return position;
}

BOOL CStdioFile::ReadString(CString& line) {
    if (text_ == nullptr)
        fail(EBADF);
    if (!text_->rest.IsEmpty()) {
        line = std::exchange(text_->rest, {}).TrimRight(L'\n');
        return TRUE;
    }
    while (!text_->block.readLine(line))
        if (!nextLines(text_->block, TextBlocks::kBlock))
            return FALSE;
    return TRUE;
}

wchar_t* CStdioFile::ReadString(wchar_t* buffer, UINT count) {
    if (buffer == nullptr || count == 0)
        return nullptr;
    CString line = text_ != nullptr ? std::exchange(text_->rest, {}) : CString();
    if (line.IsEmpty()) {
        if (ReadString(line) == FALSE)
            return nullptr;
        line += L'\n';
    }
    const int room = static_cast<int>(std::min<UINT>(count - 1, std::numeric_limits<int>::max()));
    const int copied = std::min(room, line.GetLength());
    *std::copy_n(line.GetString(), copied, buffer) = L'\0';
    text_->rest = line.Mid(copied);
    return buffer;
}

bool zuhost::LineBlock::read(CStdioFile& file, UINT size) {
    if (file.text_ == nullptr)
        file.fail(EBADF);
    *this = std::move(file.text_->block);
    return (lines_ != nullptr && !lines_->atEnd()) || file.nextLines(*this, size);
}

bool zuhost::readLines(CStdioFile& file, LineBlock& block, UINT size) {
    return block.read(file, size);
}

bool CStdioFile::nextLines(LineBlock& block, std::size_t size) {
    if (block.lines_ == nullptr)
        block.lines_ = std::make_unique<TextBlock>();
    try {
        return text_->blocks->next(*block.lines_, size);
    } catch (const std::length_error&) {
        fail(EOVERFLOW);
    }
}

void CStdioFile::WriteString(const wchar_t* text) {
    if (text_ == nullptr)
        fail(EBADF);
    const auto bytes = text_->encoding.encode(withCarriageReturns(text != nullptr ? text : L""));
    if (!bytes)
        fail(EILSEQ);
    const std::string_view mark = text_->markWritten ? std::string_view() : text_->encoding.mark();
    if (!mark.empty())
        Write(mark.data(), static_cast<UINT>(mark.size()));
    text_->markWritten = true;
    Write(bytes->data(), static_cast<UINT>(bytes->size()));
}
