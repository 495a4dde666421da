#pragma once

#include "record_source.h"

namespace zuhost {

/// First bytes of a binary drawing.
constexpr std::string_view binarySentinel{"AutoCAD Binary DXF\r\n\x1A\0", 22};

/// The records of a binary drawing: a group code of two bytes (before R13 of one, or of three that start with
/// 255), then a value whose size the code says.
class BinarySource final : public RecordSource {
public:
    BinarySource(std::string_view bytes, Span span, bool byteCodes);

    Result next(Record& record) override;
    [[nodiscard]] std::uint64_t faultOffset() const override { return faultOffset_; }
    [[nodiscard]] std::wstring fault() const override { return fault_; }
    std::string_view value(const Record& record, std::string& scratch) const override;

private:
    [[nodiscard]] std::size_t rest() const { return bytes_.size() - at_; }
    [[nodiscard]] std::optional<int> readCode();
    [[nodiscard]] std::optional<std::size_t> valueSize(int code) const;
    Result fail(std::size_t where, std::wstring problem);

    std::string_view bytes_; ///< Up to the end of the span.
    std::size_t at_;
    bool byteCodes_;
    std::uint64_t faultOffset_ = 0;
    std::wstring fault_;
};

} // namespace zuhost
