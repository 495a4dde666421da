#pragma once

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>

#include <zuhost/text_codec.h>

/// A folder of a test's own, removed with all it holds.
class TemporaryFolder {
public:
    TemporaryFolder() {
        // The system chooses the name: a later test never reuses the folder of a killed one.
        std::string pattern = (std::filesystem::temp_directory_path() / "zu-test-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr)
            throw std::filesystem::filesystem_error("no temporary folder", pattern,
                                                    {errno, std::generic_category()});
        path_ = pattern;
    }
    ~TemporaryFolder() {
        std::error_code error;
        std::filesystem::remove_all(path_, error);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    [[nodiscard]] std::string file(std::string_view name) const { return (path_ / name).string(); }
    /// The same as wide text.
    [[nodiscard]] std::wstring wide(std::string_view name) const { return zuhost::fromUtf8(file(name)); }

    /// Writes a file and returns its path.
    std::string write(std::string_view name, std::string_view bytes) const {
        std::ofstream(file(name), std::ios::binary)
            .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return file(name);
    }
    /// Empty for what is no file.
    [[nodiscard]] static std::string read(const std::string& path) {
        if (!std::filesystem::is_regular_file(path))
            return {};
        std::ifstream stream(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

private:
    std::filesystem::path path_;
};
