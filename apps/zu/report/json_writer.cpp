#include "report/json_writer.h"

#include "report/output.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iostream>
#include <iterator>

namespace zu::app {

namespace {

bool isPlain(char c) {
    return c >= ' ' && static_cast<unsigned char>(c) < 0x7F && c != '"' && c != '\\';
}

} // namespace

void appendNumber(std::string& text, double value) {
    constexpr double kLeastFixed = 1e-4;
    constexpr double kMostFixed = 1e15;
    if (!std::isfinite(value)) {
        text += "null";
        return;
    }
    const double size = std::abs(value);
    const bool isFixed = value == 0.0 || (size >= kLeastFixed && size < kMostFixed);
    char buffer[32];
    const auto format = isFixed ? std::chars_format::fixed : std::chars_format::scientific;
    const std::string_view digits(buffer, std::to_chars(buffer, std::end(buffer), value, format).ptr);
    text += digits;
    if (isFixed && digits.find('.') == std::string_view::npos)
        text += ".0";
}

void JsonWriter::open(char bracket) {
    separate();
    text_ += bracket;
    isFirst_ = true;
}

void JsonWriter::close(char bracket) {
    text_ += bracket;
    isFirst_ = false;
}

void JsonWriter::key(std::string_view name) {
    add(name);
    text_ += ':';
    isFirst_ = true;
}

void JsonWriter::add(std::string_view value) {
    separate();
    if (std::all_of(value.begin(), value.end(), isPlain))
        text_.append("\"").append(value).append("\"");
    else
        text_ += jsonText(Json(value));
}

void JsonWriter::add(double value) {
    separate();
    appendNumber(text_, value);
}

void JsonWriter::add(int value) {
    separate();
    text_ += std::to_string(value);
}

void JsonWriter::add(bool value) {
    separate();
    text_ += value ? "true" : "false";
}

void JsonWriter::clear() {
    text_.clear();
    isFirst_ = true;
}

void JsonWriter::separate() {
    if (!isFirst_)
        text_ += ',';
    isFirst_ = false;
}

void JsonArrayPrinter::print(std::string_view element) {
    std::cout << (isEmpty_ ? "[\n" : ",\n") << element;
    isEmpty_ = false;
}

void JsonArrayPrinter::finish() {
    std::cout << (isEmpty_ ? "[]\n" : "\n]\n");
}

} // namespace zu::app
