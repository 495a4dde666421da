// Any bytes as records of every form: records tile the input, end within it and stop at the first fault; the
// numbers of a record round trip.
#include "../support/require.h"

#include "dxf_records/number_text.h"
#include "dxf_records/record_reader.h"

#include <cmath>

using namespace zuhost;

using zu::fuzz::require;

namespace {

void checkNumber(std::string_view text) {
    const auto number = parseReal(text);
    require(!number || std::isnan(*number) || parseReal(formatReal(*number)) == number, "a number changed");
}

template <typename Reader>
void readAll(Reader reader, std::string_view bytes) {
    dxf::Record record;
    std::size_t end = 0;
    bool first = true;
    while (reader.next(record) == dxf::ReadResult::record) {
        require(first || record.offset == end, "records leave a gap");
        require(record.end > record.offset && record.end <= bytes.size(), "a record ends outside");
        require(record.value.empty() ||
                    (record.value.data() >= bytes.data() + record.offset &&
                     record.value.data() + record.value.size() <= bytes.data() + record.end),
                "a value lies outside its record");
        checkNumber(record.value);
        end = record.end;
        first = false;
    }
    require(reader.next(record) != dxf::ReadResult::record, "reading goes on after its end");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    readAll(dxf::AsciiReader(bytes), bytes);
    readAll(dxf::BinaryReader(bytes), bytes);
    readAll(dxf::BinaryReader(bytes, dxf::CodeTable::strict), bytes);
    readAll(dxf::BinaryReader(bytes, dxf::CodeForm::bytes), bytes);
    return 0;
}
