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
    std::vector<Change> changes;
    std::size_t surplus = 0; ///< All texts from this record on are removed.
    std::vector<Tag> further;
    std::size_t added = 0; ///< Bytes that count for the limit.
    std::size_t removed = 0;
};

TextEdit textEdit(const TagView& values, std::span<const std::wstring_view> texts, const DatabaseCore* core) {
    TextEdit edit;
    if (values.empty())
        edit.added = storedSize(TagRef(kApplicationName, {}, false));
    std::size_t placed = 0;
    std::size_t record = 0;
    std::wstring before;
    for (const TagRef& tag : values) {
        if (tag.code == kText && placed == texts.size()) {
            edit.removed += storedSize(tag);
        } else if (tag.code == kText) {
            decodeText(core, tag.text, before);
            const std::wstring_view text = texts[placed++];
            edit.surplus = record + 1;
            if (text != before) {
                edit.changes.push_back({record, encodeText(core, text)});
                edit.added += edit.changes.back().value.size();
                edit.removed += tag.text.size();
            }
        }
        ++record;
    }
    for (; placed < texts.size(); ++placed) {
        edit.further.push_back({kText, encodeText(core, texts[placed])});
        edit.added += storedSize(TagRef(kText, edit.further.back().value, false));
    }
    return edit;
}

/// Applies the edit to the data of the application, which is added when it is missing and removed when
/// nothing but its name remains.
void apply(TextEdit edit, TagList& tags, const std::string& name, const DatabaseCore* core) {
    TagRange data = tags.extendedData(name);
    if (data.empty()) {
        data = {tags.size(), tags.size() + 1};
        tags.add(kApplicationName, name);
    }
    for (TextEdit::Change& change : edit.changes)
        tags[data.first + change.record].value = std::move(change.value);
    tags.insert(data.last, edit.further);
    data.last += edit.further.size();
    const std::size_t size = tags.size();
    if (edit.further.empty())
        tags.eraseIf({data.first + edit.surplus, data.last},
                     [](const Tag& tag) { return tag.code == kText; });
    data.last -= size - tags.size();
    if (data.last - data.first == 1)
        replaceExtendedData(tags, TagList({tags[data.first]}), core);
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
    const TagView tags = ObjectAccess::tags(object);
    TextEdit edit = textEdit(tags.extendedData(*name), texts, core);
    if (edit.added > edit.removed &&
        storedSize(tags.extendedData()) + edit.added - edit.removed > kExtendedSizeLimit)
        return Acad::eXdataSizeExceeded;
    const Acad::ErrorStatus status = ObjectAccess::assertWriteEnabled(object);
    if (status == Acad::eOk)
        apply(std::move(edit), ObjectAccess::changingTags(object), *name, core);
    return status;
}

} // namespace zuhost
