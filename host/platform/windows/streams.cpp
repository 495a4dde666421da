#include "zuhost/platform/streams.h"

#include "system_call.h"

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <cstdio>

namespace zuhost::platform {

void prepareStandardStreams() {
    for (std::FILE* const stream : {stdin, stdout, stderr})
        _setmode(_fileno(stream), _O_BINARY);
    SetConsoleOutputCP(CP_UTF8);
}

/// The system's own: those of main() are in the code page of the process.
std::vector<std::string> programArguments(int /*count*/, const char* const* /*arguments*/) {
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 0; i < count; ++i)
        arguments.push_back(utf8Text(words[i]));
    LocalFree(words);
    return arguments;
}

} // namespace zuhost::platform
