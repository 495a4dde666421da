#include "adslib.h"

#include <cmath>
#include <cwchar>
#include <numbers>

namespace {

bool isBinaryType(short type) {
    return type == 1004 || (type >= 310 && type <= 319);
}

void release(resbuf* item) {
    if (acutIsTextType(item->restype))
        acutDelString(item->resval.rstring);
    else if (isBinaryType(item->restype))
        delete[] item->resval.rbinary.buf;
    delete item;
}

} // namespace

resbuf* acutNewRb(int type) {
    auto* item = new resbuf;
    item->restype = static_cast<short>(type);
    return item;
}

int acutRelRb(resbuf* chain) {
    while (chain != nullptr) {
        resbuf* const next = chain->rbnext;
        release(chain);
        chain = next;
    }
    return RTNORM;
}

int acutNewString(const ACHAR* text, ACHAR*& copy) {
    copy = nullptr;
    if (text == nullptr)
        return RTERROR;
    const std::size_t size = std::wcslen(text) + 1;
    copy = new ACHAR[size];
    std::wmemcpy(copy, text, size);
    return RTNORM;
}

void acutDelString(ACHAR*& text) {
    delete[] text;
    text = nullptr;
}

bool acutIsTextType(short type) {
    return type == RTSTR || (type >= 0 && type <= 9) || (type >= 100 && type <= 105) ||
           (type >= 300 && type <= 309) || (type >= 410 && type <= 419) || (type >= 430 && type <= 439) ||
           (type >= 470 && type <= 479) || (type >= 999 && type <= 1009 && type != 1004);
}

ads_real acutAngle(const ads_point from, const ads_point to) {
    const double angle = std::atan2(to[1] - from[1], to[0] - from[0]);
    return angle < 0.0 ? angle + 2.0 * std::numbers::pi : angle;
}

ads_real acutDistance(const ads_point a, const ads_point b) {
    return std::hypot(b[0] - a[0], b[1] - a[1], b[2] - a[2]);
}
