#pragma once

#include <afxstr.h>
#include <zuhost/text_codec.h>
#include <zuhost/texts.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace zu::fuzz {

/// A folder for files whose names matter, in memory where the system has such a place; removed at the end.
class ScratchFolder {
public:
    ScratchFolder() {
        const std::filesystem::path memory = "/dev/shm";
        const auto parent =
            std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path();
        std::string pattern = (parent / "zufuzz-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr)
            std::abort();
        path_ = pattern;
    }
    ~ScratchFolder() { std::filesystem::remove_all(path_); }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

    /// Writes the file anew and returns its full path.
    CString write(const std::filesystem::path& name, std::string_view bytes) const {
        const std::filesystem::path file = path_ / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream out(file, std::ios::binary | std::ios::trunc);
        if (!out.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush())
            std::abort();
        return zuhost::textOf(zuhost::fromUtf8(file.string()));
    }

private:
    std::filesystem::path path_;
};

} // namespace zu::fuzz
