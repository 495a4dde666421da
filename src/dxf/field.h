#pragma once

#include "part_text.h"

#include "drawing/records/record_reader.h"

#include <optional>
#include <string>

namespace zu::dxf {

// Values of records, converted when they are asked for. A value that is no number is 0; of an integer the
// leading digits count.
[[nodiscard]] double realOf(const zuhost::dxf::Record& record, bool binary);
[[nodiscard]] int integerOf(const zuhost::dxf::Record& record, bool binary);
/// Characters of a text that are kept.
[[nodiscard]] std::size_t textLimit(bool binary);

/// One record of an entity.
class Field {
public:
    Field(const zuhost::dxf::Record& record, bool binary, const PartText& text, NamePool& names)
        : record_(record), binary_(binary), text_(text), names_(names) {}

    [[nodiscard]] int code() const { return record_.code; }
    [[nodiscard]] double real() const { return realOf(record_, binary_); }
    [[nodiscard]] int integer() const { return integerOf(record_, binary_); }
    [[nodiscard]] CString text() const { return text_.decode(record_.value, textLimit(binary_)); }
    /// A name that many entities share.
    [[nodiscard]] const CString& name() const { return names_.get(record_.value, text_, textLimit(binary_)); }
    [[nodiscard]] std::string_view raw() const { return record_.value; }

private:
    const zuhost::dxf::Record& record_;
    bool binary_;
    const PartText& text_;
    NamePool& names_;
};

} // namespace zu::dxf
