#include "model/group.h"

#include "text.h"

#include <dbgroup.h>
#include <zucomn/route.h>

namespace zu::app {

namespace {

int groupNumber(const CString& name) {
    const int marked = CString(name).MakeUpper().Find(L"RTGR");
    return _wtoi(marked >= 0 ? name.Mid(marked + 4, 5) : name.Mid(2));
}

} // namespace

bool Group::isRouteGroup() const {
    return name.starts_with("*A") || wide(name).Left(4).CompareNoCase(L"RTGR") == 0;
}

bool isGroup(AcDbObjectId id) {
    return id.objectClass()->isDerivedFrom(AcDbGroup::desc());
}

Group readGroup(AcDbObjectId id) {
    Group group;
    group.id = id;
    CString name;
    RootComn_GetGroupNameFromGroupOid(id, name);
    group.name = narrow(name.view());
    group.number = groupNumber(name);
    RootComn_GetRootKind2(id, &group.kind);
    RootComn_GetGroupMember(id, group.members);
    return group;
}

} // namespace zu::app
