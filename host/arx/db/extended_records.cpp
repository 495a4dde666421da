#include "extended_records.h"

#include "chain_records.h"
#include "database_core.h"
#include "dbapserv.h"
#include "dxf_records/value_type.h"
#include "zuhost/result_kind.h"

#include <zuhost/text_codec.h>

namespace zuhost {

namespace {

void keepStoredForm(const TagList& tags, TagRange old, TagList& replacement, const DatabaseCore* core) {
    for (std::size_t i = 0; i < replacement.size() && old.first + i < old.last; ++i) {
        const Tag& before = tags[old.first + i];
        Tag& now = replacement[i];
        if (now.code == before.code && now.value != before.value &&
            resultKind(now.code) == ResultKind::text &&
            decodeText(core, now.value) == decodeText(core, before.value))
            now.value = before.value;
    }
}

std::size_t chunkSize(const TagRef& tag) {
    std::string scratch;
    return tag.value(scratch).size() / 2;
}

std::optional<std::string> nameOutsideDrawings(const ACHAR* application) {
    if (application == nullptr || *application == L'\0')
        return std::nullopt;
    const AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    if (database != nullptr && !registeredName(coreOf(*database), application))
        return std::nullopt;
    return toUtf8(application);
}

} // namespace

std::size_t storedSize(const TagRef& tag) {
    using dxf::ValueType;
    switch (dxf::valueType(tag.code)) {
    case ValueType::real:
        return 1 + sizeof(double);
    case ValueType::int16:
        return 1 + sizeof(std::int16_t);
    case ValueType::int32:
        return 1 + sizeof(std::int32_t);
    case ValueType::handle:
        return 1 + sizeof(std::uint64_t);
    case ValueType::chunk:
        return 2 + chunkSize(tag);
    default:
        return tag.code == kApplicationName || tag.code == 1003 ? 1 + sizeof(std::uint64_t)
                                                                : 4 + tag.text.size();
    }
}

std::size_t storedSize(const TagView& tags) {
    std::size_t size = 0;
    for (const TagRef& tag : tags)
        size += storedSize(tag);
    return size;
}

std::optional<std::string> registeredName(DatabaseCore& core, const ACHAR* application) {
    AcDbStub* const table = core.tableHead("APPID");
    AcDbStub* const record =
        application != nullptr && table != nullptr ? core.findRecord(*table, application, false) : nullptr;
    if (record == nullptr)
        return std::nullopt;
    return std::string(core.tags(*record).withoutExtendedData().text(2).value_or(""));
}

std::optional<std::string> storedName(DatabaseCore* core, const ACHAR* application) {
    return core != nullptr ? registeredName(*core, application) : nameOutsideDrawings(application);
}

void removeExtendedData(TagList& tags, const std::string& name) {
    // Damaged objects name an application several times; only the first counts, the others are kept with it.
    for (TagRange data = tags.extendedData(name); !data.empty(); data = tags.extendedData(name))
        tags.erase(data);
}

void replaceExtendedData(TagList& tags, TagList replacement, const DatabaseCore* core) {
    const std::string name = replacement[0].value;
    if (replacement.size() == 1) {
        removeExtendedData(tags, name);
        return;
    }
    const TagRange old = tags.extendedData(name);
    keepStoredForm(tags, old, replacement, core);
    const std::size_t place = old.empty() ? tags.size() : old.first;
    tags.erase(old);
    tags.insert(place, std::move(replacement));
}

} // namespace zuhost
