#pragma once

#include <streambuf>
#include <string>

namespace zu::app {

/// Shows each line of the standard error in the user's language, on a terminal in the colour of what it is,
/// for the lifetime of the object. The program, the library and the host write their messages in English.
class MessageFilter : public std::streambuf {
public:
    MessageFilter();
    ~MessageFilter() override;
    MessageFilter(const MessageFilter&) = delete;
    MessageFilter& operator=(const MessageFilter&) = delete;

protected:
    int overflow(int c) override;
    std::streamsize xsputn(const char* text, std::streamsize size) override;

private:
    void put(char c);
    void show();

    std::streambuf* target_;
    std::string line_;
};

} // namespace zu::app
