#include "dbmain.h"

#include "chain_records.h"
#include "database_core.h"
#include "dbapserv.h"
#include "dbsymtb.h"
#include "dxf_records/value_type.h"
#include "object_access.h"
#include "zuhost/extended_data.h"
#include "zuhost/result_kind.h"

#include <zuhost/text_codec.h>

#include <algorithm>
#include <map>

using zuhost::Tag;
using zuhost::TagList;
using zuhost::TagRange;
using zuhost::TagRef;
using zuhost::TagView;

namespace {

constexpr int kApplication = 1001;
constexpr int kComment = 999;
constexpr std::size_t kSizeLimit = 16383;

/// Returns the bytes that a value counts for in the size limit of an object's extended data.
std::size_t storedSize(const TagRef& tag) {
    using zuhost::dxf::ValueType;
    std::string scratch;
    switch (zuhost::dxf::valueType(tag.code)) {
    case ValueType::real:
        return 1 + sizeof(double);
    case ValueType::int16:
        return 1 + sizeof(std::int16_t);
    case ValueType::int32:
        return 1 + sizeof(std::int32_t);
    case ValueType::handle:
        return 1 + sizeof(std::uint64_t);
    case ValueType::chunk:
        return 2 + tag.value(scratch).size() / 2;
    default:
        return tag.code == kApplication || tag.code == 1003 ? 1 + sizeof(std::uint64_t) : 4 + tag.text.size();
    }
}

std::size_t storedSize(const TagView& tags) {
    std::size_t size = 0;
    for (const TagRef& tag : tags)
        size += storedSize(tag);
    return size;
}

/// Returns whether the code begins a value of extended data; a point begins with its first record.
bool isValueCode(int code) {
    return (code >= 1000 && code <= 1005) || (code >= 1010 && code <= 1013) ||
           (code >= 1040 && code <= 1042) || code == 1070 || code == 1071;
}

bool isValid(const resbuf& item) {
    return isValueCode(item.restype) && zuhost::isStorable(item);
}

/// Texts equal to those they replace keep their stored form, as with escapes ("\\U+33a5").
void keepStoredForm(const TagList& tags, TagRange old, TagList& replacement,
                    const zuhost::DatabaseCore* core) {
    for (std::size_t i = 0; i < replacement.size() && old.first + i < old.last; ++i) {
        const Tag& before = tags[old.first + i];
        Tag& now = replacement[i];
        if (now.code == before.code && now.value != before.value &&
            zuhost::resultKind(now.code) == zuhost::ResultKind::text &&
            zuhost::decodeText(core, now.value) == zuhost::decodeText(core, before.value))
            now.value = before.value;
    }
}

/// Returns the registered name that equals the application's ignoring case, in the drawing's encoding.
std::optional<std::string> registeredName(zuhost::DatabaseCore& core, const ACHAR* application) {
    AcDbStub* const table = core.tableHead("APPID");
    AcDbStub* const record =
        application != nullptr && table != nullptr ? core.findRecord(*table, application, false) : nullptr;
    if (record == nullptr)
        return std::nullopt;
    return std::string(core.tags(*record).withoutExtendedData().text(2).value_or(""));
}

/// As above for an object that is in no drawing: the working database decides.
std::optional<std::string> nameOutsideDrawings(const ACHAR* application) {
    if (application == nullptr || *application == L'\0')
        return std::nullopt;
    const AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    if (database != nullptr && !registeredName(zuhost::coreOf(*database), application))
        return std::nullopt;
    return zuhost::toUtf8(application);
}

/// Reads the values of each application of the chain, after its name. If an application occurs repeatedly,
/// the last occurrence counts.
Acad::ErrorStatus readChain(const resbuf* chain, zuhost::DatabaseCore* core, std::vector<TagList>& lists) {
    if (chain == nullptr || chain->restype != kApplication)
        return Acad::eInvalidInput;
    for (const resbuf* item = chain; item != nullptr; item = item->rbnext) {
        if (!isValid(*item))
            return Acad::eInvalidInput;
        if (item->restype != kApplication) {
            zuhost::addRecords(lists.back(), *item, core);
            continue;
        }
        auto name = core != nullptr ? registeredName(*core, item->resval.rstring)
                                    : nameOutsideDrawings(item->resval.rstring);
        if (!name)
            return Acad::eRegappIdNotFound;
        std::erase_if(lists, [&name](const TagList& list) { return list[0].value == *name; });
        lists.emplace_back().add(kApplication, std::move(*name));
    }
    return Acad::eOk;
}

/// Returns the size of the extended data once the lists have replaced those of their applications.
std::size_t sizeWith(const TagView& tags, const std::vector<TagList>& replacements) {
    std::size_t size = storedSize(tags.extendedData());
    for (const TagList& list : replacements) {
        size -= storedSize(tags.extendedData(list[0].value));
        if (list.size() > 1)
            size += storedSize(list);
    }
    return size;
}

void replace(TagList& tags, TagList replacement, const zuhost::DatabaseCore* core) {
    const std::string name = replacement[0].value;
    // Damaged objects name an application several times; only the first counts, the others are kept with it.
    if (replacement.size() == 1) {
        for (TagRange all = tags.extendedData(name); !all.empty(); all = tags.extendedData(name))
            tags.erase(all);
        return;
    }
    const TagRange old = tags.extendedData(name);
    keepStoredForm(tags, old, replacement, core);
    const std::size_t place = old.empty() ? tags.size() : old.first;
    tags.erase(old);
    tags.insert(place, std::move(replacement));
}

/// Returns the records of the application; with null, of all.
TagView valuesOf(const AcDbObject& object, const ACHAR* application) {
    const TagView all = zuhost::ObjectAccess::tags(object).extendedData();
    if (application == nullptr || all.empty())
        return all;
    const TagView values = all.extendedData(zuhost::ObjectAccess::encoded(object, application));
    const AcDbDatabase* const database = object.database();
    if (database == nullptr || !values.empty())
        return values;
    const auto name = registeredName(zuhost::coreOf(*database), application);
    return name ? all.extendedData(*name) : values;
}

/// Calls `visit`, which moves past the value, with each value that a chain can hold until it returns false.
/// Skips other group codes, which only damaged drawings have. One that is not valid in extended data ends the
/// values of its application, as when one application is asked for.
template <typename Visit>
void visitValues(const TagView& values, Visit visit) {
    bool isEnded = false;
    for (auto at = values.begin(); at != values.end();) {
        isEnded = at->code != kApplication && (isEnded || at->code < kComment);
        if (!isValueCode(at->code) || isEnded)
            ++at;
        else if (!visit(at))
            return;
    }
}

} // namespace

