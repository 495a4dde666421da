#include "acutads.h"
#include "zuhost/result_kind.h"

#include <cmath>
#include <cwchar>
#include <numbers>

namespace {

void release(resbuf* item) {
    const zuhost::ResultKind kind = zuhost::resultKind(item->restype);
    if (kind == zuhost::ResultKind::text)
        acutDelString(item->resval.rstring);
    else if (kind == zuhost::ResultKind::chunk)
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

int acutUpdString(const ACHAR* text, ACHAR*& copy) {
    ACHAR* const previous = copy;
    const int result = acutNewString(text, copy); // first: the text may be the previous one
    delete[] previous;
    return result;
}

void acutDelString(ACHAR*& text) {
    delete[] text;
    text = nullptr;
}

ads_real acutAngle(const ads_point from, const ads_point to) {
    const double angle = std::atan2(to[1] - from[1], to[0] - from[0]);
    return angle < 0.0 ? angle + 2.0 * std::numbers::pi : angle;
}

ads_real acutDistance(const ads_point a, const ads_point b) {
    return std::hypot(b[0] - a[0], b[1] - a[1], b[2] - a[2]);
}

void acutPolar(const ads_point from, ads_real angle, ads_real distance, ads_point result) {
    const ads_point there{from[X] + distance * std::cos(angle), from[Y] + distance * std::sin(angle),
                          from[Z]};
    ads_point_set(there, result);
}
