#include "connection_points.h"
#include "element_code.h"
#include "link_record.h"

#include <zucomn/attributes.h>
#include <zucomn/route.h>

#include <arxutil.h>
#include <dbents.h>
#include <dbobjptr.h>

namespace {

double attributeNumber(AcDbObjectId element, const wchar_t* key) {
    return _wtof(CAttributeData().GetValueAttID(element, key));
}

} // namespace

int ZuComn_GetBlockElementCode(const AcDbObjectId& element, int& code) {
    const AcDbObjectPointer<AcDbBlockReference> reference(element);
    if (reference.openStatus() != Acad::eOk)
        return -1;
    code = zu::elementCode(reference->blockName());
    return 0;
}

int RootComn_GetBlockRootKind(const AcDbObjectId& element, int* kind) {
    if (kind == nullptr)
        return 0;
    CStringArray record;
    ApiComn_extractAttributesArrayID(element, zu::kLinkApplication, record);
    *kind = record.IsEmpty() ? -1 : zu::linkKind(record[0].view());
    return 0;
}

int RootComn_GetOriginPoint(const AcDbObjectId& element, AcGePoint3d& origin) {
    const AcDbObjectPointer<AcDbBlockReference> reference(element);
    if (reference.openStatus() != Acad::eOk)
        return -1;
    origin = reference->position();
    return 0;
}

int RootComn_SetOriginPoint(const AcDbObjectId& element, const AcGePoint3d& origin) {
    const AcDbObjectPointer<AcDbBlockReference> reference(element, AcDb::kForWrite);
    if (reference.openStatus() != Acad::eOk)
        return -1;
    return reference->setPosition(origin) == Acad::eOk ? 0 : -1;
}

int RootComn_GetOBlockHeight(const AcDbObjectId& element, int& kind, double& low, double& high) {
    const AcDbObjectPointer<AcDbBlockReference> reference(element);
    if (reference.openStatus() != Acad::eOk)
        return -1;
    const std::wstring name = reference->blockName();
    if (name.starts_with(L"KK-")) {
        kind = 0;
        return 0;
    }
    const double height = attributeNumber(element, L"S401");
    if (zu::startsWithNoCase(name, L"RBS-")) {
        kind = 4;
        low = height;
        high = height + attributeNumber(element, L"S304");
        return 0;
    }
    const bool isLine = zu::startsWithNoCase(name, L"RT-") || zu::startsWithNoCase(name, L"RTM-");
    if (!isLine && attributeNumber(element, L"S402") != 0.0) {
        kind = 2;
        return 0;
    }
    kind = isLine ? 3 : 1;
    low = height;
    high = height;
    return 0;
}
