#pragma once

#include <zucomn/frame.h>
#include <zucomn/route.h>

/// The rule of the connection search, told step by step without any index: the reference that searches are
/// compared with.
inline int plainConnectBlock(const AcDbObjectIdArray& candidates, AcDbObjectId element,
                             const AcGePoint3d* given, AcDbObjectIdArray& result, int kindFilter) {
    AcArray<AcGePoint3d> points;
    if (ZuComn_GetConnectPoint(element, points) != 0)
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
            AcGePoint3d nearest;
            double distance = 0.0;
            if (candidate == element ||
                RootComn_GetNearConnectPoint(candidate, point, nearest, &distance) != 0 ||
                !(tolerance >= distance))
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
