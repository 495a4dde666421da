#include <zucomn/dbservices.h>
#include <zucomn/route.h>

#include <dbmain.h>
#include <dbobjptr.h>

int ZuComn_ExistenceIdCheck(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbObject> object(id, AcDb::kForRead);
    return object.openStatus() == Acad::eOk ? 0 : 1;
}

void ZuComn_ExistenceIdChecks(AcArray<AcDbObjectId>& ids) {
    AcArray<AcDbObjectId> live;
    for (const AcDbObjectId id : ids)
        if (ZuComn_ExistenceIdCheck(id) == 0)
            live.append(id);
    ids = live;
}

void ZuComn_ExistenceGroupIdCheck(AcDbObjectId group, AcDbObjectId element) {
    if (ZuComn_ExistenceIdCheck(element) != 0)
        RootComn_DelGroupMember(group, element);
}

void ZuComn_ExistenceGroupIdChecks(AcDbObjectId group) {
    AcArray<AcDbObjectId> members;
    RootComn_GetGroupMember(group, members);
    for (const AcDbObjectId member : members)
        ZuComn_ExistenceGroupIdCheck(group, member);
}

void ZuComn_ExistenceGroupIdChecks(AcDbObjectId group, AcArray<AcDbObjectId>& ids) {
    const AcArray<AcDbObjectId> given = ids;
    ZuComn_ExistenceIdChecks(ids);
    for (const AcDbObjectId id : given)
        ZuComn_ExistenceGroupIdCheck(group, id);
}
