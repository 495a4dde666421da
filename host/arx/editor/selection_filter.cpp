#include "selection_filter.h"

#include "acdbads.h"
#include "acutads.h"
#include "dbobjptr.h"
#include "zuhost/result_chain.h"
#include "zuhost/result_kind.h"

#include <zuhost/folded_name.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string_view>

namespace zuhost {

namespace {

constexpr int kOperator = -4;
constexpr int kExtendedData = -3;
constexpr int kApplication = 1001;
constexpr int kSpace = 67;
constexpr int kLayout = 410;
constexpr int kDeepest = 64;

std::wstring textOf(const resbuf& item) {
    return item.resval.rstring != nullptr ? item.resval.rstring : L"";
}

double numberOf(const resbuf& item) {
    switch (resultKind(item.restype)) {
    case ResultKind::real:
        return item.resval.rreal;
    case ResultKind::int16:
        return item.resval.rint;
    case ResultKind::int32:
        return item.resval.rlong;
    default:
        return static_cast<double>(item.resval.mnInt64);
    }
}

std::int64_t bitsOf(const resbuf& item) {
    return static_cast<std::int64_t>(std::clamp(numberOf(item), -9e15, 9e15));
}

bool isEqual(double a, double b) {
    constexpr double kTolerance = 1e-10;
    return std::abs(a - b) <= kTolerance * std::max({1.0, std::abs(a), std::abs(b)});
}

bool compare(double value, std::wstring_view relation, double wanted) {
    if (relation == L"*")
        return true;
    if (relation.empty() || relation == L"=")
        return isEqual(value, wanted);
    if (relation == L"!=" || relation == L"/=" || relation == L"<>")
        return !isEqual(value, wanted);
    if (relation == L"<")
        return value < wanted && !isEqual(value, wanted);
    if (relation == L"<=")
        return value <= wanted || isEqual(value, wanted);
    if (relation == L">")
        return value > wanted && !isEqual(value, wanted);
    return relation == L">=" && (value >= wanted || isEqual(value, wanted));
}

/// Returns the relation of one coordinate: the n-th of those separated by commas, or the only one.
std::wstring_view relationOf(std::wstring_view relations, int axis) {
    if (relations.find(L',') == std::wstring_view::npos)
        return relations;
    for (; axis > 0; --axis) {
        const std::size_t comma = relations.find(L',');
        if (comma == std::wstring_view::npos)
            return L"*"; // z of a relation for the plane
        relations.remove_prefix(comma + 1);
    }
    return relations.substr(0, relations.find(L','));
}

bool comparePoints(const resbuf& value, std::wstring_view relations, const resbuf& wanted) {
    // "!=" of points: any coordinate differs.
    if (relations == L"!=" || relations == L"/=" || relations == L"<>")
        return !comparePoints(value, L"=", wanted);
    for (int axis = 0; axis < 3; ++axis)
        if (!compare(value.resval.rpoint[axis], relationOf(relations, axis), wanted.resval.rpoint[axis]))
            return false;
    return true;
}

bool compareTexts(const resbuf& value, std::wstring_view relation, const resbuf& wanted) {
    if (relation == L"*")
        return true;
    const bool ignoresCase = wanted.restype != 1;
    const std::wstring text = ignoresCase ? foldedName(textOf(value)) : textOf(value);
    const std::wstring pattern = ignoresCase ? foldedName(textOf(wanted)) : textOf(wanted);
    const bool matches = acutWcMatch(text.c_str(), pattern.c_str()) == RTNORM;
    return relation.empty() || relation == L"=" ? matches : !matches;
}

bool compareItems(const resbuf& value, std::wstring_view relation, const resbuf& wanted) {
    switch (resultKind(wanted.restype)) {
    case ResultKind::text:
        return compareTexts(value, relation, wanted);
    case ResultKind::point:
        return comparePoints(value, relation, wanted);
    case ResultKind::name:
        return ads_name_equal(value.resval.rlname, wanted.resval.rlname) ==
               (relation.empty() || relation == L"=");
    case ResultKind::chunk:
    case ResultKind::none:
        return false;
    default:
        if (relation == L"&")
            return (bitsOf(value) & bitsOf(wanted)) != 0;
        if (relation == L"&=")
            return (bitsOf(value) & bitsOf(wanted)) == bitsOf(wanted);
        return compare(numberOf(value), relation, numberOf(wanted));
    }
}

bool isRelation(std::wstring_view text) {
    constexpr std::array<std::wstring_view, 11> kRelations{L"*",  L"=", L"!=", L"/=", L"<>", L"<",
                                                           L"<=", L">", L">=", L"&",  L"&="};
    for (int axis = 0; axis < 3; ++axis)
        if (std::find(kRelations.begin(), kRelations.end(), relationOf(text, axis)) == kRelations.end())
            return false;
    return true;
}

/// Returns the value that an entity has without a record of the code; null for codes without one.
const resbuf* usualValue(int code) {
    static const auto* const values = [] {
        auto* const list =
            acutBuildList(6, L"BYLAYER", 38, 0.0, 39, 0.0, 48, 1.0, 60, 0, 62, 256, 370, -1, RTNONE);
        resbuf* last = list;
        while (last->rbnext != nullptr)
            last = last->rbnext;
        last->rbnext = acutNewRb(210);
        last->rbnext->resval.rpoint[Z] = 1.0;
        return list;
    }();
    const resbuf* value = values;
    while (value != nullptr && value->restype != code)
        value = value->rbnext;
    return value;
}

bool hasExtendedData(AcDbObjectId id, const std::wstring& application) {
    const AcDbObjectPointer<AcDbObject> object(id);
    if (object.openStatus() != Acad::eOk)
        return false;
    const ResultChain data(object->xData());
    for (const resbuf* item = data.get(); item != nullptr; item = item->rbnext)
        if (item->restype == kApplication &&
            acutWcMatch(foldedName(textOf(*item)).c_str(), foldedName(application).c_str()) == RTNORM)
            return true;
    return false;
}

} // namespace

struct SelectionFilter::Subject {
    AcDbObjectId id;
    ResultChain list;
    bool isInPaperSpace = false;
};

SelectionFilter::SelectionFilter(const resbuf* chain) {
    const resbuf* item = chain;
    isValid_ = parse(item, root_, {}, 0) && item == nullptr;
}

/// Parses up to the end mark of a group, or of the chain when `end` is empty.
bool SelectionFilter::parse(const resbuf*& item, Node& group, const std::wstring& end, int depth) {
    std::wstring relation;
    for (; item != nullptr; item = item->rbnext) {
        if (item->restype != kOperator) {
            if (!parseItem(item, group, relation))
                return false;
            continue;
        }
        const std::wstring mark = foldedName(textOf(*item));
        if (!end.empty() && mark == end)
            return relation.empty();
        constexpr std::array<std::wstring_view, 4> kGroups{L"AND", L"OR", L"XOR", L"NOT"};
        const auto found = std::find_if(kGroups.begin(), kGroups.end(), [&](std::wstring_view name) {
            return mark.size() == name.size() + 1 && mark.front() == L'<' && mark.ends_with(name);
        });
        if (found == kGroups.end()) {
            if (!relation.empty() || !isRelation(mark))
                return false;
            relation = mark;
            continue;
        }
        Node& inner = group.nodes.emplace_back();
        inner.group = static_cast<Group>(found - kGroups.begin());
        item = item->rbnext;
        if (depth >= kDeepest || !relation.empty() ||
            !parse(item, inner, std::wstring(*found) + L">", depth + 1) || item == nullptr)
            return false;
    }
    return end.empty() && relation.empty();
}

bool SelectionFilter::parseItem(const resbuf*& item, Node& group, std::wstring& relation) {
    if (item->restype == kExtendedData)
        return relation.empty(); // the names of applications follow
    if (resultKind(item->restype) == ResultKind::none)
        return false;
    group.nodes.push_back({item, relation, Group::all, {}});
    relation.clear();
    return true;
}

bool SelectionFilter::passesTest(const Node& test, const Subject& subject) {
    const int code = test.item->restype == RTDXF0 ? 0 : test.item->restype;
    if (code == kApplication)
        return hasExtendedData(subject.id, textOf(*test.item));
    if (code == kSpace)
        return compare(subject.isInPaperSpace ? 1.0 : 0.0, test.relation, numberOf(*test.item));
    resbuf wanted = *test.item; // RTDXF0 is compared as the text of code 0
    wanted.restype = static_cast<short>(code);
    bool found = false;
    for (const resbuf* value = subject.list.get(); value != nullptr; value = value->rbnext) {
        if (value->restype != code)
            continue;
        found = true;
        if (compareItems(*value, test.relation, wanted))
            return true;
    }
    if (found)
        return false;
    if (code == kLayout && !subject.isInPaperSpace)
        return acutWcMatch(L"MODEL", foldedName(textOf(wanted)).c_str()) == RTNORM;
    const resbuf* const usual = usualValue(code);
    return usual != nullptr && compareItems(*usual, test.relation, wanted);
}

bool SelectionFilter::passes(const Node& node, const Subject& subject) {
    if (node.item != nullptr)
        return passesTest(node, subject);
    const auto test = [&](const Node& inner) { return passes(inner, subject); };
    switch (node.group) {
    case Group::any:
        return std::any_of(node.nodes.begin(), node.nodes.end(), test);
    case Group::one:
        return std::count_if(node.nodes.begin(), node.nodes.end(), test) == 1;
    case Group::none:
        return !std::all_of(node.nodes.begin(), node.nodes.end(), test);
    default:
        return std::all_of(node.nodes.begin(), node.nodes.end(), test);
    }
}

bool SelectionFilter::admits(AcDbObjectId id) const {
    if (root_.nodes.empty())
        return true;
    ads_name name;
    acdbGetAdsName(name, id);
    Subject subject{id, ResultChain(acdbEntGet(name)), false};
    if (subject.list == nullptr)
        return false;
    for (const resbuf* item = subject.list.get(); item != nullptr; item = item->rbnext)
        if (item->restype == kSpace)
            subject.isInPaperSpace = item->resval.rint == 1;
    return passes(root_, subject);
}

} // namespace zuhost
