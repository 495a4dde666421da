#pragma once

#include "part_memory.h"

#include <zucomn/dxf.h>

#include <array>
#include <cstdint>

namespace zu::dxf {

/// What the record of a group code is to an entity.
enum class FieldKind : std::uint8_t {
    none,
    real,
    integer,
    shortInteger, ///< The nearest one that a short holds.
    color,        ///< By layer when it is none.
    text,
    name, ///< Text that many entities share.
    handle,
    paper,
    mirrored,
    part,       ///< Piece of a long text.
    pointX,     ///< Begins a vertex.
    pointY,     ///< Of the last vertex,
    pointBulge, ///< its bulge,
    pointStartWidth,
    pointEndWidth, ///< and its widths.
    embedded,      ///< What follows is another object's data, under the same group codes.
};

/// Where the record of a group code goes.
struct FieldRule {
    FieldKind kind = FieldKind::none;
    std::uint32_t bit = 0; ///< By which the entity remembers the record.
    union {
        double CEnt::*real = nullptr;
        int CEnt::*integer;
        short CEnt::*shortInteger;
        const KeptText* CEnt::*text;
        const CString* CEnt::*name;
    };
};

/// The group codes that entities keep or heed.
inline constexpr std::array kHeededCodes{1,  2,  3,  4,  5,  7,  8,  10, 11, 20, 21, 40,  41,  42,
                                         43, 44, 45, 50, 51, 62, 67, 70, 71, 72, 73, 101, 230, 370};
inline constexpr int kLastHeededCode = kHeededCodes.back();

/// Places of rules by group code: 0 of what is not heeded, else 1 and so on in the order of the codes.
inline constexpr auto kRulePlaces = [] {
    std::array<std::uint8_t, kLastHeededCode + 1> places{};
    std::uint8_t place = 0;
    for (const int code : kHeededCodes)
        places[static_cast<std::size_t>(code)] = ++place;
    return places;
}();

inline constexpr std::size_t rulePlace(int code) {
    return static_cast<unsigned>(code) <= kLastHeededCode ? kRulePlaces[static_cast<std::size_t>(code)] : 0;
}

/// The rules of one type by their places.
using FieldRules = std::array<FieldRule, kHeededCodes.size() + 1>;

/// A type of entity that is kept.
struct KeptType {
    EntType type;
    CEnt* (*make)(Arena& arena);
    FieldRules rules;
};

/// The way into the entities' own members.
struct EntityFields {
    /// Null when entities of that name are not kept.
    static const KeptType* typeNamed(std::string_view name);

    static void addPresent(CEnt& entity, std::uint32_t bits) { entity.present_ |= bits; }
    static void setHandle(CEnt& entity, std::uint64_t handle) { entity.handle_ = handle; }
    static KeptArray<CDblPoint>& pointsOf(CEnt& polyline) { return static_cast<CLwPline&>(polyline).points_; }
    static KeptArray<CDblWidth>& widthsOf(CEnt& polyline) { return static_cast<CLwPline&>(polyline).widths_; }
    static KeptArray<KeptPart>& partsOf(CEnt& text) { return static_cast<CMtext&>(text).parts_; }

    struct Types;
};

/// By which an entity remembers that there was a record of that group code; 0 where none does.
constexpr std::uint32_t presenceBit(int code) {
    static_assert(kHeededCodes.size() <= 32);
    const std::size_t place = rulePlace(code);
    return place > 0 ? std::uint32_t{1} << (place - 1) : 0;
}

} // namespace zu::dxf
