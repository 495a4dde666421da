#include "model/sample_settings.h"

#include "failure.h"

#include <zuhost/atomic_file.h>
#include <zuhost/system_error.h>
#include <zuhost/text_codec.h>
#include <zuhost/text_file.h>

#include <filesystem>
#include <variant>

namespace zu::app {

namespace {

namespace fs = std::filesystem;

void replaceAll(std::wstring& text, std::wstring_view what, std::wstring_view with) {
    for (std::size_t at = text.find(what); at != std::wstring::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
}

/// In UTF-8, which can express any path.
void insertRoot(const std::string& file, const std::string& root) {
    const auto contents = zuhost::readWholeFile(file);
    const std::string* const bytes = std::get_if<std::string>(&contents);
    if (bytes == nullptr)
        throw Failure(file + ": " + zuhost::errorText(std::get<int>(contents)));
    const auto encoding = zuhost::TextEncoding::of(*bytes);
    std::wstring text = encoding.decode(std::string_view(*bytes).substr(encoding.mark().size()));
    replaceAll(text, L"@ROOT@", zuhost::fromUtf8(root));
    constexpr zuhost::TextEncoding kUtf8{zuhost::TextEncoding::Kind::utf8WithMark};
    if (const int error = zuhost::replaceFile(file, std::string(kUtf8.mark()) + zuhost::toUtf8(text)))
        throw Failure(file + ": " + zuhost::errorText(error));
}

std::string copySettings(const std::string& samples, const std::string& output) {
    const fs::path root = fs::absolute(fs::path(output) / "settings").lexically_normal();
    constexpr auto kReplace = fs::copy_options::recursive | fs::copy_options::overwrite_existing;
    for (const char* folder : {"system", "parts"}) {
        fs::create_directories(root / folder);
        fs::copy(fs::path(samples) / folder, root / folder, kReplace);
    }
    std::string master = (root / "system" / "master.ini").string();
    insertRoot(master, root.string());
    return master;
}

} // namespace

SampleSettings::SampleSettings(const std::string& samples, const std::string& output)
    : settings_(copySettings(samples, output)) {}

} // namespace zu::app
