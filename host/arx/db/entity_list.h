#pragma once

#include "drawing/tag_view.h"

#include <cstddef>
#include <span>
#include <vector>

struct resbuf;

namespace zuhost {

struct DatabaseCore;

/// One item of an entity's list and its records.
struct ListItem {
    int code = 0;
    std::vector<Tag> records; ///< Those of a point's coordinates.
};

/// Splits the records of an entity as its list has them: a point is one item.
[[nodiscard]] std::vector<ListItem> listItems(const TagView& tags);

/// Converts the items of a list that are records of the entity itself: without its name, extended data,
/// handle and owner.
[[nodiscard]] std::vector<ListItem> listItems(const resbuf* list, const DatabaseCore& core, bool isPlane);

/// Returns whether the points of an entity of the type are in a plane: their records have no z.
[[nodiscard]] bool hasPlanePoints(std::string_view type);

/// Returns the extended data of a list: the item after -3; null without any.
[[nodiscard]] const resbuf* extendedDataOf(const resbuf* list);

} // namespace zuhost
