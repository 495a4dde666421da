#include "chain_records.h"
#include "database_core.h"
#include "extended_records.h"
#include "object_access.h"
#include "zuhost/extended_data.h"

#include <span>
#include <vector>

namespace zuhost {

namespace {

constexpr int kText = 1000;

/// What makes the texts of an application's data equal to others. Records are counted from its name.
struct TextEdit {
    struct Change {
        std::size_t record;
        std::string value;
    };
    TagRange place; ///< Of the data.
    std::vector<Change> changes;
    std::size_t surplus = 0;      ///< All texts from this record on are removed.
    TagList further;              ///< Records to append, with the name when there is no data.
    std::size_t recordsAfter = 0; ///< Number of records that remain or are appended.
    std::size_t sizeBefore = 0;   ///< Bytes that count for the limit.
    std::size_t sizeAfter = 0;

    void append(int code, std::string value) {
        sizeAfter += storedSize(TagRef(code, value, false));
        further.add(code, std::move(value));
        ++recordsAfter;
    }
};

TextEdit textEdit(const TagView& values, const std::string& name, std::span<const std::wstring_view> texts,
                  const DatabaseCore* core) {
    TextEdit edit;
    std::size_t placed = 0;
    std::size_t records = 0;
    std::wstring before;
    auto at = values.begin();
    edit.place.first = at.place();
    for (; at != TagView::end(); ++at) {
        const TagRef& tag = *at;
        const std::size_t record = records++;
        const std::size_t size = storedSize(tag);
        edit.sizeBefore += size;
        if (tag.code == kText && placed == texts.size())
            continue;
        edit.sizeAfter += size;
        ++edit.recordsAfter;
        if (tag.code != kText)
            continue;
        edit.surplus = record + 1;
        decodeText(core, tag.text, before);
        const std::wstring_view text = texts[placed++];
        if (text != before) {
            edit.changes.push_back({record, encodeText(core, text)});
            edit.sizeAfter += edit.changes.back().value.size() - tag.text.size();
        }
    }
    edit.place.last = at.place();
    if (records == 0)
        edit.append(kApplicationName, name);
    for (; placed < texts.size(); ++placed)
        edit.append(kText, encodeText(core, texts[placed]));
    return edit;
}

/// Returns the bytes that count for the limit in the extended data outside of the range.
std::size_t sizeBeside(const TagView& extendedData, TagRange range) {
    const TagRange all = extendedData.range();
    return storedSize(extendedData.in({all.first, range.first})) +
           storedSize(extendedData.in({range.last, all.last}));
}

/// Applies the edit to the data of the application, which is removed when nothing but its name remains.
void apply(TextEdit edit, TagList& tags, const std::string& name) {
    if (edit.recordsAfter == 1) {
        removeExtendedData(tags, name);
        return;
    }
    const TagRange data = tags.extendedData(name);
    for (TextEdit::Change& change : edit.changes)
        tags[data.first + change.record].value = std::move(change.value);
    // Texts are erased or appended, never both.
    tags.insert(data.last, std::move(edit.further));
    tags.eraseIf({data.first + edit.surplus, data.last}, [](const Tag& tag) { return tag.code == kText; });
}

} // namespace

Acad::ErrorStatus setExtendedTexts(AcDbObject& object, const ACHAR* application,
                                   std::span<const std::wstring_view> texts) {
    if (!object.isWriteEnabled())
        return Acad::eNotOpenForWrite;
    DatabaseCore* const core = object.database() != nullptr ? &coreOf(*object.database()) : nullptr;
    std::optional<std::string> name = storedName(core, application);
    if (!name)
        return Acad::eRegappIdNotFound;
    const TagView extendedData = ObjectAccess::tags(object).extendedData();
    TextEdit edit = textEdit(extendedData.extendedData(*name), *name, texts, core);
    if (edit.sizeAfter > edit.sizeBefore &&
        sizeBeside(extendedData, edit.place) + edit.sizeAfter > kExtendedSizeLimit)
        return Acad::eXdataSizeExceeded;
    const Acad::ErrorStatus status = ObjectAccess::assertWriteEnabled(object);
    if (status == Acad::eOk)
        apply(std::move(edit), ObjectAccess::changingTags(object), *name);
    return status;
}

} // namespace zuhost
