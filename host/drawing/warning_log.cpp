#include "warning_log.h"

#include <algorithm>

namespace zuhost {
namespace {

/// Counts lines from one offset to the next: all warnings take one pass over the bytes.
class LineCounter {
public:
    explicit LineCounter(const DrawingState& state)
        : bytes_(state.bytes), lineEnd_(state.style.lineEnd.back()) {}

    std::uint64_t lineAt(std::uint64_t offset) {
        const std::string_view passed = bytes_.substr(at_, offset - at_);
        line_ += static_cast<std::uint64_t>(std::count(passed.begin(), passed.end(), lineEnd_));
        at_ = offset;
        return line_;
    }

private:
    std::string_view bytes_;
    char lineEnd_;
    std::uint64_t at_ = 0;
    std::uint64_t line_ = 1;
};

} // namespace

/// Returns the faults in file order. The last one of a kind has the number of those not listed.
std::vector<WarningLog::Entry> WarningLog::entries() const {
    std::vector<Entry> all;
    for (const auto& [kind, same] : kinds_) {
        all.insert(all.end(), same.kept.begin(), same.kept.end());
        if (same.count > same.kept.size())
            all.back().problem +=
                L" (and " + std::to_wstring(same.count - same.kept.size()) + L" more like it)";
    }
    std::stable_sort(all.begin(), all.end(),
                     [](const Entry& a, const Entry& b) { return a.offset < b.offset; });
    return all;
}

std::vector<DocumentError> WarningLog::warnings(const DrawingState& state) const {
    const bool ascii = state.style.form == DrawingForm::ascii;
    const std::vector<Entry> all = entries();
    const std::size_t listed = std::min(all.size(), kMaxWarnings);
    LineCounter lines(state);
    std::vector<DocumentError> result;
    for (std::size_t i = 0; i < listed; ++i) {
        const std::uint64_t offset = std::min<std::uint64_t>(all[i].offset, state.bytes.size());
        result.push_back({state.file, ascii ? lines.lineAt(offset) : 0, offset, all[i].problem});
    }
    if (listed < all.size())
        result.push_back({state.file, 0, 0, L"faults of other kinds are not listed"});
    return result;
}

} // namespace zuhost
