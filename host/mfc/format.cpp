#include "zuhost/format.h"

#include "zuhost/text_codec.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <vector>

namespace zuhost {

namespace {

constexpr int kLongestField = 100'000;
constexpr int kLargestPrecision = 400;

struct Conversion {
    bool left = false;
    bool plus = false;
    bool blank = false;
    bool alternate = false;
    bool zero = false;
    int width = 0;
    int precision = -1;
    wchar_t type = L'\0';
    bool wideInteger = false; ///< "ll", "I64"; other integers are truncated to 32 bits as on the platform.
    bool isLong = false;      ///< "l".
    bool isNarrow = false;    ///< "h": a narrow text.
    bool hasWidth = false;    ///< The width is an argument, as is the precision below.
    bool hasPrecision = false;
};

class Arguments {
public:
    explicit Arguments(std::span<const FormatArgument> list) : list_(list) {}
    const FormatArgument* next() { return at_ < list_.size() ? &list_[at_++] : nullptr; }

    int nextNumber() {
        const FormatArgument* argument = next();
        if (argument == nullptr)
            return 0;
        if (const auto* value = std::get_if<std::int64_t>(argument))
            return static_cast<int>(std::clamp<std::int64_t>(*value, -kLongestField, kLongestField));
        if (const auto* value = std::get_if<std::uint64_t>(argument))
            return static_cast<int>(std::min<std::uint64_t>(*value, kLongestField));
        return 0;
    }

private:
    std::span<const FormatArgument> list_;
    std::size_t at_ = 0;
};

/// Widens ASCII text.
std::wstring widen(std::string_view text) {
    return {text.begin(), text.end()};
}

class FormatReader {
public:
    FormatReader(std::wstring_view text, std::size_t at) : text_(text), at_(at) {}

