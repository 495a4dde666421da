#pragma once

#include "drawing/document.h"

#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace zuhost {

/// Type of the record that ends the vertices of a polyline or the attributes of a block reference.
inline constexpr std::string_view kSequenceEnd = "SEQEND";

/// Returns whether objects of the type belong to the entity before them.
constexpr bool isPartType(std::string_view type) {
    return type == "VERTEX" || type == "ATTRIB" || type == kSequenceEnd;
}

/// The vertices of polylines and the attributes of block references, with the records that end them, in their
/// order. Built in one pass on first use.
class PartIndex {
public:
    /// Returns the parts of an entity, erased ones included.
    const std::vector<AcDbStub*>& of(const Document& document, const AcDbStub& owner);
    /// Adds a new part as the last before the end of the sequence. Call `of` with its owner before the
    /// document has the part.
    void add(const Document& document, AcDbStub& part);
    /// Moves the new parts after their owners: drawings have them there.
    void arrange(Document& document);
    /// Returns a number that grows with each arrangement that moves objects.
    [[nodiscard]] std::uint64_t arrangements() const { return arrangements_; }
    void clear() { *this = PartIndex(); }

private:
    bool isBuilt_ = false;
    std::uint64_t arrangements_ = 0;
    std::unordered_map<const AcDbStub*, std::vector<AcDbStub*>> parts_;
    std::unordered_set<const AcDbStub*> changed_; ///< Owners that have new parts.
};

} // namespace zuhost
