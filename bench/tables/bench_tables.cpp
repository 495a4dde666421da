// Reads table files of 1 and 100 MB with the library and in two simple ways: getline, decode and split, which
// gives the same texts, and getline and split of bytes, which does not decode them. Then looks up and saves a
// tenth of the keys of link information files of 1,000 to 100,000 records.
#include "measure.h"

#include <zucomn/link_info.h>
#include <zucomn/tables.h>
#include <zuhost/text_codec.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr std::size_t kMegabyte = 1'000'000;

void writeTable(const std::string& path, std::size_t size) {
    // "ポンプ" in code page 932: the second byte of its first character is that of "|".
    const std::string name = "\x83\x7C\x83\x93\x83\x76";
    std::ofstream file(path, std::ios::binary);
    std::size_t written = 0;
    for (int i = 0; written < size; ++i) {
        std::ostringstream line;
        line << "FIT-" << i << '|' << name << '-' << i % 97 << "|850|12.5|" << name << "\r\n";
        file << line.view();
        written += line.view().size();
    }
}

void require(bool condition) {
    if (!condition)
        throw std::runtime_error("not the table that was written");
}

Held readByLibrary(const std::string& path) {
    const std::shared_ptr<CPtrArray> records(new CPtrArray, [](CPtrArray* list) {
        ZuComn_RemoveAllFree(*list);
        delete list;
    });
    require(ZuComn_ReadConfigFile(zuhost::fromUtf8(path).c_str(), *records, 0, nullptr, L"|") == 0);
    const auto& last =
        *static_cast<CStringArray*>(static_cast<CObject*>((*records)[records->GetUpperBound()]));
    require(last.GetSize() == 5 && last[4] == L"ポンプ");
    return records;
}

template <typename Text>
void split(const Text& line, typename Text::value_type separator, std::vector<Text>& record) {
    for (std::size_t start = 0; start != Text::npos;) {
        const std::size_t end = line.find(separator, start);
        record.push_back(line.substr(start, end - start));
        start = end == Text::npos ? end : end + 1;
    }
}

/// Reads with getline; `decode` returns the text of a line of bytes.
template <typename Text, typename Decode>
Held readLines(const std::string& path, Decode decode, std::size_t fields, const Text& last) {
    const auto records = std::make_shared<std::vector<std::vector<Text>>>();
    std::ifstream file(path, std::ios::binary);
    for (std::string bytes; std::getline(file, bytes);) {
        if (bytes.ends_with('\r'))
            bytes.pop_back();
        split<Text>(decode(bytes), '|', records->emplace_back());
    }
    require(records->back().size() == fields && records->back().back() == last);
    return records;
}

Held readAndDecode(const std::string& path) {
    static const auto codec = zuhost::TextCodec::forCodePage(932).value();
    return readLines<std::wstring>(
        path, [](const std::string& bytes) { return codec.decode(bytes); }, 5, L"ポンプ");
}

/// Fast but wrong: splits the name at a byte that looks like a separator.
Held readBytes(const std::string& path) {
    return readLines<std::string>(
        path, [](const std::string& bytes) -> const std::string& { return bytes; }, 7, "\x83\x93\x83\x76");
}

void compare(const std::string& path, std::size_t megabytes) {
    writeTable(path, megabytes * kMegabyte);
    const auto size = static_cast<double>(std::filesystem::file_size(path));
    const struct {
        const char* name;
        Held (*read)(const std::string& path);
    } readers[] = {{"library", readByLibrary},
                   {"getline, decode, split", readAndDecode},
                   {"getline, split of bytes", readBytes}};
    std::printf("%zu MB, %u threads                first time                         again\n", megabytes,
                std::thread::hardware_concurrency());
    Measure own;
    for (const auto& reader : readers) {
        const Measure result = measure(megabytes < 100 ? 50 : 9, [&] { return reader.read(path); });
        if (own.seconds == 0)
            own = result;
        const auto print = [size](double seconds, double ownSeconds) {
            std::printf("%9.2f ms %7.1f MB/s x %4.2f", seconds * 1e3, size / seconds / 1e6,
                        seconds / ownSeconds);
        };
        std::printf("  %-24s", reader.name);
        print(result.firstSeconds, own.firstSeconds);
        print(result.seconds, own.seconds);
        std::printf("   kept %5.2f times the file\n", result.keptBytes / size);
    }
}

/// Keys of two lines, the way that costs most.
void editLinkInfo(const std::string& path, int records) {
    {
        std::ofstream file(path, std::ios::binary);
        for (int i = 0; i < records; ++i)
            file << "line\nkey" << i << "|value" << i << '\n';
    }
    CStringArray keys;
    CStringArray values;
    for (int i = 0; i < records; i += 10) {
        keys.Add((L"line\nkey" + std::to_wstring(i)).c_str());
        values.Add((L"new" + std::to_wstring(i)).c_str());
    }
    const CString file = zuhost::fromUtf8(path).c_str();
    const Measure result = measure(5, [&] {
        CStringArray found;
        require(ZuComn_GetLinkInfo(file, keys, found) && found.GetSize() == keys.GetSize());
        require(ZuComn_SaveLinkInfo(file, keys, values));
        return Held();
    });
    std::printf("link information, %6d records %9.2f ms %6.3f us a record\n", records, result.seconds * 1e3,
                result.seconds * 1e6 / records);
}

} // namespace

int main(int argc, char** argv) {
    const std::filesystem::path folder = argc > 1 ? argv[1] : std::filesystem::temp_directory_path();
    const std::string path = (folder / "zu-bench-table.csv").string();
    for (const std::size_t megabytes : {1U, 100U})
        compare(path, megabytes);
    for (const int records : {1'000, 10'000, 100'000})
        editLinkInfo(path, records);
    std::filesystem::remove(path);
    std::filesystem::remove(folder / "zu-bench-table.bak");
}
