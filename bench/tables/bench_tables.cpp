// Reads table files of 1 and 100 MB with the library and with the plain way: getline, convert, split.
#include <zucomn/tables.h>
#include <zuhost/text_codec.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

using Seconds = std::chrono::duration<double>;

constexpr std::size_t kMega = 1'000'000;

void writeTable(const std::string& path, std::size_t size) {
    // "ポンプ", whose first character has the separator's byte, in code page 932.
    const std::string name = "\x83\x7C\x83\x93\x83\x76";
    std::ofstream file(path, std::ios::binary);
    std::size_t written = 0;
    for (int i = 0; written < size; ++i) {
        const std::string line = "FIT-" + std::to_string(i) + "|" + name + "-" + std::to_string(i % 97) +
                                 "|850|12.5|" + name + "\r\n";
        file << line;
        written += line.size();
    }
}

template <typename Work>
double secondsOf(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return Seconds(std::chrono::steady_clock::now() - start).count();
}

std::size_t readByLibrary(const std::wstring& path) {
    CPtrArray records;
    ZuComn_ReadConfigFile(path.c_str(), records, 0, nullptr, L"|");
    const auto count = static_cast<std::size_t>(records.GetSize());
    ZuComn_RemoveAllFree(records);
    return count;
}

std::size_t readPlainly(const std::string& path) {
    const auto codec = zuhost::TextCodec::forCodePage(932).value();
    std::ifstream file(path, std::ios::binary);
    std::vector<std::vector<std::wstring>> records;
    for (std::string bytes; std::getline(file, bytes);) {
        const std::wstring line = codec.decode(bytes);
        auto& record = records.emplace_back();
        for (std::size_t start = 0; start != std::wstring::npos;) {
            const std::size_t end = line.find(L'|', start);
            record.push_back(line.substr(start, end - start));
            start = end == std::wstring::npos ? end : end + 1;
        }
    }
    return records.size();
}

std::size_t readBytesOnly(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::vector<std::vector<std::string>> records;
    for (std::string line; std::getline(file, line);) {
        auto& record = records.emplace_back();
        for (std::size_t start = 0; start != std::string::npos;) {
            const std::size_t end = line.find('|', start);
            record.push_back(line.substr(start, end - start));
            start = end == std::string::npos ? end : end + 1;
        }
    }
    return records.size();
}

void measure(const std::string& path, std::size_t megabytes) {
    writeTable(path, megabytes * kMega);
    const std::wstring wide = zuhost::fromUtf8(path);
    std::size_t count = 0;
    std::size_t plainCount = 0;
    const double own = secondsOf([&] { count = readByLibrary(wide); });
    const double plain = secondsOf([&] { plainCount = readPlainly(path); });
    const double bytes = secondsOf([&] { readBytesOnly(path); });
    const auto speed = [megabytes](double seconds) { return static_cast<double>(megabytes) / seconds; };
    std::printf("%3zu MB, %zu records: library %6.1f MB/s; getline, decode, split %6.1f MB/s (x %.2f); "
                "getline and split of bytes %6.1f MB/s (x %.2f)%s\n",
                megabytes, count, speed(own), speed(plain), plain / own, speed(bytes), bytes / own,
                count == plainCount ? "" : "  DIFFERENT COUNTS");
}

} // namespace

int main() {
    const std::string path = (std::filesystem::temp_directory_path() / "zu-bench-table.csv").string();
    for (const std::size_t megabytes : {1U, 100U})
        measure(path, megabytes);
    std::filesystem::remove(path);
}
