#include "part_text.h"

#include "dxf_records/text_escapes.h"
#include "frame/text_view.h"

#include <algorithm>
#include <optional>

namespace zu::dxf {

namespace {

bool isAscii(std::string_view bytes) {
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::optional<std::wstring> decodeBytes(UINT page, std::string_view bytes) {
    // No code page decodes to more wide characters than bytes.
    std::wstring text(bytes.size(), L'\0');
    const auto size = static_cast<int>(bytes.size());
    const int length = MultiByteToWideChar(page, 0, bytes.data(), size, text.data(), size);
    if (length == 0)
        return std::nullopt;
    text.resize(static_cast<std::size_t>(length));
    return text;
}

std::optional<std::wstring> decodePair(std::size_t page, std::string_view bytes) {
    return decodeBytes(static_cast<UINT>(zuhost::dxf::kMultiBytePages[page]), bytes);
}

/// Returns false for pages that the system does not have, too.
bool isUsable(UINT page) {
    return zuhost::dxf::extendsAscii([page](std::string_view bytes) { return decodeBytes(page, bytes); });
}

} // namespace

void PartText::setCodePage(std::string_view name) {
    const auto number = zuhost::dxf::codePageNumber(name);
    named_ = number && *number > 0 && isUsable(static_cast<UINT>(*number)) ? static_cast<UINT>(*number) : 0;
}

UINT PartText::codePage() const {
    if (mark_ || version_ >= zuhost::dxf::kFirstUtf8Version)
        return CP_UTF8;
    return named_ != 0 ? named_ : zuhost::dxf::kDefaultCodePage;
}

CString PartText::decode(std::string_view bytes) const {
    const std::string_view kept = part(bytes);
    std::wstring text = isAscii(kept) ? std::wstring(kept.begin(), kept.end())
                                      : decodeBytes(codePage(), kept).value_or(std::wstring());
    if (text.find_first_of(L"\\^") != std::wstring::npos)
        text = zuhost::dxf::withoutEscapes(text, decodePair);
    if (text.size() > limit_)
        text.resize(limit_);
    return zu::textOf(text);
}

const CString& NamePool::find(std::string_view bytes, const PartText& text) {
    const auto [position, isNew] = names_.try_emplace(std::string(bytes));
    if (isNew)
        position->second = text.decode(bytes);
    recent_[slotOf(bytes)] = {position->first, &position->second};
    return position->second;
}

} // namespace zu::dxf
