#pragma once

#include <afx.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>

namespace zu::dxf {

/// A file that several threads read, each at its own place.
class InputFile {
public:
    /// Returns null when the file cannot be opened.
    static std::shared_ptr<InputFile> open(const wchar_t* path);

    /// Returns 0 for a pipe, which has no length and one reader.
    [[nodiscard]] std::uint64_t length() const { return length_; }
    /// Returns the number of bytes read, fewer than `count` at the end of the file and after a read error.
    std::size_t readAt(std::uint64_t offset, char* target, std::size_t count);

private:
    InputFile() = default;

    [[nodiscard]] std::unique_lock<std::mutex> turn();

    std::mutex mutex_;
    CFile file_;
    std::uint64_t position_ = 0;
    std::uint64_t length_ = 0;
};

} // namespace zu::dxf
