#include "chain_records.h"

#include "acutmem.h"
#include "ads_names.h"
#include "database_core.h"
#include "dxf_records/number_text.h"
#include "zuhost/result_kind.h"

#include <zuhost/text_codec.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <utility>

namespace zuhost {

namespace {

constexpr std::size_t kAxes = 3;
constexpr int kAxisStep = 10;

std::string hexadecimal(const char* bytes, int count) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += kDigits[static_cast<unsigned char>(bytes[i]) >> 4U];
        text += kDigits[static_cast<unsigned char>(bytes[i]) & 0x0FU];
    }
    return text;
}

int digitValue(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : 0;
}

void setChunk(resbuf& item, std::string_view digits) {
    const std::size_t count = std::min<std::size_t>(digits.size() / 2, kChunkLimit);
    item.resval.rbinary.clen = static_cast<short>(count);
    item.resval.rbinary.buf = new char[count];
    for (std::size_t i = 0; i < count; ++i)
        item.resval.rbinary.buf[i] =
            static_cast<char>(digitValue(digits[2 * i]) * 16 + digitValue(digits[2 * i + 1]));
}

/// Moves past the records of the point.
void setPoint(resbuf& item, TagView::Iterator& at) {
    const int code = at->code;
    for (std::size_t axis = 0; axis < kAxes; ++axis, ++at) {
        if (at == TagView::end() || at->code != code + kAxisStep * static_cast<int>(axis))
            break;
        item.resval.rpoint[axis] = at->real().value_or(0.0);
    }
}

} // namespace

std::wstring decodeText(const DatabaseCore* core, std::string_view value) {
    return core != nullptr ? core->document->decode(value) : fromUtf8(value);
}

void decodeText(const DatabaseCore* core, std::string_view value, std::wstring& text) {
    if (core != nullptr)
        core->document->decode(value, text);
    else
        text = fromUtf8(value);
}

std::string encodeText(const DatabaseCore* core, std::wstring_view text) {
    return core != nullptr ? core->document->encode(text) : toUtf8(text);
}

ChainWriter::~ChainWriter() {
    acutRelRb(first_);
}

resbuf& ChainWriter::append(int type) {
    resbuf* const item = acutNewRb(type);
    (last_ != nullptr ? last_->rbnext : first_) = item;
    last_ = item;
    return *item;
}

void ChainWriter::add(TagView::Iterator& at) {
    const TagRef& tag = *at;
    resbuf& item = append(tag.code);
    std::string scratch;
    switch (resultKind(tag.code)) {
    case ResultKind::text:
        decodeText(core_, tag.text, text_);
        acutNewString(text_.c_str(), item.resval.rstring);
        break;
    case ResultKind::real:
        item.resval.rreal = tag.real().value_or(0.0);
        break;
    case ResultKind::point:
        setPoint(item, at);
        return;
    case ResultKind::int16:
        item.resval.rint = static_cast<short>(tag.integer().value_or(0));
        break;
    case ResultKind::int32:
        item.resval.rlong = static_cast<std::int32_t>(tag.integer().value_or(0));
        break;
    case ResultKind::int64:
        item.resval.mnInt64 = tag.integer().value_or(0);
        break;
    case ResultKind::name:
        if (core_ != nullptr)
            setAdsName(item.resval.rlname, core_->number, tag.handle().value_or(0));
        break;
    case ResultKind::chunk:
        setChunk(item, tag.value(scratch));
        break;
    case ResultKind::none:
        break;
    }
    ++at;
}

resbuf* ChainWriter::release() {
    last_ = nullptr;
    return std::exchange(first_, nullptr);
}

void addRecords(TagList& tags, const resbuf& item, const DatabaseCore* core, std::size_t coordinates) {
    const int code = item.restype == RTDXF0 ? 0 : item.restype;
    switch (resultKind(code)) {
    case ResultKind::text:
        tags.add(code, encodeText(core, item.resval.rstring != nullptr ? item.resval.rstring : L""));
        break;
    case ResultKind::real:
        tags.add(code, formatReal(item.resval.rreal));
        break;
    case ResultKind::point:
        for (std::size_t axis = 0; axis < std::min(coordinates, kAxes); ++axis)
            tags.add(code + kAxisStep * static_cast<int>(axis), formatReal(item.resval.rpoint[axis]));
        break;
    case ResultKind::int16:
        tags.add(code, std::to_string(item.resval.rint));
        break;
    case ResultKind::int32:
        tags.add(code, std::to_string(item.resval.rlong));
        break;
    case ResultKind::int64:
        tags.add(code, std::to_string(item.resval.mnInt64));
        break;
    case ResultKind::name:
        tags.add(code, formatHandle(static_cast<std::uint64_t>(item.resval.rlname[0])));
        break;
    case ResultKind::chunk:
        tags.add(code, hexadecimal(item.resval.rbinary.buf, item.resval.rbinary.clen));
        break;
    case ResultKind::none:
        break;
    }
}

bool isStorable(const resbuf& item) {
    const auto isFinite = [](double value) { return std::isfinite(value); };
    const auto& chunk = item.resval.rbinary;
    switch (resultKind(item.restype)) {
    case ResultKind::real:
        return isFinite(item.resval.rreal);
    case ResultKind::point:
        return std::all_of(item.resval.rpoint, item.resval.rpoint + kAxes, isFinite);
    case ResultKind::chunk:
        return chunk.clen >= 0 && chunk.clen <= kChunkLimit && (chunk.clen == 0 || chunk.buf != nullptr);
    default:
        return true;
    }
}

} // namespace zuhost
