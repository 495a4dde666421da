#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <system_error>

#include <zuhost/platform/paths.h>
#include <zuhost/text_codec.h>

/// A folder of a test's own, removed with all it holds.
class TemporaryFolder {
public:
    TemporaryFolder() {
        // The name is random: a later test never reuses the folder of a killed one.
        std::random_device random;
        do
            path_ = std::filesystem::temp_directory_path() / ("zu-test-" + std::to_string(random()));
        while (!std::filesystem::create_directory(path_));
    }
    ~TemporaryFolder() {
        std::error_code error;
        std::filesystem::remove_all(path_, error);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    /// The path of a file, in UTF-8 with "/".
    [[nodiscard]] std::string file(std::string_view name) const {
        return zuhost::platform::textOf(path_ / zuhost::platform::pathOf(std::string(name)));
    }
    /// The same as wide text.
    [[nodiscard]] std::wstring wide(std::string_view name) const { return zuhost::fromUtf8(file(name)); }

    /// Writes a file and returns its path.
    std::string write(std::string_view name, std::string_view bytes) const {
        std::ofstream(zuhost::platform::pathOf(file(name)), std::ios::binary)
            .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return file(name);
    }
    /// Empty for what is no file.
    [[nodiscard]] static std::string read(const std::string& path) {
        if (!std::filesystem::is_regular_file(zuhost::platform::pathOf(path)))
            return {};
        std::ifstream stream(zuhost::platform::pathOf(path), std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

private:
    std::filesystem::path path_;
};
