#include "edit_elements.h"

#include "attributes/attribute_record.h"
#include "frame/plain_number.h"
#include "frame/resource_ids.h"
#include "frame/text_view.h"
#include "layer_locks.h"
#include "progress_scope.h"

#include <arxutil.h>
#include <dbmain.h>
#include <zucomn/attributes.h>

#include <algorithm>
#include <set>

using zucomn::EditedElement;
using zucomn::EditOutcome;

namespace zu {

namespace {

constexpr const wchar_t* kMountingHeight = L"S401";

/// Groups the changes made during its lifetime into one undo step per drawing.
class UndoStep {
public:
    explicit UndoStep(std::span<const AcDbObjectId> elements) {
        for (const AcDbObjectId id : elements)
            if (AcDbDatabase* const drawing = id.database())
                drawings_.insert(drawing);
        begin();
    }
    ~UndoStep() { begin(); } // so that later changes form another step
    UndoStep(const UndoStep&) = delete;
    UndoStep& operator=(const UndoStep&) = delete;

private:
    void begin() const {
        for (AcDbDatabase* const drawing : drawings_)
            drawing->startUndoRecord();
    }

    std::set<AcDbDatabase*> drawings_;
};

/// Returns true unless the record has a mounting height that is not a number.
bool canBePlaced(const CStringArray& record) {
    const CString height = CAttributeData::GetValueAtt(&record, kMountingHeight).Trim();
    return height.IsEmpty() || plainNumber(zu::view(height));
}

bool hasAnyOf(const CStringArray& record, std::span<const ShownItem> values) {
    return std::any_of(values.begin(), values.end(), [&](const ShownItem& item) {
        return CAttributeData::FindAtt(&record, item.key) >= 0;
    });
}

EditedElement edit(AcDbObjectId element, std::span<const ShownItem> values, const CString& lockedLayer) {
    CStringArray record;
    const bool isRead = ApiComn_extractAttributesArrayID(element, kAttributeApplication, record) == 0;
    EditedElement edited{element, EditOutcome::noAttribute, isRead && hasAnyOf(record, values), false,
                         std::wstring(zu::view(lockedLayer))};
    if (!lockedLayer.IsEmpty()) {
        edited.outcome = EditOutcome::lockedLayer;
    } else if (edited.hasAttribute) {
        if (!applyItems(record, values)) {
            edited.outcome = EditOutcome::unchanged;
        } else if (ApiComn_appendAttributesArray(element, kAttributeApplication, record) != 0) {
            edited.outcome = EditOutcome::failed;
        } else {
            edited.outcome = EditOutcome::changed;
            edited.isUnplaced = !canBePlaced(record);
        }
    }
    return edited;
}

} // namespace

std::vector<EditedElement> editElements(std::span<const AcDbObjectId> elements,
                                        std::span<const ShownItem> values) {
    const UndoStep step(elements);
    ProgressScope progress(text::kWritingAttributes, elements.size());
    LayerLocks locks;
    std::vector<EditedElement> edited;
    edited.reserve(elements.size());
    for (const AcDbObjectId element : elements) {
        edited.push_back(edit(element, values, locks.lockedLayer(element)));
        progress.advance();
    }
    return edited;
}

} // namespace zu

std::vector<EditedElement> zucomn::editAttributes(std::span<const AcDbObjectId> elements,
                                                  std::span<const AttributeValue> values) {
    std::vector<zu::ShownItem> items;
    for (const AttributeValue& value : values)
        if (valueFault(value.value) == ValueFault::none)
            items.push_back({zu::textOf(value.id) + L"|", zu::textOf(value.value)});
    return zu::editElements(elements, items);
}

std::vector<zucomn::AttributeRow> zucomn::readAttributes(AcDbObjectId element) {
    std::vector<AttributeRow> rows;
    CStringArray list;
    if (ApiComn_extractAttributesArrayID(element, zu::kAttributeApplication, list) != 0)
        return rows;
    const auto record = zu::decodeRecord(list);
    if (!record)
        return rows;
    const auto text = [](const CString& field) { return std::wstring(zu::view(field)); };
    for (const zu::ItemFields& item : record->items) {
        AttributeRow& row = rows.emplace_back(AttributeRow{text(record->first), text(record->second),
                                                           text(CAttributeData::GetItemName(item[0]))});
        std::transform(item.begin(), item.end(), row.begin() + zu::kFirstStoredColumn, text);
    }
    return rows;
}