resbuf* AcDbObject::xData(const ACHAR* application) const {
    zuhost::ChainWriter chain(core());
    visitValues(valuesOf(*this, application), [&chain](TagView::Iterator& at) {
        chain.add(at);
        return true;
    });
    return chain.release();
}

bool zuhost::visitExtendedData(const AcDbObject& object, const ACHAR* application,
                               const ExtendedValueVisitor& visit) {
    const AcDbDatabase* const database = object.database();
    const DatabaseCore* const core = database != nullptr ? &coreOf(*database) : nullptr;
    bool isFound = false;
    std::wstring text;
    visitValues(valuesOf(object, application), [&](TagView::Iterator& at) {
        isFound = true;
        text.clear();
        if (resultKind(at->code) == ResultKind::text)
            decodeText(core, at->text, text);
        // Chains end texts at a zero, too.
        const bool goesOn = visit(static_cast<short>(at->code), text.c_str());
        ++at;
        return goesOn;
    });
    return isFound;
}

Acad::ErrorStatus AcDbObject::setXData(const resbuf* chain) {
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    std::vector<TagList> replacements;
    Acad::ErrorStatus status = readChain(chain, core(), replacements);
    if (status == Acad::eOk && sizeWith(tags(), replacements) > kSizeLimit)
        status = Acad::eXdataSizeExceeded;
    if (status == Acad::eOk)
        status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    for (TagList& replacement : replacements)
        replace(changingTags(), std::move(replacement), core());
    return Acad::eOk;
}

Acad::ErrorStatus acdbRegApp(AcDbDatabase* database, const ACHAR* application) {
    if (database == nullptr)
        return Acad::eNoDatabase;
    AcDbRegAppTable* table = nullptr;
    const Acad::ErrorStatus status = database->getSymbolTable(table, AcDb::kForWrite);
    if (status != Acad::eOk)
        return status;
    Acad::ErrorStatus added = Acad::eOk;
    if (application == nullptr) {
        added = Acad::eInvalidInput;
    } else if (!table->has(application)) {
        auto record = std::make_unique<AcDbRegAppTableRecord>();
        record->setName(application);
        added = table->add(record.get());
        if (added == Acad::eOk)
            record.release()->close();
    }
    table->close();
    return added;
}

int acdbRegApp(const ACHAR* application) {
    AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    return database != nullptr && acdbRegApp(database, application) == Acad::eOk ? RTNORM : RTERROR;
}
