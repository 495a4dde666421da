#pragma once

#include "candidate_index.h"

#include <memory>

namespace zu {

/// The indexes in use for one database: one for each group searched, and one for the last list of candidates.
class ConnectionIndexes {
public:
    /// The indexes of a database, updated for its connection layer; destroyed with the database.
    static ConnectionIndexes& of(AcDbDatabase& database);

    explicit ConnectionIndexes(AcDbDatabase& database) : cache_(database) {}

    [[nodiscard]] const CachedElement& element(AcDbObjectId id) { return cache_.element(id); }
    [[nodiscard]] std::span<const AcGePoint3d> points(const CachedElement& element) const {
        return cache_.points(element);
    }
    [[nodiscard]] int linkKind(AcDbObjectId id) { return cache_.linkKind(id); }
    /// The points of a block definition on the connection layer.
    [[nodiscard]] const Read<DefinitionPoints>& definition(AcDbObjectId block) {
        return cache_.definition(block);
    }

    /// The index over the members of a group; null when the group can't be opened.
    const CandidateIndex* ofGroup(AcDbObjectId group, double distance);
    /// The index over a list of candidates.
    const CandidateIndex& ofList(const AcDbObjectIdArray& candidates, double distance);

private:
    struct GroupEntry {
        std::uint64_t version = 0;
        std::unique_ptr<CandidateIndex> index;
    };

    ConnectionCache cache_;
    std::uint64_t generation_ = 0;
    std::unordered_map<AcDbObjectId, GroupEntry> groups_;
    std::unique_ptr<CandidateIndex> list_;
};

} // namespace zu
