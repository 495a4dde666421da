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

/// One item of a chain of typed values.
struct resbuf {
    resbuf* rbnext = nullptr;
    short restype = 0; ///< A group code, or one of the RT codes.
    union Value {
        ads_real rreal;
        ads_real rpoint[3];
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

/// A new item with the type; freed with acutRelRb.
resbuf* acutNewRb(int type);
/// Frees the whole chain and what its items own.
int acutRelRb(resbuf* chain);
/// A copy of the text for `resval.rstring`; freed by acutRelRb or acutDelString. RTERROR, and null, for null.
int acutNewString(const ACHAR* text, ACHAR*& copy);
void acutDelString(ACHAR*& text);

/// True for the group codes whose values are texts in a chain.
bool acutIsTextType(short type);

/// Angle in radians, 0 to 2 pi, of the direction from one point to the other in the XY plane.
ads_real acutAngle(const ads_point from, const ads_point to);
/// Distance of two points in space.
ads_real acutDistance(const ads_point a, const ads_point b);
