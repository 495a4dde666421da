#include "link_merge.h"

#include "line_splitter.h"
#include "text_encoding.h"

#include <afxstr.h>

#include <unordered_map>

namespace zu {

namespace {

constexpr char kEndOfText = 0x1A;
/// Bytes; a longer line couldn't be read again.
constexpr std::size_t kLongestLine = std::size_t{1} << 24U;
constexpr wchar_t kSeparator = L'|';

class Merge {
public:
    Merge(std::string_view file, const std::vector<LinkPair>& pairs)
        : file_(file), pairs_(pairs), encoding_(TextEncoding::of(file)) {
        for (std::size_t i = 0; i < pairs.size(); ++i)
            pending_.emplace(pairs[i].key, i);
        if (encoding_.lineFeed().size() == 1)
            file_ = file_.substr(0, file_.find(kEndOfText));
        // Half a character at the end would shift all that follows it.
        file_.remove_suffix(file_.size() % encoding_.lineFeed().size());
        crlf_ = endsLinesWithReturn();
    }

    std::optional<std::string> run() {
        result_ = encoding_.mark();
        if (!mergeLines() || !writePending())
            return std::nullopt;
        return std::move(result_);
    }

private:
    /// New records end their lines as the file's first line does.
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
            if (!mergeLine(file_.substr(at, end - at)))
                return false;
            at = end;
        }
        return true;
    }

    bool mergeLine(std::string_view bytes) {
        if (bytes.size() > kLongestLine)
            return false;
        const auto decoded = encoding_.decode(bytes);
        if (!decoded)
            return false;
        CString line(*decoded);
        line.Trim();
        if (line.IsEmpty())
            return true;
        if (line.Find(kSeparator) < 0) {
            heldText_ = std::wstring(line.view()) + L'\n';
            heldBytes_ = bytes;
            return true;
        }
        const std::wstring_view field = line.view().substr(0, line.view().find(kSeparator));
        const auto match = pending_.find(heldText_.append(withoutTrailingSpaces(field)));
        const bool written = match != pending_.end() ? writePair(pairs_[match->second]) : keep(bytes);
        if (match != pending_.end())
            pending_.erase(match);
        heldText_.clear();
        heldBytes_ = {};
        return written;
    }

    bool keep(std::string_view bytes) {
        result_ += heldBytes_;
        result_ += bytes;
        return bytes.ends_with(encoding_.lineFeed()) || write(L"\n");
    }

    bool writePending() {
        for (const LinkPair& pair : pairs_)
            if (pending_.contains(pair.key) && !writePair(pair))
                return false;
        return true;
    }

    bool writePair(const LinkPair& pair) { return write(pair.key + kSeparator + pair.value + L'\n'); }

    bool write(const std::wstring& text) {
        CString lines(text);
        if (crlf_)
            lines.Replace(L"\n", L"\r\n");
        const auto bytes = encoding_.encode(lines.view());
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
    std::string result_;
};

} // namespace

std::optional<std::string> mergeLinks(std::string_view file, const std::vector<LinkPair>& pairs) {
    return Merge(file, pairs).run();
}

} // namespace zu