    [[nodiscard]] bool atEnd() const { return at_ >= text_.size(); }
    [[nodiscard]] std::size_t position() const { return at_; }
    wchar_t next() { return atEnd() ? L'\0' : text_[at_++]; }
    bool accept(std::wstring_view piece) {
        if (text_.substr(at_, piece.size()) != piece)
            return false;
        at_ += piece.size();
        return true;
    }
    int number() {
        int value = 0;
        while (!atEnd() && text_[at_] >= L'0' && text_[at_] <= L'9')
            value = std::min(value * 10 + static_cast<int>(text_[at_++] - L'0'), kLongestField);
        return value;
    }

private:
    std::wstring_view text_;
    std::size_t at_;
};

void readFlags(FormatReader& reader, Conversion& c) {
    while (true) {
        if (reader.accept(L"-"))
            c.left = true;
        else if (reader.accept(L"+"))
            c.plus = true;
        else if (reader.accept(L" "))
            c.blank = true;
        else if (reader.accept(L"#"))
            c.alternate = true;
        else if (reader.accept(L"0"))
            c.zero = true;
        else
            return;
    }
}

void readSize(FormatReader& reader, Conversion& c) {
    if (reader.accept(L"I64") || reader.accept(L"ll") || reader.accept(L"j") || reader.accept(L"z") ||
        reader.accept(L"t"))
        c.wideInteger = true;
    else if (reader.accept(L"hh") || reader.accept(L"h"))
        c.isNarrow = true;
    else if (reader.accept(L"I32") || reader.accept(L"w") || reader.accept(L"L"))
        return;
    else
        c.isLong = reader.accept(L"l");
}

/// Reads a conversion, without the values of a width and a precision that are arguments.
Conversion readConversion(FormatReader& reader) {
    Conversion c;
    readFlags(reader, c);
    c.hasWidth = reader.accept(L"*");
    if (!c.hasWidth)
        c.width = reader.number();
    if (reader.accept(L".")) {
        c.hasPrecision = reader.accept(L"*");
        if (!c.hasPrecision)
            c.precision = reader.number();
    }
    readSize(reader, c);
    c.type = reader.next();
    return c;
}

Conversion readConversion(FormatReader& reader, Arguments& arguments) {
    Conversion c = readConversion(reader);
    if (c.hasWidth)
        c.width = arguments.nextNumber();
    if (c.width < 0) {
        c.left = true;
        c.width = -c.width;
    }
    if (c.hasPrecision)
        c.precision = arguments.nextNumber();
    return c;
}

std::wstring padded(const std::wstring& body, const std::wstring& prefix, const Conversion& c, bool zeros) {
    const std::size_t length = prefix.size() + body.size();
    const std::size_t fill =
        static_cast<std::size_t>(c.width) > length ? static_cast<std::size_t>(c.width) - length : 0;
    if (c.left)
        return prefix + body + std::wstring(fill, L' ');
    if (zeros)
        return prefix + std::wstring(fill, L'0') + body;
    return std::wstring(fill, L' ') + prefix + body;
}

std::wstring signOf(bool negative, const Conversion& c) {
    return negative ? L"-" : (c.plus ? L"+" : (c.blank ? L" " : L""));
}

std::wstring integerDigits(std::uint64_t magnitude, int base, bool upper, int precision) {
    char buffer[72];
    std::string digits(buffer, std::to_chars(buffer, buffer + sizeof buffer, magnitude, base).ptr);
    if (upper)
        std::transform(digits.begin(), digits.end(), digits.begin(),
                       [](char d) { return d >= 'a' ? static_cast<char>(d - 32) : d; });
    if (precision == 0 && magnitude == 0)
        digits.clear();
    if (precision > static_cast<int>(digits.size()))
        digits.insert(0, static_cast<std::size_t>(precision) - digits.size(), '0');
    return widen(digits);
}

std::optional<std::uint64_t> integerBits(const FormatArgument& argument) {
    if (const auto* value = std::get_if<std::int64_t>(&argument))
        return static_cast<std::uint64_t>(*value);
    if (const auto* value = std::get_if<std::uint64_t>(&argument))
        return *value;
    return std::nullopt;
}

std::wstring formatSigned(const FormatArgument& argument, const Conversion& c) {
    const auto bits = integerBits(argument);
    if (!bits)
        return {};
    const std::int64_t value =
        c.wideInteger ? static_cast<std::int64_t>(*bits) : static_cast<std::int32_t>(*bits);
    const auto raw = static_cast<std::uint64_t>(value);
    const std::uint64_t magnitude = value < 0 ? ~raw + 1 : raw;
    return padded(integerDigits(magnitude, 10, false, c.precision), signOf(value < 0, c), c,
                  c.zero && c.precision < 0);
}

std::wstring formatUnsigned(const FormatArgument& argument, const Conversion& c) {
    const auto bits = integerBits(argument);
    if (!bits)
        return {};
    const std::uint64_t value = c.wideInteger ? *bits : static_cast<std::uint32_t>(*bits);
    const int base = c.type == L'o' ? 8 : (c.type == L'u' ? 10 : 16);
    const bool upper = c.type == L'X';
    std::wstring prefix;
    if (c.alternate && base == 16 && value != 0)
        prefix = upper ? L"0X" : L"0x";
    return padded(integerDigits(value, base, upper, c.precision), prefix, c, c.zero && c.precision < 0);
}

/// Ignores '#': to_chars has no form of %g that keeps trailing zeros.
std::string realDigits(double magnitude, wchar_t type, int precision) {
    const auto form = type == L'f' || type == L'F'   ? std::chars_format::fixed
                      : type == L'e' || type == L'E' ? std::chars_format::scientific
                                                     : std::chars_format::general;
    std::string buffer(static_cast<std::size_t>(precision) + 400, '\0');
    const auto result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, form, precision);
    buffer.resize(static_cast<std::size_t>(result.ptr - buffer.data()));
    return buffer;
}

std::wstring formatReal(const FormatArgument& argument, const Conversion& c) {
    const auto* value = std::get_if<double>(&argument);
    if (value == nullptr)
        return {};
    const bool negative = std::signbit(*value) && !std::isnan(*value);
    if (!std::isfinite(*value))
        return padded(std::isnan(*value) ? L"nan" : L"inf", signOf(negative, c), c, false);
    const int precision = c.precision < 0 ? 6 : std::min(c.precision, kLargestPrecision);
    std::wstring digits = widen(realDigits(std::abs(*value), c.type, precision));
    if (c.type == L'E' || c.type == L'G')
        std::replace(digits.begin(), digits.end(), L'e', L'E');
    return padded(digits, signOf(negative, c), c, c.zero);
}

// With a precision the text need not be zero-terminated.

std::wstring_view textOf(const wchar_t* text, int precision) {
    if (precision < 0)
        return text;
    std::size_t size = 0;
    while (size < static_cast<std::size_t>(precision) && text[size] != L'\0')
        ++size;
    return {text, size};
}

std::size_t utf8Length(char lead) {
    const auto byte = static_cast<unsigned char>(lead);
    return byte < 0xC0 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

/// The precision counts characters, not bytes.
std::string_view textOf(const char* text, int precision) {
    if (precision < 0)
        return text;
    std::size_t size = 0;
    for (int count = 0; count < precision && text[size] != '\0'; ++count) {
        const std::size_t end = size + utf8Length(text[size]);
        ++size;
        while (size < end && (static_cast<unsigned char>(text[size]) & 0xC0U) == 0x80U)
            ++size;
    }
    return {text, size};
}

std::wstring formatString(const FormatArgument& argument, const Conversion& c) {
    std::wstring text = L"(null)";
    if (const auto* wide = std::get_if<const wchar_t*>(&argument)) {
        if (*wide != nullptr)
            text = textOf(*wide, c.precision);
    } else if (const auto* narrow = std::get_if<const char*>(&argument)) {
        if (*narrow != nullptr)
            text = fromUtf8(textOf(*narrow, c.precision));
    } else {
        return {};
    }
    if (c.precision >= 0 && static_cast<std::size_t>(c.precision) < text.size())
        text.resize(static_cast<std::size_t>(c.precision));
    return padded(text, {}, c, false);
}

/// As many digits as an address has.
std::wstring formatPointer(const FormatArgument& argument, const Conversion& c) {
    const auto* const pointer = std::get_if<const void*>(&argument);
    const auto bits = pointer != nullptr ? reinterpret_cast<std::uintptr_t>(*pointer) : integerBits(argument);
    return bits ? padded(integerDigits(*bits, 16, true, 2 * sizeof(void*)), {}, c, false) : std::wstring();
}

std::wstring formatCharacter(const FormatArgument& argument, const Conversion& c) {
    const auto bits = integerBits(argument);
    return bits ? padded(std::wstring(1, static_cast<wchar_t>(*bits)), {}, c, false) : std::wstring();
}

std::wstring formatOne(const FormatArgument& argument, const Conversion& c) {
    switch (c.type) {
    case L'd':
    case L'i':
        return formatSigned(argument, c);
    case L'u':
    case L'x':
    case L'X':
    case L'o':
        return formatUnsigned(argument, c);
    case L'f':
    case L'F':
    case L'e':
    case L'E':
    case L'g':
    case L'G':
        return formatReal(argument, c);
    case L's':
    case L'S':
        return formatString(argument, c);
    case L'c':
    case L'C':
        return formatCharacter(argument, c);
    case L'p':
        return formatPointer(argument, c);
    default:
        return {};
    }
}

} // namespace

std::wstring formatText(std::wstring_view format, std::span<const FormatArgument> list) {
    std::wstring result;
    Arguments arguments(list);
    std::size_t at = 0;
    while (at < format.size()) {
        const std::size_t percent = std::min(format.find(L'%', at), format.size());
        result.append(format.substr(at, percent - at));
        if (percent == format.size())
            break;
        FormatReader reader(format, percent + 1);
        if (reader.accept(L"%")) {
            result += L'%';
        } else {
            const Conversion conversion = readConversion(reader, arguments);
            const FormatArgument* argument = conversion.type != L'\0' ? arguments.next() : nullptr;
            if (argument != nullptr)
                result += formatOne(*argument, conversion);
        }
        at = reader.position();
    }
    return result;
}

namespace {

/// Reads the arguments of a variadic function; the object's copy of the list ends with it.
class VariadicArguments {
public:
    explicit VariadicArguments(std::va_list list) { va_copy(list_, list); }
    ~VariadicArguments() { va_end(list_); }
    VariadicArguments(const VariadicArguments&) = delete;
    VariadicArguments& operator=(const VariadicArguments&) = delete;

