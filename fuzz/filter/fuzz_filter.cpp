// A condition on the first line and a drawing after it. A condition that cannot be parsed names a place in
// its text; one that can divides the elements, and what is counted of them, into those that pass and those
// that pass its negation. Counting again gives the same.
#include "../support/program.h"
#include "../support/require.h"

#include <dbapserv.h>
#include <dbmain.h>
#include <zucomn/model/elements.h>
#include <zucomn/model/filter.h>
#include <zucomn/model/quantities.h>
#include <zuhost/drawing_files.h>
#include <zuhost/text_codec.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zu::fuzz {

namespace {

using zucomn::Condition;
using zucomn::Quantities;

/// Opening a drawing takes far longer than parsing a condition.
constexpr std::size_t kLargestDrawing = 200'000;

/// Returns no value for a text that cannot be parsed.
Condition parse(const std::wstring& text) {
    const zucomn::ParsedCondition parsed = zucomn::parseCondition(text);
    if (!parsed.error)
        return parsed.condition;
    require(parsed.condition == nullptr, "a condition with an error");
    require(parsed.error->place <= text.size(), "a place outside of the condition");
    require(!parsed.error->problem.empty(), "an error without a problem");
    return nullptr;
}

zucomn::QuantityQuery queryOf(const Condition& where) {
    using enum zucomn::QuantityField;
    zucomn::QuantityQuery query;
    query.by = {kind, what, block, size, use};
    query.filter.where = where;
    query.includesOthers = true;
    return query;
}

bool same(const zucomn::QuantityRow& a, const zucomn::QuantityRow& b) {
    return a.kind == b.kind && a.code == b.code && a.block == b.block && a.size == b.size && a.use == b.use &&
           a.quantity.count == b.quantity.count;
}

/// Every element is in one row and one total.
Quantities count(const AcDbDatabase& drawing, const Condition& where) {
    const auto sumOf = [](const auto& parts) {
        std::size_t sum = 0;
        for (const auto& part : parts)
            sum += part.quantity.count;
        return sum;
    };
    Quantities counted = zucomn::countQuantities(drawing, queryOf(where));
    require(sumOf(counted.rows) == counted.sum.count, "the rows do not add up");
    require(sumOf(counted.totals) == counted.sum.count, "the totals do not add up");
    const Quantities again = zucomn::countQuantities(drawing, queryOf(where));
    require(std::equal(counted.rows.begin(), counted.rows.end(), again.rows.begin(), again.rows.end(), same),
            "counting again gives other rows");
    return counted;
}

void divide(const AcDbDatabase& drawing, const Condition& where, const Condition& negation) {
    const std::vector<AcDbObjectId> all = zucomn::modelSpaceReferences(drawing);
    zucomn::ElementFilter filter;
    filter.where = where;
    const std::vector<AcDbObjectId> passing = zucomn::filterElements(all, filter);
    filter.where = negation;
    const std::vector<AcDbObjectId> others = zucomn::filterElements(all, filter);
    std::vector<AcDbObjectId> merged;
    auto next = passing.begin();
    auto other = others.begin();
    for (const AcDbObjectId id : all)
        if (next != passing.end() && *next == id)
            merged.push_back(*next++);
        else if (other != others.end() && *other == id)
            merged.push_back(*other++);
    require(next == passing.end() && other == others.end(), "elements pass a condition and its negation");
    require(count(drawing, where).sum.count + count(drawing, negation).sum.count == merged.size(),
            "both counts are not that of all elements");
}

} // namespace

} // namespace zu::fuzz

/// The font library keeps its tables until the end.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig";
}

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    zu::fuzz::startProgram();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t lineEnd = std::min(input.find('\n'), size);
    const std::wstring text = zuhost::fromUtf8(input.substr(0, lineEnd));
    const zucomn::Condition where = zu::fuzz::parse(text);
    // Parentheses may be nested too deeply with one more.
    const zucomn::Condition negation = zu::fuzz::parse(L"not (" + text + L")");
    if (where == nullptr || negation == nullptr || size - lineEnd > zu::fuzz::kLargestDrawing)
        return 0;
    AcDbDatabase drawing(false);
    if (zuhost::dxfInBytes(drawing, std::string(input.substr(lineEnd + (lineEnd < size))), L"fuzzed") !=
        Acad::eOk)
        return 0;
    acdbHostApplicationServices()->setWorkingDatabase(&drawing);
    zu::fuzz::divide(drawing, where, negation);
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    return 0;
}
