#include "manners/suggestion.h"

#include <algorithm>
#include <cctype>
#include <string_view>

namespace zu::app {

namespace {

constexpr std::size_t kLongest = 64; ///< Longer names are not compared: the cost is their product.

char lower(char c) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

/// The number of changes from one text to the other: letters inserted, left out, replaced, or swapped with
/// the next. Case doesn't count.
std::size_t distance(std::string_view a, std::string_view b) {
    std::vector<std::vector<std::size_t>> d(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
    for (std::size_t i = 0; i <= a.size(); ++i)
        for (std::size_t j = 0; j <= b.size(); ++j) {
            if (i == 0 || j == 0) {
                d[i][j] = i + j;
                continue;
            }
            const bool isSame = lower(a[i - 1]) == lower(b[j - 1]);
            d[i][j] = std::min({d[i - 1][j] + 1, d[i][j - 1] + 1, d[i - 1][j - 1] + (isSame ? 0 : 1)});
            if (i > 1 && j > 1 && lower(a[i - 1]) == lower(b[j - 2]) && lower(a[i - 2]) == lower(b[j - 1]))
                d[i][j] = std::min(d[i][j], d[i - 2][j - 2] + 1);
        }
    return d[a.size()][b.size()];
}

} // namespace

std::string suggestion(const std::string& given, const std::vector<std::string>& names) {
    const std::string* best = nullptr;
    std::size_t least = std::max<std::size_t>(given.size() / 3, 1) + 1;
    for (const std::string& name : names) {
        if (std::max(name.size(), given.size()) > kLongest)
            continue;
        if (const std::size_t changes = distance(given, name); changes < least) {
            least = changes;
            best = &name;
        }
    }
    return best != nullptr ? "; did you mean " + *best + "?" : "";
}

} // namespace zu::app
