#pragma once

#include "connection_points.h"
#include "id_map.h"
#include "reference_facts.h"

#include <dbmain.h>

#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

namespace zu {

/// The cached link kind of an element and the place of its points in the cache. Valid until the element or
/// its definition changes.
struct CachedElement {
    AcDbObjectId block;                   ///< The definition of its block.
    Acad::ErrorStatus status = Acad::eOk; ///< The result of reading the points.
    bool isValid = false;                 ///< False once the element has changed.
    std::optional<int> linkKind;          ///< Read when it is first asked for.
    std::size_t firstPoint = 0;
    std::size_t pointCount = 0;
    std::size_t pointRoom = 0; ///< Of the most points that the element has had.
};

/// The connection points of a drawing's elements, read once and updated when the drawing changes. Indexes
/// over them read the changes from its log.
class ConnectionCache final : public AcDbDatabaseReactor {
public:
    explicit ConnectionCache(AcDbDatabase& database);
    ~ConnectionCache() override;
    ConnectionCache(const ConnectionCache&) = delete;
    ConnectionCache& operator=(const ConnectionCache&) = delete;

    /// True when the database was destroyed.
    [[nodiscard]] bool isClosed() const { return database_ == nullptr; }

    /// True for ids of the cache's own drawing.
    [[nodiscard]] bool covers(AcDbObjectId id) const { return !id.isNull() && id.database() == database_; }

    /// Valid until the next change of the drawing, and until the next call for another element.
    const CachedElement& element(AcDbObjectId id);
    /// The points of an element; valid as long as the element.
    [[nodiscard]] std::span<const AcGePoint3d> points(const CachedElement& element) const {
        return std::span(points_).subspan(element.firstPoint, element.pointCount);
    }
    /// The link kind of an element; -1 for one that can't be read.
    int linkKind(AcDbObjectId id);
    /// The connection points of a block definition; valid until the next change of the drawing.
    const Read<DefinitionPoints>& definition(AcDbObjectId block);

    /// The log: elements that changed since they were last requested, oldest first.
    [[nodiscard]] const std::vector<AcDbObjectId>& changedElements() const { return changedElements_; }
    /// Grows with every other change; all that was derived from the cache is then invalid.
    [[nodiscard]] std::uint64_t generation() const { return generation_; }
    /// Grows with every change of a watched group.
    [[nodiscard]] std::uint64_t groupVersion(AcDbObjectId group) const;
    /// Counts the group's changes from now on.
    void watchGroup(AcDbObjectId group) { groupVersions_.try_emplace(group, 0); }

    /// Clears the cache when the name of the connection layer has changed.
    void checkLayer();

    void objectAppended(const AcDbDatabase*, const AcDbObject* object) override { changed(*object); }
    void objectUnAppended(const AcDbDatabase*, const AcDbObject* object) override { changed(*object); }
    void objectReAppended(const AcDbDatabase*, const AcDbObject* object) override { changed(*object); }
    void objectModified(const AcDbDatabase*, const AcDbObject* object) override { changed(*object); }
    void objectErased(const AcDbDatabase*, const AcDbObject* object, bool) override { changed(*object); }
    void goodbye(const AcDbDatabase*) override;

private:
    void changed(const AcDbObject& object);
    void clear();
    CachedElement& cached(AcDbObjectId id);
    void read(AcDbObjectId id, CachedElement& element);
    void placePoints(const DefinitionPoints& local, CachedElement& element);

    AcDbDatabase* database_;
    std::wstring layer_;
    IdMap<CachedElement> elements_;
    Points points_;                                         ///< Of all elements.
    ReferenceFacts facts_;                                  ///< Of the element that is read.
    std::unordered_map<std::wstring, AcDbObjectId> blocks_; ///< By name.
    std::unordered_map<AcDbObjectId, Read<DefinitionPoints>> definitions_;
    std::unordered_map<AcDbObjectId, std::uint64_t> groupVersions_;
    std::vector<AcDbObjectId> changedElements_;
    std::uint64_t generation_ = 0;
};

} // namespace zu
