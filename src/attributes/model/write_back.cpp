#include "write_back.h"

#include "edit_elements.h"
#include "layer_locks.h"

#include "frame/library_text.h"
#include "frame/module_state.h"
#include "frame/resource_ids.h"
#include "frame/text_view.h"

#include <acutads.h>
#include <afxwin.h>
#include <arxutil.h>

#include <algorithm>

using zucomn::EditedElement;
using zucomn::EditOutcome;

namespace zu {

namespace {

constexpr const wchar_t* kUpdateSections = L"ZU_ATTREDIT_SEC3D";

void warnAboutLock(const CString& layer) {
    CString message = libraryText(text::kLayerLocked);
    message.Replace(L"%s", layer);
    AfxMessageBox(message, MB_OK | MB_ICONSTOP);
}

void report(const std::vector<EditedElement>& edited, LockReport locks) {
    for (const EditedElement& element : edited)
        if (locks == LockReport::messageBoxes && element.outcome == EditOutcome::lockedLayer)
            warnAboutLock(zu::textOf(element.layer));
    const auto unplaced = std::count_if(edited.begin(), edited.end(),
                                        [](const EditedElement& element) { return element.isUnplaced; });
    if (unplaced > 0)
        acutPrintf(libraryText(text::kHeightsNotNumbers) + L"\n", static_cast<int>(unplaced));
}

} // namespace

bool warnIfLocked(AcDbObjectId element) {
    const CString layer = LayerLocks().lockedLayer(element);
    if (!layer.IsEmpty())
        warnAboutLock(layer);
    return !layer.IsEmpty();
}

EditCounts writeBack(std::span<const AcDbObjectId> elements, std::span<const ShownItem> items,
                     const ParameterIndex& parameters, LockReport locks) {
    const ResourceScope scope;
    const std::vector<EditedElement> edited = editElements(elements, writableItems(items, parameters));
    report(edited, locks);
    ApiComn_sendCommand(kUpdateSections, 1, 0, 1);
    EditCounts counts;
    for (const EditedElement& element : edited) {
        counts.changed += element.outcome == EditOutcome::changed ? 1 : 0;
        counts.skipped +=
            element.outcome == EditOutcome::lockedLayer || element.outcome == EditOutcome::failed ? 1 : 0;
    }
    return counts;
}

CString describe(const EditCounts& counts) {
    CString words;
    words.Format(libraryText(text::kEditCounts), counts.changed, counts.skipped);
    return words;
}

} // namespace zu
