#include "counted_element.h"

#include "attributes/attribute_record.h"
#include "frame/plain_number.h"
#include "route/link_record.h"

#include <zucomn/model/elements.h>

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

CountedElement countedFrom(const AcDbBlockReference& reference, const ReferenceFacts& facts,
                           ElementBlocks& blocks, const CStringArray& record,
                           const zucomn::QuantityAttributes& attributes) {
    CountedElement element;
    element.id = reference.objectId();
    element.block = facts.block;
    const ElementBlock& block = blocks.of(reference, element.block);
    element.definition = block.id;
    element.code = block.code;
    element.size = firstValue(record, attributes.size);
    element.use = firstValue(record, attributes.use);
    element.heights = heightsOf(record, element.block, attributes.height);
    (void)placePoints(block, facts.transform, element.points);
    return element;
}

std::optional<CountedElement> readCounted(AcDbObjectId id, ElementBlocks& blocks,
                                          const zucomn::QuantityAttributes& attributes) {
    const AcDbObjectPointer<AcDbBlockReference> reference(id);
    if (reference.openStatus() != Acad::eOk)
        return std::nullopt;
    CStringArray record;
    ApiComn_extractAttributesArray(reference.object(), kAttributeApplication, record);
    ReferenceFacts facts;
    readFacts(*reference.object(), facts);
    CountedElement element = countedFrom(*reference.object(), facts, blocks, record, attributes);
    element.kind = linkKindOf(*reference.object());
    return element;
}

} // namespace zu
