#include "value_check.h"

#include "dxf_records/number_text.h"
#include "dxf_records/value_type.h"

namespace zuhost {
namespace {

using dxf::ValueType;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isHexDigit(char c) {
    return isDigit(c) || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

const char* skipBlanks(const char* p, const char* end) {
    while (p != end && (*p == ' ' || *p == '\t'))
        ++p;
    return p;
}

const char* skipDigits(const char* p, const char* end) {
    while (p != end && isDigit(*p))
        ++p;
    return p;
}

/// Fast path for the common notation, "-12.5e+3"; the parser decides on others.
bool looksReal(std::string_view text) {
    const char* p = text.data();
    const char* const end = p + text.size();
    p = skipBlanks(p, end);
    if (p != end && *p == '-')
        ++p;
    const char* const digits = p;
    p = skipDigits(p, end);
    if (p == digits)
        return false;
    if (p != end && *p == '.')
        p = skipDigits(p + 1, end);
    if (p == end)
        return true;
    if (*p != 'e' && *p != 'E')
        return false;
    ++p;
    if (p != end && (*p == '-' || *p == '+'))
        ++p;
    const char* const exponent = p;
    p = skipDigits(p, end);
    return p == end && p != exponent;
}

bool looksInteger(std::string_view text) {
    constexpr std::ptrdiff_t kSafeDigits = 18;
    const char* p = text.data();
    const char* const end = p + text.size();
    p = skipBlanks(p, end);
    if (p != end && *p == '-')
        ++p;
    const char* const digits = p;
    p = skipDigits(p, end);
    return p == end && p != digits && p - digits <= kSafeDigits;
}

bool looksHandle(std::string_view text) {
    if (text.empty() || text.size() > 16)
        return false;
    for (const char c : text)
        if (!isHexDigit(c))
            return false;
    return true;
}

} // namespace

bool isReadable(int code, std::string_view text) {
    switch (dxf::valueType(code)) {
    case ValueType::real:
        return looksReal(text) || parseReal(text);
    case ValueType::int16:
    case ValueType::int32:
    case ValueType::int64:
    case ValueType::boolean:
        return looksInteger(text) || parseInteger(text);
    case ValueType::handle:
        // Before R13 code 5 of a dimension style is the name of its arrow block.
        return code == 5 || looksHandle(text) || parseHandle(text);
    case ValueType::text:
    case ValueType::chunk:
    case ValueType::none:
        break;
    }
    return true;
}

std::wstring valueName(int code) {
    switch (dxf::valueType(code)) {
    case ValueType::real:
        return L"a number";
    case ValueType::handle:
        return L"a handle";
    default:
        return L"an integer";
    }
}

} // namespace zuhost
