#include "text.h"

#include "failure.h"

#include <zuhost/paths.h>
#include <zuhost/platform/paths.h>
#include <zuhost/text_codec.h>
#include <zuhost/texts.h>

#include <filesystem>

namespace zu::app {

CString wide(const std::string& utf8) {
    return zuhost::textOf(zuhost::fromUtf8(utf8));
}

std::string narrow(std::wstring_view text) {
    return zuhost::toUtf8(text);
}

std::vector<std::string> narrow(const CStringArray& texts) {
    std::vector<std::string> result;
    result.reserve(static_cast<std::size_t>(texts.GetSize()));
    for (int i = 0; i < texts.GetSize(); ++i)
        result.push_back(narrow(zuhost::viewOf(texts[i])));
    return result;
}

CString filePath(const std::string& file) {
    CString path = wide(file);
    if (narrow(zuhost::viewOf(path)) != file)
        throw Failure(file + ": The name is not valid UTF-8");
    return path;
}

CString fullPath(const std::string& file) {
    return zuhost::textOf(zuhost::hostPath(narrow(zuhost::viewOf(
        filePath(zuhost::platform::textOf(std::filesystem::absolute(zuhost::platform::pathOf(file))))))));
}

} // namespace zu::app
