#include "model/script.h"

#include "failure.h"
#include "model/readable_file.h"
#include "model/standard_streams.h"
#include "text.h"

#include <zuhost/file_ops.h>
#include <zuhost/paths.h>
#include <zuhost/system_error.h>
#include <zuhost/text_codec.h>

#include <array>
#include <cstdio>
#include <iostream>

namespace zu::app {

namespace {

constexpr std::size_t kLongestLine = std::size_t{1} << 20U;
constexpr wchar_t kReplacement = L'\xFFFD';
constexpr int kJapanese = 932;
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

std::wstring decoded(std::string_view line) {
    std::wstring text = zuhost::fromUtf8(line);
    if (text.find(kReplacement) == std::wstring::npos)
        return text;
    const auto codec = zuhost::TextCodec::forCodePage(kJapanese);
    return codec ? codec->decode(line) : text;
}

} // namespace

/// Reads the input byte by byte, from a buffer that never waits for more than there is.
class Script::Bytes {
public:
    explicit Bytes(const std::string& file) : name_(file) {
        if (file == kStandardStream)
            return;
        requireReadable(file);
        if (const int error = file_.open(zuhost::systemPath(filePath(file).GetString()),
                                         zuhost::file_ops::File::Mode::read))
            throw Failure(file + ": " + zuhost::errorText(error));
    }

    /// Returns the next byte; nullopt at the end.
    std::optional<char> next() {
        if (!file_.isOpen()) {
            const int byte = std::cin.rdbuf()->sbumpc();
            return byte == EOF ? std::nullopt : std::optional(static_cast<char>(byte));
        }
        if (at_ == size_ && !fill())
            return std::nullopt;
        return buffer_[at_++];
    }

private:
    bool fill() {
        at_ = 0;
        size_ = 0;
        if (const int error = file_.read(buffer_.data(), buffer_.size(), size_))
            throw Failure(name_ + ": " + zuhost::errorText(error));
        return size_ > 0;
    }

    std::string name_;
    zuhost::file_ops::File file_;
    std::array<char, 4096> buffer_{};
    std::size_t at_ = 0;
    std::size_t size_ = 0;
};

Script::Script(const std::string& file)
    : name_(file == kStandardStream ? "standard input" : file), bytes_(std::make_unique<Bytes>(file)) {}

Script::~Script() = default;

std::optional<std::string> Script::readLine() {
    std::string line;
    auto byte = bytes_->next();
    if (!byte)
        return std::nullopt;
    for (; byte && *byte != '\n'; byte = bytes_->next()) {
        if (line.size() >= kLongestLine)
            throw Failure(name_ + ": has a line of more than a megabyte: this is no script");
        line += *byte;
    }
    if (line.ends_with('\r'))
        line.pop_back();
    return line;
}

std::optional<std::wstring> Script::nextLine() {
    for (;;) {
        auto line = readLine();
        if (!line)
            return std::nullopt;
        if (line->starts_with(kUtf8Mark))
            line->erase(0, kUtf8Mark.size());
        if (!line->starts_with(';'))
            return decoded(*line);
    }
}

} // namespace zu::app
