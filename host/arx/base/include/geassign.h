#pragma once

#include "adsdef.h"
#include "gepnt3d.h"

// Points and vectors as arrays of their coordinates, without a copy. A point made of an array of two has no
// z: do not read it.

static_assert(sizeof(AcGePoint3d) == sizeof(ads_point) && sizeof(AcGeVector3d) == sizeof(ads_point) &&
              sizeof(AcGePoint2d) == 2 * sizeof(ads_real));

inline AcGePoint2d& asPnt2d(const ads_real* p) {
    return *reinterpret_cast<AcGePoint2d*>(const_cast<ads_real*>(p));
}
inline AcGePoint3d& asPnt3d(const ads_real* p) {
    return *reinterpret_cast<AcGePoint3d*>(const_cast<ads_real*>(p));
}
inline AcGeVector2d& asVec2d(const ads_real* v) {
    return *reinterpret_cast<AcGeVector2d*>(const_cast<ads_real*>(v));
}
inline AcGeVector3d& asVec3d(const ads_real* v) {
    return *reinterpret_cast<AcGeVector3d*>(const_cast<ads_real*>(v));
}
inline ads_real* asDblArray(const AcGePoint2d& p) {
    return const_cast<ads_real*>(&p.x);
}
inline ads_real* asDblArray(const AcGePoint3d& p) {
    return const_cast<ads_real*>(&p.x);
}
inline ads_real* asDblArray(const AcGeVector2d& v) {
    return const_cast<ads_real*>(&v.x);
}
inline ads_real* asDblArray(const AcGeVector3d& v) {
    return const_cast<ads_real*>(&v.x);
}
