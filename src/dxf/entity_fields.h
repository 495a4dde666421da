#pragma once

#include "part_memory.h"

#include <zucomn/dxf.h>

#include <array>
#include <cstdint>

namespace zu::dxf {

/// How an entity uses the record of a group code.
enum class FieldKind : std::uint8_t {
    none,
    real,
    integer,
    shortInteger, ///< Clamped to the range of short.
    color,        ///< By layer when the number is no colour.
    text,
    name, ///< Text shared by many entities.
    handle,
    paper,
    mirrored,
    part,   ///< Piece of a long text.
    pointX, ///< Starts a vertex; the next four belong to the last vertex.
    pointY,
    pointBulge,
    pointStartWidth,
    pointEndWidth,
    embedded, ///< The records that follow are the data of an embedded object with the same group codes.
};

/// The member of an entity that stores the record of a group code.
struct FieldRule {
    FieldKind kind = FieldKind::none;
    std::uint32_t bit = 0; ///< Set in the entity when the record was present.
    union {
        double CEnt::*real = nullptr;
        int CEnt::*integer;
        short CEnt::*shortInteger;
        const KeptText* CEnt::*text;
        const CString* CEnt::*name;
    };
};

/// The group codes that entities store or interpret.
inline constexpr std::array kSupportedCodes{1,  2,  3,  4,  5,  7,  8,  10, 11, 20, 21, 40,  41,  42,
                                            43, 44, 45, 50, 51, 62, 67, 70, 71, 72, 73, 101, 230, 370};
inline constexpr int kLastSupportedCode = kSupportedCodes.back();

/// Indexes of rules by group code: 0 for unsupported group codes, then from 1 in the order of the codes.
inline constexpr auto kRuleIndexes = [] {
    std::array<std::uint8_t, kLastSupportedCode + 1> indexes{};
    std::uint8_t index = 0;
    for (const int code : kSupportedCodes)
        indexes[static_cast<std::size_t>(code)] = ++index;
    return indexes;
}();

inline constexpr std::size_t ruleIndex(int code) {
    return static_cast<unsigned>(code) <= kLastSupportedCode ? kRuleIndexes[static_cast<std::size_t>(code)]
                                                             : 0;
}

/// The rules of one type by their indexes.
using FieldRules = std::array<FieldRule, kSupportedCodes.size() + 1>;

/// A type of entity that drawings keep.
struct KeptType {
    EntType type;
    CEnt* (*make)(Arena& arena);
    FieldRules rules;
};

/// Grants readers access to the private members of entities.
struct EntityFields {
    /// Returns null when entities of that type name are not kept.
    static const KeptType* typeNamed(std::string_view name);

    static void addPresent(CEnt& entity, std::uint32_t bits) { entity.present_ |= bits; }
    static void setHandle(CEnt& entity, std::uint64_t handle) { entity.handle_ = handle; }
    static KeptArray<CDblPoint>& pointsOf(CEnt& polyline) { return static_cast<CLwPline&>(polyline).points_; }
    static KeptArray<CDblWidth>& widthsOf(CEnt& polyline) { return static_cast<CLwPline&>(polyline).widths_; }
    static KeptArray<KeptPart>& partsOf(CEnt& text) { return static_cast<CMtext&>(text).parts_; }

    struct Types;
};

/// Returns the bit that records the presence of a group code in an entity; 0 for unsupported codes.
constexpr std::uint32_t presenceBit(int code) {
    static_assert(kSupportedCodes.size() <= 32);
    const std::size_t index = ruleIndex(code);
    return index > 0 ? std::uint32_t{1} << (index - 1) : 0;
}

} // namespace zu::dxf
