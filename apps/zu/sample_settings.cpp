#include "sample_settings.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace zu::app {

namespace {

namespace fs = std::filesystem;

void replaceAll(std::string& text, const std::string& what, const std::string& with) {
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
}

std::string install(const std::string& samples, const std::string& output) {
    const fs::path root = fs::absolute(fs::path(output) / "settings").lexically_normal();
    constexpr auto kReplace = fs::copy_options::recursive | fs::copy_options::overwrite_existing;
    for (const char* folder : {"system", "parts"}) {
        fs::create_directories(root / folder);
        fs::copy(fs::path(samples) / folder, root / folder, kReplace);
    }
    const fs::path master = root / "system" / "master.ini";
    std::ifstream in(master, std::ios::binary);
    std::string text((std::istreambuf_iterator<char>(in)), {});
    in.close();
    replaceAll(text, "@ROOT@", root.string());
    std::ofstream(master, std::ios::binary) << text;
    return master.string();
}

} // namespace

SampleSettings::SampleSettings(const std::string& samples, const std::string& output)
    : settings_(install(samples, output)) {}

} // namespace zu::app
