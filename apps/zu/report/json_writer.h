#pragma once

#include <string>
#include <string_view>

namespace zu::app {

/// Appends a number to a text as JSON has it: in the shortest form that reads back the same, "null" for one
/// that is not finite.
void appendNumber(std::string& text, double value);

/// Writes JSON into a text, value by value, in the form of printJson. Long listings are written so: a tree of
/// values takes several times the memory and the time.
class JsonWriter {
public:
    void open(char bracket);
    void close(char bracket);
    void key(std::string_view name);
    void add(std::string_view value);
    void add(const char* value) { add(std::string_view(value)); }
    void add(double value);
    void add(int value);
    void add(bool value);
    template <typename Value>
    void field(std::string_view name, const Value& value) {
        key(name);
        add(value);
    }

    [[nodiscard]] const std::string& text() const { return text_; }
    void clear();

private:
    void separate();

    std::string text_;
    bool isFirst_ = true; ///< The next value follows a bracket or a key.
};

/// Prints the elements of an array as printJson does, one a line, without holding them all.
class JsonArrayPrinter {
public:
    void print(std::string_view element);
    void finish();

private:
    bool isEmpty_ = true;
};

} // namespace zu::app
