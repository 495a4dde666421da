#include "link_merge.h"

#include "line_splitter.h"
#include "text_encoding.h"
#include "text_view.h"

#include <afxstr.h>

#include <unordered_map>
#include <utility>

namespace zu {

namespace {

constexpr char kEndOfText = 0x1A;
/// In bytes; reading a table rejects longer lines.
constexpr std::size_t kLongestLine = std::size_t{1} << 24U;
constexpr wchar_t kSeparator = L'|';

std::wstring_view withoutLineEnd(std::wstring_view line) {
    if (line.ends_with(L'\n'))
        line.remove_suffix(line.ends_with(L"\r\n") ? 2 : 1);
    return line;
}

bool isTrimmed(std::wstring_view text) {
    return zu::view(zu::textOf(text).Trim()) == text;
}

class Merge {
public:
    Merge(std::string_view file, const std::vector<LinkPair>& pairs)
        : file_(file), pairs_(pairs), encoding_(TextEncoding::of(file)) {
        for (std::size_t i = 0; i < pairs.size(); ++i)
            pending_.emplace(pairs[i].key, i);
        if (encoding_.lineFeed().size() == 1)
            file_ = file_.substr(0, file_.find(kEndOfText));
        // Half a UTF-16 unit at the end would misalign everything appended after it.
        file_.remove_suffix(file_.size() % encoding_.lineFeed().size());
        if (encoding_.lineFeed().size() == 1)
            rest_ = file.substr(file_.size());
        crlf_ = endsLinesWithReturn();
    }

    std::optional<std::string> run() {
        result_ = encoding_.mark();
        if (!mergeLines())
            return std::nullopt;
        result_ += heldComments_;
        if (!writePending())
            return std::nullopt;
        result_ += rest_;
        // Dropped lines must not bring bytes to the front that read as the mark of another encoding.
        if (TextEncoding::of(result_).mark() != encoding_.mark())
            return std::nullopt;
        return std::move(result_);
    }

private:
    /// Returns whether new records end in CR LF: when the first line does, or has no line end.
    bool endsLinesWithReturn() const {
        const std::size_t end = encoding_.endOfLine(file_, encoding_.mark().size());
        const std::size_t feed = encoding_.lineFeed().size();
        if (!file_.substr(0, end).ends_with(encoding_.lineFeed()))
            return true;
        return end >= 2 * feed && file_[end - 2 * feed] == '\r';
    }

    bool mergeLines() {
        for (std::size_t at = encoding_.mark().size(); at < file_.size();) {
            const std::size_t end = encoding_.endOfLine(file_, at);
            const std::string_view bytes = file_.substr(at, end - at);
            const auto line = bytes.size() <= kLongestLine ? encoding_.decode(bytes) : std::nullopt;
            if (!line)
                return false;
            if (endsTable(withoutLineEnd(*line))) {
                rest_ = {file_.data() + at, file_.size() - at + rest_.size()};
                return true;
            }
            if (!mergeLine(*line, bytes))
                return false;
            at = end;
        }
        return true;
    }

    bool mergeLine(const std::wstring& text, std::string_view bytes) {
        if (isComment(text)) {
            (heldText_.empty() ? result_ : heldComments_) += withLineEnd(bytes);
            return true;
        }
        CString line = zu::textOf(text);
        line.Trim();
        if (line.IsEmpty())
            return true;
        if (line.Find(kSeparator) < 0) {
            result_ += std::exchange(heldComments_, {});
            heldText_ = std::wstring(zu::view(line)) + L'\n';
            heldBytes_ = bytes;
            return true;
        }
        const std::wstring_view field = zu::view(line).substr(0, zu::view(line).find(kSeparator));
        const auto match = pending_.find(heldText_.append(withoutTrailingSpaces(field)));
        heldText_.clear();
        if (match == pending_.end()) {
            keep(bytes);
            return true;
        }
        result_ += std::exchange(heldComments_, {});
        const std::size_t pair = match->second;
        pending_.erase(match);
        return writePair(pairs_[pair]);
    }

    void keep(std::string_view bytes) {
        result_ += heldBytes_;
        result_ += std::exchange(heldComments_, {});
        result_ += withLineEnd(bytes);
        heldBytes_ = {};
    }

    /// The file's last line may lack its line end. A return at its end belongs to its value, which LF alone
    /// would turn into a line end.
    [[nodiscard]] std::string withLineEnd(std::string_view bytes) const {
        std::string line(bytes);
        if (bytes.ends_with(encoding_.lineFeed()))
            return line;
        const bool needsReturn = crlf_ || bytes.ends_with(encoding_.encode(L"\r").value_or("\r"));
        return line += encoding_.encode(needsReturn ? L"\r\n" : L"\n").value_or("\n");
    }

    bool writePending() {
        for (const LinkPair& pair : pairs_)
            if (pending_.contains(pair.key) && !writePair(pair))
                return false;
        return true;
    }

    bool writePair(const LinkPair& pair) {
        // A code page may map several characters to the same bytes, which read back as one of them: a look-up
        // would not find a key with another.
        const auto key = encoding_.encode(pair.key);
        return key && encoding_.decode(*key) == pair.key && write(pair.key + kSeparator + pair.value + L'\n');
    }

    bool write(const std::wstring& text) {
        CString lines = zu::textOf(text);
        if (crlf_)
            lines.Replace(L"\n", L"\r\n");
        const auto bytes = encoding_.encode(zu::view(lines));
        if (!bytes || bytes->size() > kLongestLine)
            return false;
        result_ += *bytes;
        return true;
    }

    std::string_view file_;
    const std::vector<LinkPair>& pairs_;
    TextEncoding encoding_;
    bool crlf_ = true;
    std::unordered_map<std::wstring, std::size_t> pending_;
    std::wstring heldText_;
    std::string_view heldBytes_;
    std::string heldComments_; ///< Between a held line and its record.
    std::string_view rest_;    ///< From a line "END" or kEndOfText to the end; preserved verbatim.
    std::string result_;
};

} // namespace

bool isReadable(const LinkPair& pair) {
    if (pair.value.find_first_of(std::wstring_view(L"|\r\n\x1A\0", 5)) != std::wstring::npos ||
        pair.key.find_first_of(std::wstring_view(L"|\r\x1A\0", 4)) != std::wstring::npos)
        return false;
    const std::wstring_view key(pair.key);
    const std::size_t feed = key.find(L'\n');
    const std::wstring_view last = feed == std::wstring_view::npos ? key : key.substr(feed + 1);
    if (last.find(L'\n') != std::wstring_view::npos || isComment(last) || !isTrimmed(last))
        return false;
    const std::wstring_view first = key.substr(0, feed == std::wstring_view::npos ? 0 : feed);
    return feed == std::wstring_view::npos ||
           (!first.empty() && !isComment(first) && !endsTable(first) && isTrimmed(first));
}

std::optional<std::string> mergeLinks(std::string_view file, const std::vector<LinkPair>& pairs) {
    return Merge(file, pairs).run();
}

} // namespace zu
