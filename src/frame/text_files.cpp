#include <zucomn/model/text_files.h>

#include "link_merge.h"
#include "text_encoding.h"

#include <afx.h>

#include <string>

bool zucomn::isUnmarkedUtf8(const wchar_t* path) {
    constexpr UINT kMostBytes = 1U << 20U;
    CFile file;
    if (path == nullptr || !file.Open(path, CFile::modeRead | CFile::shareDenyNone))
        return false;
    try {
        std::string bytes(kMostBytes, '\0');
        bytes.resize(file.Read(bytes.data(), kMostBytes));
        // Whole lines only: the limit may split a character.
        if (bytes.size() == kMostBytes)
            bytes.resize(bytes.rfind('\n') + 1);
        return zu::isUnmarkedUtf8(bytes);
    } catch (CFileException* error) {
        error->Delete();
        return false;
    }
}

bool zucomn::isLinkPair(const wchar_t* key, const wchar_t* value) {
    return key != nullptr && value != nullptr && zu::isReadable({key, value});
}
