#pragma once

#include <zucomn/frame.h>
#include <zucomn/route.h>

inline double distanceInPlan(const AcGePoint3d& a, const AcGePoint3d& b) {
    return AcGePoint3d(a.x, a.y, 0.0).distanceTo(AcGePoint3d(b.x, b.y, 0.0));
}

/// The rule of the connection search, step by step without any index: the reference for the search.
inline int plainConnectBlock(const AcDbObjectIdArray& candidates, AcDbObjectId element,
                             const AcGePoint3d* given, AcDbObjectIdArray& result, int kindFilter) {
    // Changing the case of the layer's name makes the search read the definitions again.
    CString layer = ZUCONECT_LAYER;
    layer.MakeLower();
    AcArray<AcGePoint3d> points;
    if (ZuComn_GetConnectPoint(element, points, layer) != 0)
        return -1;
    if (given != nullptr) {
        points.removeAll();
        points.append(*given);
    }
    double large = 0.0;
    double small = 0.0;
    ZuComn_getTolerance(&large, &small);
    const double tolerance = ZuComn_GetGlobalScale() > 1.0 ? large : small;
    for (const AcGePoint3d& point : points) {
        for (const AcDbObjectId candidate : candidates) {
            AcArray<AcGePoint3d> own;
            ZuComn_GetConnectPoint(candidate, own, layer);
            if (candidate == element || own.isEmpty())
                continue;
            double least = distanceInPlan(own.first(), point);
            for (const AcGePoint3d& other : own)
                if (const double distance = distanceInPlan(other, point); distance < least)
                    least = distance;
            if (!(tolerance >= least))
                continue;
            int kind = -1;
            RootComn_GetBlockRootKind(candidate, &kind);
            const bool isWanted = kindFilter == 0 || kind == 0 || kind == kindFilter;
            if (isWanted && !result.contains(candidate))
                result.append(candidate);
        }
    }
    return 0;
}

inline int plainConnectBlock(AcDbObjectId group, AcDbObjectId element, AcDbObjectIdArray& result,
                             int kindFilter) {
    AcDbObjectIdArray members;
    if (RootComn_GetGroupMember(group, members) != 0)
        return -1;
    return plainConnectBlock(members, element, nullptr, result, kindFilter);
}
