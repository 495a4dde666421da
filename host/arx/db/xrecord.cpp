#include "dbxrecrd.h"

#include "chain_records.h"
#include "database_core.h"
#include "drawing/tag_view.h"
#include "zuhost/result_kind.h"

ACRX_CONS_DEFINE_MEMBERS(AcDbXrecord, AcDbObject)

using zuhost::TagList;
using zuhost::TagRange;
using zuhost::TagView;

namespace {

constexpr std::string_view kMarker = "AcDbXrecord";
constexpr int kCloning = 280;      ///< Precedes the values: how duplicates are treated.
constexpr int kGreatestCode = 481; ///< Further codes are those of comments and extended data.

/// Returns the range of the values, which may contain what ends the section of other classes.
TagRange valueRange(const TagView& tags) {
    const std::size_t end = tags.extendedDataStart();
    std::size_t start = tags.subclass(kMarker).range().first;
    const auto first = tags.at(start);
    if (start < end && first->code == kCloning)
        start = first.next();
    return {start, end};
}

bool isValue(const resbuf& item) {
    const int code = item.restype;
    return code > 0 && code <= kGreatestCode && code != 5 && code != 105 &&
           zuhost::resultKind(code) != zuhost::ResultKind::none && zuhost::isStorable(item);
}

} // namespace

TagList AcDbXrecord::newRecords() const {
    TagList records = recordsOf("XRECORD", {kMarker});
    records.add(kCloning, "1");
    return records;
}

Acad::ErrorStatus AcDbXrecord::rbChain(resbuf** chain, AcDbDatabase* /*auxiliary*/) const {
    if (chain == nullptr)
        return Acad::eInvalidInput;
    *chain = nullptr;
    const TagView records = tags();
    const TagView values = records.in(valueRange(records));
    zuhost::ChainWriter writer(core());
    for (auto at = values.begin(); at != values.end();)
        writer.add(at);
    *chain = writer.release();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbXrecord::setFromRbChain(const resbuf& chain, AcDbDatabase* /*auxiliary*/) {
    TagList given;
    for (const resbuf* item = &chain; item != nullptr; item = item->rbnext) {
        if (!isValue(*item))
            return Acad::eInvalidInput;
        zuhost::addRecords(given, *item, core());
    }
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    const TagRange old = valueRange(tags());
    TagList& records = changingTags();
    records.erase(old);
    records.insert(old.first, std::move(given));
    return Acad::eOk;
}
