// The attribute record: decoded, encoded, decoded again. What was decoded from an encoded record must encode
// to the same strings. A parts list of the same text, written with and without line ends, must come back.
#include "attributes/attribute_record.h"
#include "attributes/partslist/attribute_lines.h"

#include <zucomn/attributes.h>
#include <zuhost/text_codec.h>
#include <zuhost/texts.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

CStringArray linesOf(const std::wstring& text) {
    CStringArray lines;
    std::size_t start = 0;
    for (std::size_t end = text.find(L'\n'); end != std::wstring::npos; end = text.find(L'\n', start)) {
        lines.Add(zuhost::textOf(text.substr(start, end - start)));
        start = end + 1;
    }
    lines.Add(zuhost::textOf(text.substr(start)));
    return lines;
}

CStringArray arrayOf(const std::vector<CString>& strings) {
    CStringArray array;
    for (const CString& text : strings)
        array.Add(text);
    return array;
}

bool same(const CStringArray& a, const CStringArray& b) {
    return std::equal(a.GetData(), a.GetData() + a.GetSize(), b.GetData(), b.GetData() + b.GetSize());
}

void checkPartsList(const CString& text) {
    CStringArray lines;
    zu::appendItems(text, lines);
    for (const bool lineEnds : {false, true}) {
        CStringArray again;
        zu::appendItems(zu::joinedLines(lines, lineEnds), again);
        if (!same(lines, again))
            std::abort();
    }
    int next = 0;
    for (const zu::LineRange& part : zu::partsOf(lines)) {
        if (part.first != next || part.count < 1)
            std::abort();
        next += part.count;
    }
    if (next != lines.GetSize())
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring text = zuhost::fromUtf8(std::string_view(reinterpret_cast<const char*>(data), size));
    checkPartsList(zuhost::textOf(text));
    CStringArray lines = linesOf(text);
    const auto record = zu::decodeRecord(lines);
    const std::vector<CString> encoded = zu::encodeRecord(*record);
    if (!encoded.empty()) {
        const auto again = zu::decodeRecord(arrayOf(encoded));
        if (again->items.size() != record->items.size() || zu::encodeRecord(*again) != encoded)
            std::abort();
    }
    const CString key = lines[0];
    const int found = CAttributeData::FindAtt(&lines, key);
    if (found != 0 || CAttributeData::SetAtAtt(&lines, key, L"new") != 0)
        std::abort();
    CString out;
    CAttributeData::GetValueAtt(&lines, key);
    CAttributeData::GettoolTipData(key, L"W=", out);
    return 0;
}
