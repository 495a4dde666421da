#include "element_facts.h"

#include "attributes/attribute_rows.h"
#include "frame/library_text.h"
#include "frame/resource_ids.h"
#include "frame/text_view.h"

#include <zucomn/model/elements.h>
#include <zucomn/model/groups.h>
#include <zucomn/route.h>
#include <zucomn/strings.h>

#include <algorithm>
#include <array>

namespace zu {

namespace {

using zucomn::Element;

constexpr std::size_t kMostElements = 1000;

CString numberText(double value) {
    constexpr int kPrecision = 3;
    CString text = ZuComn_RealFormat(value, kPrecision, 0);
    if (text.Find(L'.') >= 0)
        text.TrimRight(L'0').TrimRight(L'.');
    return text;
}

CString joined(const std::vector<CString>& texts) {
    CString all;
    for (const CString& text : texts)
        all += all.IsEmpty() ? text : L", " + text;
    return all;
}

CString kindName(int code) {
    if (code == zucomn::kNoElement)
        return L"-";
    CString name = libraryText(text::kFirstElementKind + static_cast<unsigned>(std::max(code, 0)));
    if (name.IsEmpty())
        name.Format(libraryText(text::kUnnamedElementKind), code);
    return name;
}

CString linkKindName(int linkKind) {
    for (const zucomn::RouteKind& kind : zucomn::routeKinds())
        if (kind.number == linkKind)
            return zu::textOf(kind.name);
    return linkKind < 0 ? CString(L"-") : zu::textOf(std::to_wstring(linkKind));
}

CString groupNames(const Element& element) {
    std::vector<CString> names;
    for (const AcDbObjectId id : element.groups)
        if (const auto group = zucomn::readGroup(id); group && !group->name.empty())
            names.push_back(zu::textOf(group->name));
    return joined(names);
}

CString heights(AcDbObjectId id) {
    constexpr std::array kWithHeights{1, 3, 4};
    int kind = 0;
    double low = 0.0;
    double high = 0.0;
    if (RootComn_GetOBlockHeight(id, kind, low, high) != 0 ||
        std::find(kWithHeights.begin(), kWithHeights.end(), kind) == kWithHeights.end())
        return L"-";
    return low == high ? numberText(low) : numberText(low) + L" - " + numberText(high);
}

CString handleOf(AcDbObjectId id) {
    std::array<ACHAR, 17> text{};
    id.handle().getIntoAsciiBuffer(text.data());
    return text.data();
}

/// Returns the handles of the elements in its groups that the element is joined to.
CString joinedElements(const Element& element) {
    std::vector<CString> handles;
    for (const AcDbObjectId group : element.groups) {
        AcArray<AcDbObjectId> found;
        RootComn_GetConnectBlock(group, element.id, found, nullptr, 0);
        for (const AcDbObjectId other : found)
            if (const CString handle = handleOf(other);
                std::find(handles.begin(), handles.end(), handle) == handles.end())
                handles.push_back(handle);
    }
    return joined(handles);
}

std::vector<ElementFact> factsOf(const Element& element) {
    const AcGePoint3d& at = element.origin;
    return {{libraryText(text::kElementKind), kindName(element.code)},
            {libraryText(text::kLinkKind), linkKindName(element.linkKind)},
            {libraryText(text::kLayer), zu::textOf(element.layer)},
            {libraryText(text::kGroup), groupNames(element)},
            {libraryText(text::kPosition), joined({numberText(at.x), numberText(at.y), numberText(at.z)})},
            {libraryText(text::kHeights), heights(element.id)}};
}

void merge(std::vector<ElementFact>& facts, const std::vector<ElementFact>& others) {
    for (std::size_t i = 0; i < facts.size(); ++i)
        if (facts[i].value != others[i].value)
            facts[i].value = kVarious;
}

} // namespace

std::vector<ElementFact> factsOf(std::span<const AcDbObjectId> elements) {
    std::vector<ElementFact> facts;
    const bool isMany = elements.size() > kMostElements;
    for (const AcDbObjectId id : elements.first(isMany ? 0 : elements.size())) {
        const auto element = zucomn::readElement(id);
        if (!element)
            continue;
        if (facts.empty())
            facts = factsOf(*element);
        else
            merge(facts, factsOf(*element));
        if (elements.size() == 1)
            facts.push_back({libraryText(text::kJoinedElements), joinedElements(*element)});
    }
    if (elements.size() > 1)
        facts.insert(facts.begin(),
                     {libraryText(text::kElementCount), zu::textOf(std::to_wstring(elements.size()))});
    return facts;
}

} // namespace zu
