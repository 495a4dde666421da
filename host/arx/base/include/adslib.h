#pragma once

#include "adesk.h"

using ads_real = double;
using ads_point = ads_real[3];
using ads_name = std::int64_t[2];

inline constexpr int RTNORM = 5100;
inline constexpr int RTERROR = -5001;
inline constexpr short RTNONE = 5000;
inline constexpr short RTREAL = 5001;
inline constexpr short RTSTR = 5005;
inline constexpr short RTSHORT = 5003;
inline constexpr short RTLONG = 5010;

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
        std::int64_t mnInt64;
        std::int32_t rlong;
        struct {
            short clen;
            char* buf; ///< Owned by the item.
        } rbinary;
        unsigned char ihandle[8];
    } resval{};
};

/// Returns a new item of the type; the caller frees it with acutRelRb.
resbuf* acutNewRb(int type);
/// Frees the item, those after it and what they own.
int acutRelRb(resbuf* chain);
/// Copies the text for `resval.rstring`; acutRelRb or acutDelString frees the copy. RTERROR and a null copy
/// for a null text.
int acutNewString(const ACHAR* text, ACHAR*& copy);
void acutDelString(ACHAR*& text);

/// Returns true for the types whose value is `resval.rstring`.
bool acutIsTextType(short type);

/// Returns the angle in radians, 0 to 2 pi, of the direction from one point to the other in the XY plane.
ads_real acutAngle(const ads_point from, const ads_point to);
/// Returns the distance between two points in space.
ads_real acutDistance(const ads_point a, const ads_point b);
