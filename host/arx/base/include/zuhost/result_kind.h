#pragma once

#include <zuhost/platform/export.h>

namespace zuhost {

/// What the value of a resbuf is, which its type determines.
enum class ResultKind : unsigned char {
    none, ///< No value: a list mark, or an unknown type.
    text,
    real,
    point,
    int16,
    int32,
    int64,
    name, ///< Of an entity or a selection set.
    chunk ///< Bytes.
};

/// Returns the kind of a group code or an RT code. The coordinates of a point other than the first are reals.
[[nodiscard]] ZUHOST_API ResultKind resultKind(int type);

} // namespace zuhost
