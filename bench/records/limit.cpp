#include "limit.h"

#include "dxf_records/find_byte.h"
#include "dxf_records/plain_number.h"
#include "dxf_records/record_reader.h"

#include <charconv>
#include <cstring>
#include <fcntl.h>
#include <stdexcept>
#include <string_view>
#include <sys/mman.h>
#include <sys/stat.h>
#include <type_traits>
#include <unistd.h>

namespace {

using zuhost::dxf::ValueType;

/// Maps a file into memory.
class Mapping {
public:
    explicit Mapping(const std::string& path) {
        const int file = open(path.c_str(), O_RDONLY);
        struct stat status {};
        if (file < 0 || fstat(file, &status) != 0)
            throw std::runtime_error("cannot open " + path);
        size_ = static_cast<std::size_t>(status.st_size);
        start_ = mmap(nullptr, size_, PROT_READ, MAP_PRIVATE | MAP_POPULATE, file, 0);
        close(file);
        if (start_ == MAP_FAILED)
            throw std::runtime_error("cannot map " + path);
    }
    ~Mapping() { munmap(start_, size_); }
    Mapping(const Mapping&) = delete;
    Mapping& operator=(const Mapping&) = delete;

    [[nodiscard]] std::string_view bytes() const { return {static_cast<const char*>(start_), size_}; }

private:
    void* start_ = nullptr;
    std::size_t size_ = 0;
};

template <typename Number>
Number numberIn(const char* start, const char* end) {
    while (start != end && *start == ' ')
        ++start;
    Number value{};
    if constexpr (std::is_same_v<Number, double>)
        if (zuhost::parsePlainReal({start, static_cast<std::size_t>(end - start)}, value))
            return value;
    std::from_chars(start, end, value);
    return value;
}

double readLines(std::string_view bytes) {
    double sum = 0;
    const char* at = bytes.data();
    const char* const end = at + bytes.size();
    const auto lineEnd = [end](const char* from) { return zuhost::dxf::findByte(from, end, '\n'); };
    while (at < end) {
        const char* const codeEnd = lineEnd(at);
        const int code = numberIn<int>(at, codeEnd);
        if (codeEnd == end)
            break;
        const char* const value = codeEnd + 1;
        const char* const valueEnd = lineEnd(value);
        const ValueType type = zuhost::dxf::valueType(code);
        if (type == ValueType::real)
            sum += numberIn<double>(value, valueEnd);
        else if (isInteger(type))
            sum += numberIn<int>(value, valueEnd);
        at = valueEnd + 1;
    }
    return sum;
}

double readRecords(std::string_view bytes) {
    double sum = 0;
    const char* const end = bytes.data() + bytes.size();
    std::size_t at = zuhost::dxf::kBinarySentinel.size();
    while (at + 2 <= bytes.size()) {
        std::uint16_t code = 0;
        std::memcpy(&code, bytes.data() + at, 2);
        at += 2;
        switch (zuhost::dxf::valueType(code)) {
        case ValueType::real: {
            double value = 0;
            std::memcpy(&value, bytes.data() + at, 8);
            sum += value;
            at += 8;
            break;
        }
        case ValueType::int16:
            sum += bytes[at];
            at += 2;
            break;
        case ValueType::int32:
            sum += bytes[at];
            at += 4;
            break;
        default:
            at =
                static_cast<std::size_t>(zuhost::dxf::findByte(bytes.data() + at, end, '\0') - bytes.data()) +
                1;
        }
    }
    return sum;
}

} // namespace

double readLimit(const std::string& path) {
    const Mapping file(path);
    return zuhost::dxf::isBinaryDrawing(file.bytes()) ? readRecords(file.bytes()) : readLines(file.bytes());
}
