#pragma once

#include <dbid.h>

#include <unordered_map>

namespace zu {

/// The entities that two drawings have in common.
class EntityPairs {
public:
    void add(AcDbObjectId before, AcDbObjectId after) { after_.emplace(before, after); }

    /// Returns the entity as the second drawing has it; itself when that lacks it.
    [[nodiscard]] AcDbObjectId named(AcDbObjectId before) const {
        const auto found = after_.find(before);
        return found != after_.end() ? found->second : before;
    }

private:
    std::unordered_map<AcDbObjectId, AcDbObjectId> after_;
};

} // namespace zu
