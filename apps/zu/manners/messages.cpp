#include "manners/messages.h"

#include "manners/translation.h"
#include "terminal.h"

#include <iostream>
#include <string_view>

namespace zu::app {

namespace {

constexpr std::string_view kProgram = "zu: ";
constexpr std::string_view kWarning = ": warning: ";

/// The program's name and the file's stay as they are.
std::string lineInLanguage(std::string_view line) {
    const std::size_t warning = line.find(kWarning);
    if (warning != std::string_view::npos)
        return std::string(line.substr(0, warning)) + ": " + paint(translated("warning"), Colour::yellow) +
               ": " + translated(line.substr(warning + kWarning.size()));
    if (line.starts_with(kProgram))
        return paint("zu: ", Colour::red) + translated(line.substr(kProgram.size()));
    return translated(line);
}

} // namespace

MessageFilter::MessageFilter() : target_(std::cerr.rdbuf(this)) {}

MessageFilter::~MessageFilter() {
    if (!line_.empty())
        show();
    std::cerr.rdbuf(target_);
}

int MessageFilter::overflow(int c) {
    if (c != traits_type::eof())
        put(static_cast<char>(c));
    return traits_type::not_eof(c);
}

std::streamsize MessageFilter::xsputn(const char* text, std::streamsize size) {
    for (std::streamsize i = 0; i < size; ++i)
        put(text[i]);
    return size;
}

void MessageFilter::put(char c) {
    if (c != '\n') {
        line_ += c;
        return;
    }
    show();
    target_->sputc('\n');
    target_->pubsync();
}

void MessageFilter::show() {
    const std::string shown = lineInLanguage(line_);
    target_->sputn(shown.data(), static_cast<std::streamsize>(shown.size()));
    line_.clear();
}

} // namespace zu::app