    FormatArgument number() { return std::int64_t{va_arg(list_, int)}; }
    FormatArgument of(const Conversion& c) {
        switch (c.type) {
        case L's':
        case L'S':
            if ((c.type == L's') == c.isNarrow)
                return static_cast<const char*>(va_arg(list_, char*));
            return static_cast<const wchar_t*>(va_arg(list_, wchar_t*));
        case L'p':
            return static_cast<const void*>(va_arg(list_, void*));
        case L'f':
        case L'F':
        case L'e':
        case L'E':
        case L'g':
        case L'G':
            return va_arg(list_, double);
        default:
            if (c.wideInteger)
                return std::int64_t{va_arg(list_, long long)};
            return c.isLong ? std::int64_t{va_arg(list_, long)} : number();
        }
    }

private:
    std::va_list list_;
};

} // namespace

std::wstring formatText(std::wstring_view format, std::va_list list) {
    VariadicArguments values(list);
    std::vector<FormatArgument> arguments;
    for (std::size_t at = format.find(L'%'); at < format.size(); at = format.find(L'%', at)) {
        FormatReader reader(format, at + 1);
        if (!reader.accept(L"%")) {
            const Conversion conversion = readConversion(reader);
            if (conversion.hasWidth)
                arguments.push_back(values.number());
            if (conversion.hasPrecision)
                arguments.push_back(values.number());
            if (conversion.type != L'\0')
                arguments.push_back(values.of(conversion));
        }
        at = reader.position();
    }
    return formatText(format, std::span<const FormatArgument>(arguments));
}

} // namespace zuhost
