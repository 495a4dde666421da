#include "dbmain.h"

#include "chain_records.h"
#include "database_core.h"
#include "dbapserv.h"
#include "dbsymtb.h"
#include "extended_records.h"
#include "object_access.h"
#include "zuhost/extended_data.h"
#include "zuhost/result_kind.h"

#include <algorithm>

using zuhost::TagList;
using zuhost::TagView;

namespace {

constexpr int kComment = 999;

/// Returns whether the code begins a value of extended data; a point begins with its first record.
bool isValueCode(int code) {
    return (code >= 1000 && code <= 1005) || (code >= 1010 && code <= 1013) ||
           (code >= 1040 && code <= 1042) || code == 1070 || code == 1071;
}

bool isValid(const resbuf& item) {
    return isValueCode(item.restype) && zuhost::isStorable(item);
}

/// Reads the values of each application of the chain, after its name. If an application occurs repeatedly,
/// the last occurrence counts.
Acad::ErrorStatus readChain(const resbuf* chain, zuhost::DatabaseCore* core, std::vector<TagList>& lists) {
    if (chain == nullptr || chain->restype != zuhost::kApplicationName)
        return Acad::eInvalidInput;
    for (const resbuf* item = chain; item != nullptr; item = item->rbnext) {
        if (!isValid(*item))
            return Acad::eInvalidInput;
        if (item->restype != zuhost::kApplicationName) {
            zuhost::addRecords(lists.back(), *item, core);
            continue;
        }
        auto name = zuhost::storedName(core, item->resval.rstring);
        if (!name)
            return Acad::eRegappIdNotFound;
        std::erase_if(lists, [&name](const TagList& list) { return list[0].value == *name; });
        lists.emplace_back().add(zuhost::kApplicationName, std::move(*name));
    }
    return Acad::eOk;
}

/// Returns the size of the extended data once the lists have replaced those of their applications.
std::size_t sizeWith(const TagView& tags, const std::vector<TagList>& replacements) {
    std::size_t size = zuhost::storedSize(tags.extendedData());
    for (const TagList& list : replacements) {
        size -= zuhost::storedSize(tags.extendedData(list[0].value));
        if (list.size() > 1)
            size += zuhost::storedSize(list);
    }
    return size;
}

/// Returns the records of the application; with null, of all.
TagView valuesOf(const AcDbObject& object, const ACHAR* application) {
    if (application == nullptr)
        return zuhost::ObjectAccess::tags(object).extendedData();
    const TagView all = zuhost::ObjectAccess::tags(object).extendedData();
    if (all.empty())
        return all;
    const TagView values = all.extendedData(zuhost::ObjectAccess::encoded(object, application));
    const AcDbDatabase* const database = object.database();
    if (database == nullptr || !values.empty())
        return values;
    const auto name = zuhost::registeredName(zuhost::coreOf(*database), application);
    return name ? all.extendedData(*name) : values;
}

/// Calls `visit`, which moves past the value, with each value that a chain can hold until it returns false.
/// Skips other group codes, which only damaged drawings have. One that is not valid in extended data ends the
/// values of its application, as when one application is asked for.
template <typename Visit>
void visitValues(const TagView& values, Visit visit) {
    bool isEnded = false;
    for (auto at = values.begin(); at != values.end();) {
        isEnded = at->code != zuhost::kApplicationName && (isEnded || at->code < kComment);
        if (!isValueCode(at->code) || isEnded)
            ++at;
        else if (!visit(at))
            return;
    }
}

} // namespace

resbuf* AcDbObject::xData(const ACHAR* application) const {
    // Most objects have none, which is known without their records.
    if (!own_ && stub_ != nullptr && stub_->extended == stub_->length)
        return nullptr;
    const TagView values = valuesOf(*this, application);
    if (values.empty())
        return nullptr;
    zuhost::ChainWriter chain(core());
    visitValues(values, [&chain](TagView::Iterator& at) {
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
        if (resultKind(at->code) == ResultKind::text)
            decodeText(core, at->text, text);
        else
            text.clear();
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
    if (status == Acad::eOk && sizeWith(tags(), replacements) > zuhost::kExtendedSizeLimit)
        status = Acad::eXdataSizeExceeded;
    if (status == Acad::eOk)
        status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    for (TagList& replacement : replacements)
        zuhost::replaceExtendedData(changingTags(), std::move(replacement), core());
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
