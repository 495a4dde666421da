#pragma once

#include "report/part_json.h"
#include "temporary_folder.h"

#include <zuhost/paths.h>
#include <zuhost/texts.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace zu::test {

/// Compares objects regardless of the order of their keys.
using PlainJson = nlohmann::json;

inline std::string readBytes(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline CString hostPath(const std::filesystem::path& path) {
    return zuhost::textOf(zuhost::hostPath(path.string()));
}

inline PlainJson modelOf(const CAcadDxf& part) {
    return PlainJson::parse(app::partToJson(part).dump());
}

inline std::filesystem::path sample(const std::string& name) {
    return std::filesystem::path(ZU_SAMPLES) / "parts" / name;
}

inline const PlainJson& expectedDrawings() {
    static const PlainJson all =
        PlainJson::parse(std::ifstream(std::filesystem::path(ZU_SAMPLES) / "expected" / "parts.json"));
    return all.at("drawings");
}

inline void append(std::string& bytes, std::uint64_t value, int count) {
    for (int i = 0; i < count; ++i)
        bytes += static_cast<char>(value >> (8 * i) & 0xFF);
}

inline std::string binaryText(int code, std::string_view text) {
    std::string bytes;
    append(bytes, static_cast<std::uint64_t>(code), 2);
    return bytes.append(text) + '\0';
}

inline std::string binaryDrawing(const std::string& records) {
    return std::string("AutoCAD Binary DXF\r\n\x1a\0", 22) + binaryText(0, "SECTION") +
           binaryText(2, "ENTITIES") + records + binaryText(0, "ENDSEC") + binaryText(0, "EOF");
}

/// A temporary file in a folder of its own.
class PartFile {
public:
    explicit PartFile(const std::string& bytes, const std::string& name = "part.dxf")
        : path_(folder_.file(name)) {
        write(bytes);
    }

    void write(const std::string& bytes) const { std::ofstream(path_, std::ios::binary) << bytes; }
    [[nodiscard]] CString path() const { return hostPath(path_); }
    [[nodiscard]] std::string systemPath() const { return path_.string(); }

private:
    TemporaryFolder folder_;
    std::filesystem::path path_;
};

} // namespace zu::test
