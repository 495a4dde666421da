#pragma once

#include <string>

namespace zu::app {

/// The path that stands for the standard input and output.
constexpr const char* kStandardStream = "-";

[[nodiscard]] std::string readStandardInput();

/// A file to read by its path: the named one, or a temporary copy of the standard input for "-".
class InputFile {
public:
    /// Throws Failure when the copy cannot be written.
    explicit InputFile(const std::string& file);
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }

private:
    std::string path_;
    bool isCopy_;
};

} // namespace zu::app
