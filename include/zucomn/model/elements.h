#pragma once

#include "../export.h"

#include <dbid.h>
#include <gepnt3d.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

class AcDbDatabase;

namespace zucomn {

// Element codes that are no fittings; see ZuComn_GetBlockElementCode.
inline constexpr int kEquipment = 0;
inline constexpr int kNoElement = 100; ///< The block's name has no element prefix.

/// Returns an element code in words, the same in every language: "route line", "tee" ..., "fitting 21" for
/// fittings without a name of their own, "-" for kNoElement.
[[nodiscard]] ZUCOMN_API std::wstring elementKindName(int code);

/// A kind that route groups have.
struct RouteKind {
    int number = 0;           ///< The link kind of the group's elements.
    std::wstring name;        ///< In the user's language.
    std::uint32_t colour = 0; ///< 0xRRGGBB, in which plans show it.
};

/// Returns all route kinds, lowest number first.
[[nodiscard]] ZUCOMN_API std::vector<RouteKind> routeKinds();

/// True when groups of elements with the link kind are routes.
[[nodiscard]] ZUCOMN_API bool isRouteKind(int linkKind);

/// What a block reference is in the product.
struct Element {
    AcDbObjectId id;
    std::wstring block;      ///< The name of its block.
    int code = kNoElement;   ///< See ZuComn_GetBlockElementCode.
    int linkKind = -1;       ///< See RootComn_GetBlockRootKind.
    std::wstring layer;      ///< The name of its layer.
    bool isOnLocked = false; ///< Its layer is locked, so that edits skip it.
    bool isVisible = true;   ///< It is not hidden by itself; its layer may be off.
    AcGePoint3d origin;
    std::vector<AcGePoint3d> connectionPoints; ///< In plan (Z is 0); none when one can't be read.
    std::vector<AcDbObjectId> groups;          ///< See ZuComn_GetGroupID.
};

/// Returns nullopt when the object is no block reference or can't be opened.
[[nodiscard]] ZUCOMN_API std::optional<Element> readElement(AcDbObjectId id);

enum class ElementGroups { read, leaveEmpty };

/// Calls `take` with what readElement returns for each object, in order; skips the objects for which it
/// returns nullopt. Faster than readElement for many elements: blocks and layers are read once, so `take`
/// must not change them; and faster still when Element::groups stays empty.
ZUCOMN_API void readElements(std::span<const AcDbObjectId> ids,
                             const std::function<void(const Element&)>& take,
                             ElementGroups groups = ElementGroups::read);

/// Returns the entities of the drawing's model space, in drawing order; none when it can't be opened.
[[nodiscard]] ZUCOMN_API std::vector<AcDbObjectId> modelSpaceEntities(const AcDbDatabase& drawing);

/// Returns the block references among the entities of model space.
[[nodiscard]] ZUCOMN_API std::vector<AcDbObjectId> modelSpaceReferences(const AcDbDatabase& drawing);

} // namespace zucomn
