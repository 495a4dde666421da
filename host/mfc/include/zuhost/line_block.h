#pragma once

#include <afx.h>
#include <zuhost/platform/export.h>

#include <memory>

namespace zuhost {

class TextBlock;

/// Some of a text file's lines. Independent of the file, so that blocks may be processed concurrently, each
/// by one thread.
class ZUHOST_API LineBlock {
public:
    LineBlock();
    LineBlock(LineBlock&& other) noexcept;
    LineBlock& operator=(LineBlock&& other) noexcept;
    ~LineBlock();

    /// Like CStdioFile::ReadString; returns false after the last line.
    bool readLine(CString& line);
    /// Returns whether the file is known to end with this block.
    [[nodiscard]] bool isLast() const;

private:
    friend class ::CStdioFile;
    friend ZUHOST_API bool readLines(CStdioFile& file, LineBlock& block, UINT size);
    bool read(CStdioFile& file, UINT size);

    std::unique_ptr<TextBlock> lines_;
};

/// Reads the next lines of the file, about `size` bytes, into the block; returns false at the end of the
/// file. Throws like CStdioFile::ReadString.
ZUHOST_API bool readLines(CStdioFile& file, LineBlock& block, UINT size);

} // namespace zuhost
