#include "frame/library_text.h"
#include "frame/resource_ids.h"
#include "frame/text_view.h"

#include <zucomn/model/quantities.h>
#include <zucomn/settings.h>

#include <array>

namespace zucomn {

namespace {

using Ids = std::vector<std::wstring>;

/// What quantities read from attributes: the key that names other ids, and the ids without it.
struct Meaning {
    Ids QuantityAttributes::*ids;
    unsigned key;
    const wchar_t* defaults;
};

constexpr std::array kMeanings{
    Meaning{&QuantityAttributes::size, zu::text::kSizeIds, L"S302,S303"},
    Meaning{&QuantityAttributes::use, zu::text::kUseIds, L"S501"},
    Meaning{&QuantityAttributes::height, zu::text::kHeightIds, L"S401"},
};

Ids split(const CString& list) {
    Ids ids;
    for (int start = 0; start >= 0;)
        if (CString id = list.Tokenize(L",", start); !id.Trim().IsEmpty())
            ids.emplace_back(zu::view(id));
    return ids;
}

} // namespace

QuantityAttributes quantityAttributes() {
    const CString section = zu::libraryText(zu::text::kQuantitySection);
    QuantityAttributes attributes;
    for (const Meaning& meaning : kMeanings) {
        Ids& ids = attributes.*meaning.ids;
        ids = split(ZuComn_readConfig(nullptr, section, zu::libraryText(meaning.key)));
        if (ids.empty())
            ids = split(meaning.defaults);
    }
    return attributes;
}

} // namespace zucomn
