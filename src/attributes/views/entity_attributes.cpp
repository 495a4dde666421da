#include "entity_attributes.h"

#include "attributes/attribute_record.h"
#include "attributes/model/progress_scope.h"
#include "frame/resource_ids.h"

#include <arxutil.h>

#include <deque>

namespace zu {

std::vector<ShownItem> shownItemsOf(std::span<const AcDbObjectId> entities) {
    ProgressScope progress(text::kReadingAttributes, entities.size());
    std::deque<CStringArray> lists;
    std::vector<const CStringArray*> found;
    for (const AcDbObjectId entity : entities) {
        CStringArray& list = lists.emplace_back();
        if (ApiComn_extractAttributesArrayID(entity, kAttributeApplication, list) == 0)
            found.push_back(&list);
        progress.advance();
    }
    return found.empty() ? std::vector<ShownItem>() : shownItems(found);
}

} // namespace zu
