#pragma once

#include <zuhost/string_pool.h>

/// Texts in large numbers. A table has a text for each field, which the embedded host creates without an
/// allocation for each. bare/text_pool.h needs the interface only.
namespace zu {

using TextPool = zuhost::StringPool;

} // namespace zu
