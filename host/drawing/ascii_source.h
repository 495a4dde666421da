#pragma once

#include "record_source.h"

namespace zuhost {

/// The records of an ASCII drawing: two lines each.
class AsciiSource final : public RecordSource {
public:
    AsciiSource(std::string_view bytes, Span span, char lineEnd);

    Result next(Record& record) override;
    [[nodiscard]] std::uint64_t faultOffset() const override { return faultOffset_; }
    [[nodiscard]] std::wstring fault() const override { return fault_; }
    std::string_view value(const Record& record, std::string& scratch) const override;

private:
    std::string_view line(const char* start);
    bool readCode(int& code);
    Result fail(const char* where, std::wstring problem);

    const char* begin_;
    const char* at_;
    const char* end_;
    const char* lineStop_ = nullptr;
    char lineEnd_;
    std::uint64_t faultOffset_ = 0;
    std::wstring fault_;
};

} // namespace zuhost
