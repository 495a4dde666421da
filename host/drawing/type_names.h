#pragma once

#include <cstdint>
#include <deque>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace zuhost {

/// The types of a drawing's objects ("LINE", "DICTIONARY"), each stored once under a number. The empty type
/// has the number 0.
class TypeNames {
public:
    /// Returns the number of the type; nullopt when there are more types than 16 bits can number.
    std::optional<std::uint16_t> number(std::string_view name) {
        if (lastUsed_ < names_.size() && names_[lastUsed_] == name)
            return lastUsed_;
        const auto known = numbers_.find(std::string(name));
        if (known != numbers_.end())
            return lastUsed_ = known->second;
        if (names_.size() > std::numeric_limits<std::uint16_t>::max())
            return std::nullopt;
        lastUsed_ = static_cast<std::uint16_t>(names_.size());
        numbers_.emplace(name, lastUsed_);
        names_.emplace_back(name);
        return lastUsed_;
    }

    [[nodiscard]] const std::string& name(std::uint16_t number) const { return names_[number]; }

private:
    std::deque<std::string> names_{""}; ///< A deque keeps references to names valid.
    std::unordered_map<std::string, std::uint16_t> numbers_{{"", 0}};
    std::uint16_t lastUsed_ = 0; ///< Cache: objects of one type often follow one another.
};

} // namespace zuhost
