// Runs a fuzz target on files and folders of files, for compilers without a fuzzer: TARGET PATH...
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
/// Not every target defines it.
extern "C" [[gnu::weak]] int LLVMFuzzerInitialize(int* count, char*** arguments);

namespace {

namespace fs = std::filesystem;

void replay(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(in), {});
    std::printf("%s: %zu bytes\n", path.c_str(), bytes.size());
    // What fails is the file named last.
    std::fflush(stdout);
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

} // namespace

int main(int count, char** arguments) {
    if (LLVMFuzzerInitialize != nullptr)
        LLVMFuzzerInitialize(&count, &arguments);
    for (int i = 1; i < count; ++i) {
        if (!fs::is_directory(arguments[i]))
            replay(arguments[i]);
        else
            for (const auto& file : fs::directory_iterator(arguments[i]))
                replay(file.path());
    }
    return count > 1 ? 0 : 1;
}
