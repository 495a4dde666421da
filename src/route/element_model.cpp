#include "attributes/attribute_record.h"
#include "connection_points.h"
#include "element_code.h"
#include "element_heights.h"
#include "entity_names.h"
#include "frame/text_view.h"
#include "link_record.h"

#include <zucomn/attributes.h>
#include <zucomn/route.h>

#include <arxutil.h>
#include <dbents.h>
#include <dbobjptr.h>

namespace {

/// The number in the value of the first item with the id, as CAttributeData::GetValueAtt finds it; 0 without
/// one.
double attributeNumber(const CStringArray& record, std::wstring_view id) {
    if (id.ends_with(zu::kFieldSeparator))
        id.remove_suffix(1);
    for (int i = 0; i < record.GetSize(); ++i) {
        const wchar_t* const text = record[i];
        // What follows the value is no part of a number.
        if (zu::view(record[i]).starts_with(id) && text[id.size()] == zu::kFieldSeparator)
            return _wtof(text + id.size() + 1);
    }
    return 0.0;
}

} // namespace

int ZuComn_GetBlockElementCode(const AcDbObjectId& element, int& code) {
    const AcDbObjectPointer<AcDbBlockReference> reference(element);
    if (reference.openStatus() != Acad::eOk)
        return -1;
    code = zu::elementCode(zu::blockName(*reference));
    return 0;
}

int RootComn_GetBlockRootKind(const AcDbObjectId& element, int* kind) {
    if (kind == nullptr)
        return 0;
    const AcDbObjectPointer<AcDbObject> object(element);
    *kind = object.openStatus() == Acad::eOk ? zu::linkKindOf(*object.object()) : -1;
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

zu::ElementHeights zu::elementHeights(std::wstring_view block, const CStringArray& record,
                                      const wchar_t* heightId) {
    if (block.starts_with(L"KK-"))
        return {0, {}};
    const double height = attributeNumber(record, heightId);
    if (startsWithNoCase(block, L"RBS-"))
        return {4, HeightRange{height, height + attributeNumber(record, L"S304")}};
    const bool isLine = startsWithNoCase(block, L"RT-") || startsWithNoCase(block, L"RTM-");
    if (!isLine && attributeNumber(record, L"S402") != 0.0)
        return {2, {}};
    return {isLine ? 3 : 1, HeightRange{height, height}};
}

int RootComn_GetOBlockHeight(const AcDbObjectId& element, int& kind, double& low, double& high) {
    const AcDbObjectPointer<AcDbBlockReference> reference(element);
    if (reference.openStatus() != Acad::eOk)
        return -1;
    CStringArray record;
    ApiComn_extractAttributesArray(reference.object(), zu::kAttributeApplication, record);
    const zu::ElementHeights heights = zu::elementHeights(zu::blockName(*reference), record);
    kind = heights.kind;
    if (heights.range) {
        low = heights.range->low;
        high = heights.range->high;
    }
    return 0;
}
