#pragma once

#include "adesk.h"
#include "adscodes.h"

using ads_real = double;
using ads_point = ads_real[3];
/// Names an entity or a selection set; all zero is no name.
using ads_name = std::int64_t[2];

/// Indices of an ads_point.
enum { X = 0, Y = 1, Z = 2 };

/// An item of a linked list ("chain") of typed values.
struct resbuf {
    resbuf* rbnext = nullptr;
    short restype = 0; ///< A group code, or one of the RT codes.
    /// The largest member comes first: empty braces initialise the first one only.
    union Value {
        ads_real rpoint[3];
        ads_real rreal;
        short rint;
        ACHAR* rstring; ///< Owned by the item.
        ads_name rlname;
        std::int64_t mnInt64;
        std::int32_t rlong;
        struct {
            short clen;
            char* buf; ///< Owned by the item.
        } rbinary;
        unsigned char ihandle[8];
    } resval{};
};

inline void ads_point_set(const ads_real* from, ads_real* to) {
    to[X] = from[X];
    to[Y] = from[Y];
    to[Z] = from[Z];
}

inline void ads_name_set(const std::int64_t* from, std::int64_t* to) {
    to[0] = from[0];
    to[1] = from[1];
}
inline void ads_name_clear(std::int64_t* name) {
    name[0] = name[1] = 0;
}
[[nodiscard]] inline bool ads_name_equal(const std::int64_t* a, const std::int64_t* b) {
    return a[0] == b[0] && a[1] == b[1];
}
[[nodiscard]] inline bool ads_name_nil(const std::int64_t* name) {
    return name[0] == 0 && name[1] == 0;
}
