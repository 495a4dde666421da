#include "notices.h"

#include "attributes/attribute_tables.h"
#include "frame/library_text.h"
#include "frame/resource_ids.h"
#include "layer_locks.h"

namespace zu {

namespace {

CString naming(unsigned textId, const CString& file) {
    CString text = libraryText(textId);
    text.Replace(L"%s", file);
    return text;
}

} // namespace

std::vector<CString> tableNotices(bool usesMarks) {
    const AttributeTables& tables = AttributeTables::instance();
    const CString parameters = AttributeTables::parametersFile();
    const bool hasParameters = !tables.parameters().IsEmpty();
    std::vector<CString> notices;
    if (!hasParameters && !usesMarks)
        notices.push_back(naming(text::kCannotEditWithoutTable, parameters));
    else if (!hasParameters && parameters.IsEmpty())
        notices.push_back(libraryText(text::kNoTableFolder));
    else if (!hasParameters)
        notices.push_back(naming(text::kNoParameterTable, parameters));
    if (tables.titles().IsEmpty() && !AttributeTables::titlesFile().IsEmpty())
        notices.push_back(naming(text::kNoTitleTable, AttributeTables::titlesFile()));
    return notices;
}

LockedElements lockedAmong(std::span<const AcDbObjectId> elements) {
    LayerLocks locks;
    LockedElements locked;
    for (const AcDbObjectId element : elements) {
        const CString& layer = locks.lockedLayer(element);
        if (layer.IsEmpty())
            continue;
        if (locked.count == 0)
            locked.layer = layer;
        ++locked.count;
    }
    return locked;
}

CString lockNotice(const LockedElements& locked, std::size_t selected) {
    if (locked.count == 0)
        return {};
    if (locked.count == selected)
        return naming(text::kAllOnLockedLayer, locked.layer);
    CString text;
    text.Format(libraryText(text::kSomeOnLockedLayers), static_cast<int>(selected),
                static_cast<int>(locked.count));
    return text;
}

} // namespace zu
