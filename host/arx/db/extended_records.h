#pragma once

#include "adesk.h"
#include "drawing/tag_view.h"

#include <cstddef>
#include <optional>
#include <string>

/// The extended data of objects, in their records.
namespace zuhost {

struct DatabaseCore;

inline constexpr int kApplicationName = 1001;
/// Bytes that an object may have.
inline constexpr std::size_t kExtendedSizeLimit = 16383;

/// Return the bytes that values count for in the size limit.
[[nodiscard]] std::size_t storedSize(const TagRef& tag);
[[nodiscard]] std::size_t storedSize(const TagView& tags);

/// Returns the registered name that equals the application's ignoring case, in the drawing's encoding.
[[nodiscard]] std::optional<std::string> registeredName(DatabaseCore& core, const ACHAR* application);
/// As above; without a core for an object that is in no drawing: the working database decides.
[[nodiscard]] std::optional<std::string> storedName(DatabaseCore* core, const ACHAR* application);

/// Removes the data of the application.
void removeExtendedData(TagList& tags, const std::string& name);

/// Replaces the data of the application whose name begins the replacement; a name alone removes it. Texts
/// equal to those they replace keep their stored form, as with escapes ("\\U+33a5").
void replaceExtendedData(TagList& tags, TagList replacement, const DatabaseCore* core);

} // namespace zuhost
