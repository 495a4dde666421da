#include "attributes/model/write_back.h"

#include "attributes/model/layer_locks.h"
#include "attributes/model/progress_scope.h"
#include "frame/library_text.h"
#include "frame/module_state.h"
#include "frame/resource_ids.h"

#include <acutads.h>
#include <afxwin.h>
#include <arxutil.h>
#include <dbmain.h>
#include <zucomn/attributes.h>

#include <charconv>
#include <cmath>
#include <set>

namespace zu {

namespace {

constexpr const wchar_t* kApplication = L"ZU_ATTR";
constexpr const wchar_t* kMountingHeight = L"S401";
constexpr const wchar_t* kUpdateSections = L"ZU_ATTREDIT_SEC3D";

bool tellWhenLocked(const CString& layer) {
    if (layer.IsEmpty())
        return false;
    CString message = libraryText(text::kLayerLocked);
    message.Replace(L"%s", layer);
    AfxMessageBox(message, MB_OK | MB_ICONSTOP);
    return true;
}

/// What is changed in the drawings of the entities during its life is one undo step of each.
class UndoStep {
public:
    explicit UndoStep(std::span<const AcDbObjectId> entities) {
        for (const AcDbObjectId id : entities)
            if (AcDbDatabase* const drawing = id.database())
                drawings_.insert(drawing);
        begin();
    }
    ~UndoStep() { begin(); } // what is changed later is another step
    UndoStep(const UndoStep&) = delete;
    UndoStep& operator=(const UndoStep&) = delete;

private:
    void begin() const {
        for (AcDbDatabase* const drawing : drawings_)
            drawing->startUndoRecord();
    }

    std::set<AcDbDatabase*> drawings_;
};

bool isNumber(const CString& text) {
    std::string digits;
    for (const wchar_t c : text.view())
        digits += static_cast<char32_t>(c) < 0x80 ? static_cast<char>(c) : '?';
    const char* const first = digits.data() + (digits.starts_with('+') ? 1 : 0);
    const char* const last = digits.data() + digits.size();
    double number = 0.0;
    const auto [end, error] = std::from_chars(first, last, number);
    return error == std::errc() && end == last && std::isfinite(number);
}

/// False for a record whose mounting height is no number; one without a height is all right.
bool canBePlaced(const CStringArray& record) {
    const CString height = CAttributeData::GetValueAtt(&record, kMountingHeight).Trim();
    return height.IsEmpty() || isNumber(height);
}

struct Outcome {
    int changed = 0;
    int unplaced = 0;
};

void writeEntity(AcDbObjectId entity, std::span<const ShownItem> writable, Outcome& outcome) {
    CStringArray record;
    if (ApiComn_extractAttributesArrayID(entity, kApplication, record) != 0 ||
        !applyItems(record, writable) || ApiComn_appendAttributesArray(entity, kApplication, record) != 0)
        return;
    ++outcome.changed;
    if (!canBePlaced(record))
        ++outcome.unplaced;
}

Outcome writeAll(std::span<const AcDbObjectId> entities, std::span<const ShownItem> writable) {
    const UndoStep step(entities);
    ProgressScope progress(text::kWritingAttributes, entities.size());
    LayerLocks locks;
    Outcome outcome;
    for (const AcDbObjectId entity : entities) {
        if (!tellWhenLocked(locks.lockedLayer(entity)))
            writeEntity(entity, writable, outcome);
        progress.advance();
    }
    return outcome;
}

} // namespace

bool tellLockedLayer(AcDbObjectId entity) {
    return tellWhenLocked(LayerLocks().lockedLayer(entity));
}

int writeBack(std::span<const AcDbObjectId> entities, std::span<const ShownItem> items,
              const ParameterIndex& parameters) {
    const ResourceScope scope;
    const Outcome outcome = writeAll(entities, writableItems(items, parameters));
    if (outcome.unplaced > 0)
        acutPrintf(libraryText(text::kHeightsNotNumbers) + L"\n", outcome.unplaced);
    ApiComn_sendCommand(kUpdateSections, 1, 0, 1);
    return outcome.changed;
}

} // namespace zu
