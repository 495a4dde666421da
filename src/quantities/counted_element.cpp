#include "counted_element.h"

#include "attributes/attribute_record.h"
#include "frame/plain_number.h"
#include "route/element_code.h"

#include <zucomn/model/elements.h>
#include <zucomn/route.h>

#include <arxutil.h>
#include <dbents.h>
#include <dbobjptr.h>

namespace zu {

namespace {

std::wstring firstValue(const CStringArray& record, const std::vector<std::wstring>& ids) {
    for (const std::wstring& id : ids)
        if (const std::wstring_view value = itemValue(record, id); !value.empty())
            return std::wstring(value);
    return {};
}

std::optional<HeightRange> heightsOf(const CStringArray& record, const std::wstring& block,
                                     const std::vector<std::wstring>& ids) {
    if (ids.empty() || !plainNumber(itemValue(record, ids.front())))
        return std::nullopt;
    return elementHeights(block, record, ids.front().c_str()).range;
}

} // namespace

bool CountedElement::isFitting() const {
    return code != zucomn::kEquipment && code != zucomn::kNoElement && !isLine();
}

CountedElement countedFrom(AcDbObjectId id, std::wstring block, const CStringArray& record,
                           const zucomn::QuantityAttributes& attributes) {
    CountedElement element;
    element.id = id;
    element.block = std::move(block);
    element.code = elementCode(element.block);
    element.size = firstValue(record, attributes.size);
    element.use = firstValue(record, attributes.use);
    element.heights = heightsOf(record, element.block, attributes.height);
    return element;
}

std::optional<CountedElement> readCounted(AcDbObjectId id, const zucomn::QuantityAttributes& attributes) {
    const AcDbObjectPointer<AcDbBlockReference> reference(id);
    if (reference.openStatus() != Acad::eOk)
        return std::nullopt;
    CStringArray record;
    ApiComn_extractAttributesArray(reference.object(), kAttributeApplication, record);
    CountedElement element = countedFrom(id, reference->blockName(), record, attributes);
    RootComn_GetBlockRootKind(id, &element.kind);
    if (auto points = connectionPoints(id, connectionLayer()))
        element.points = std::move(points.value);
    return element;
}

} // namespace zu
