#pragma once

#include "reference_facts.h"
#include "route/element_blocks.h"
#include "route/element_heights.h"

#include <zucomn/model/quantities.h>

#include <dbid.h>

#include <optional>
#include <string>

namespace zu {

/// What quantities need of an element.
struct CountedElement {
    AcDbObjectId id;
    int kind = -1;
    int code = 0;
    AcDbObjectId definition; ///< Of its block.
    std::wstring block;
    std::wstring size;
    std::wstring use;
    std::optional<HeightRange> heights; ///< Only where the attribute is a number.
    Points points;                      ///< Its connection points, in plan.
    std::size_t placeHash = 0;          ///< Of its definition and place, for audits.

    [[nodiscard]] bool isLine() const { return code == kRouteLine || code == kMainRouteLine; }
    [[nodiscard]] bool isFitting() const;

    static constexpr int kRouteLine = 1;
    static constexpr int kMainRouteLine = 2;
};

/// Returns the element with these facts, with all but its kind, which is that of its link record.
[[nodiscard]] CountedElement countedFrom(const AcDbBlockReference& reference, const ReferenceFacts& facts,
                                         ElementBlocks& blocks, const CStringArray& record,
                                         const zucomn::QuantityAttributes& attributes);

/// Returns nullopt when the object is no block reference or cannot be opened.
[[nodiscard]] std::optional<CountedElement> readCounted(AcDbObjectId id, ElementBlocks& blocks,
                                                        const zucomn::QuantityAttributes& attributes);

} // namespace zu
