// The attribute record: decoded, encoded, decoded again. What was decoded from an encoded record must encode
// to the same strings.
#include "attributes/attribute_record.h"

#include <zucomn/attributes.h>
#include <zuhost/text_codec.h>

#include <cstdint>
#include <cstdlib>

namespace {

CStringArray linesOf(const std::wstring& text) {
    CStringArray lines;
    std::size_t start = 0;
    for (std::size_t end = text.find(L'\n'); end != std::wstring::npos; end = text.find(L'\n', start)) {
        lines.Add(CString(text.substr(start, end - start)));
        start = end + 1;
    }
    lines.Add(CString(text.substr(start)));
    return lines;
}

CStringArray arrayOf(const std::vector<CString>& strings) {
    CStringArray array;
    for (const CString& text : strings)
        array.Add(text);
    return array;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CStringArray lines =
        linesOf(zuhost::fromUtf8(std::string_view(reinterpret_cast<const char*>(data), size)));
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
