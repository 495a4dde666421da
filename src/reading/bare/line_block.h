#pragma once

#include <afx.h>

#include <utility>
#include <vector>

/// Lines of a text file in blocks, on the interface alone.
namespace zu {

class LineBlock {
public:
    /// Like CStdioFile::ReadString; returns false after the last line.
    bool readLine(CString& line) {
        if (next_ >= lines_.size())
            return false;
        line = std::move(lines_[next_++]);
        return true;
    }
    /// Returns whether the file is known to end with this block.
    [[nodiscard]] bool isLast() const { return isLast_; }

private:
    friend bool readLines(CStdioFile& file, LineBlock& block, UINT size);

    std::vector<CString> lines_;
    std::size_t next_ = 0;
    bool isLast_ = false;
};

/// Reads the next lines of the file, about `size` bytes, into the block; returns false at the end of the
/// file.
inline bool readLines(CStdioFile& file, LineBlock& block, UINT size) {
    block = {};
    std::size_t read = 0;
    for (CString line; read < size; block.lines_.push_back(line)) {
        block.isLast_ = file.ReadString(line) == FALSE;
        if (block.isLast_)
            break;
        read += static_cast<std::size_t>(line.GetLength()) + 1;
    }
    return !block.lines_.empty();
}

} // namespace zu
