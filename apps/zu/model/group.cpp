#include "model/group.h"

#include "text.h"

#include <dbgroup.h>
#include <zucomn/model/groups.h>

namespace zu::app {

bool isGroup(AcDbObjectId id) {
    return id.objectClass()->isDerivedFrom(AcDbGroup::desc());
}

Group readGroup(AcDbObjectId id) {
    const zucomn::Group read = zucomn::readGroup(id).value_or(zucomn::Group());
    return {id, narrow(read.name), read.number, read.kind, read.isRouteGroup, read.members};
}

} // namespace zu::app
