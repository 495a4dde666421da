#include "model/handle_argument.h"

#include "model/standard_streams.h"

#include <zuhost/platform/paths.h>

#include <filesystem>

namespace zu::app {

namespace {

bool isHandle(const std::string& word) {
    if (word.find_first_not_of("0123456789ABCDEFabcdef") == std::string::npos)
        return true;
    std::error_code unknown;
    return word != kStandardStream && word.find_first_of("./") == std::string::npos &&
           !std::filesystem::exists(zuhost::platform::pathOf(word), unknown);
}

} // namespace

LastArguments handleArgument(std::string& handle) {
    return {{{"HANDLE", handle, "The element's handle; the last word when it looks like one"}}, isHandle};
}

} // namespace zu::app
