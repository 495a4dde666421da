#include "zuhost/platform/streams.h"

namespace zuhost::platform {

/// They pass bytes as they are.
void prepareStandardStreams() {}

std::vector<std::string> programArguments(int count, const char* const* arguments) {
    return {arguments, arguments + count};
}

} // namespace zuhost::platform
