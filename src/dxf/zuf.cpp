#include <zucomn/dxf.h>

#include "frame/text_view.h"
#include "values.h"

#include <string>
#include <string_view>

namespace {

constexpr std::wstring_view kExtension = L"zuf";

double numberOf(const CString& text) {
    const std::wstring_view wide = zu::view(text);
    std::string digits;
    for (const wchar_t c : wide)
        digits += c > 0 && c < 0x80 ? static_cast<char>(c) : '?';
    return zu::dxf::AsciiForm::real(digits).number;
}

/// Returns the path with the three characters after its last point replaced.
CString withExtension(CString path, const wchar_t* extension) {
    const int point = path.ReverseFind(L'.');
    if (point < 0)
        return path + L"." + extension;
    path.Delete(point + 1, 3);
    return path + extension;
}

bool isReadable(const CString& path) {
    CFile file;
    return file.Open(path, CFile::modeRead | CFile::shareDenyNone) != FALSE;
}

} // namespace

bool CAcadDxf::LoadZufData() {
    if (path_.IsEmpty())
        return false;
    const CString path =
        path_.Right(4).CompareNoCase(L".zuf") == 0 ? path_ : withExtension(path_, kExtension.data());
    CStringArray lines;
    try {
        CStdioFile file;
        if (file.Open(path, CFile::modeRead | CFile::shareDenyNone) == FALSE)
            return false;
        CString line;
        while (file.ReadString(line) != FALSE)
            lines.Add(line);
    } catch (CFileException* error) {
        error->Delete();
        return false;
    }
    return LoadZufData(lines);
}

bool CAcadDxf::LoadZufData(const CStringArray& lines) {
    zufLines_.Copy(lines);
    double* const extents[] = {&minX_, &minY_, &maxX_, &maxY_};
    for (int i = 0; i < lines.GetSize(); ++i) {
        if (lines[i].IsEmpty() || lines[i][0] != L'H')
            continue;
        CString member;
        for (int n = 0; n < 4; ++n)
            if (GetRecordMember(n + 1, lines[i], member) == 0)
                *extents[n] = numberOf(member);
    }
    return true;
}

int CAcadDxf::GetRecordMember(int n, const CString& line, CString& member) {
    const std::wstring_view text = zu::view(line);
    std::size_t at = n < 0 ? std::wstring_view::npos : 0;
    for (int run = 0; run < n && at != std::wstring_view::npos; ++run) {
        at = text.find(L' ', at);
        if (at != std::wstring_view::npos)
            at = std::min(text.find_first_not_of(L' ', at), text.size());
    }
    const bool found = at != std::wstring_view::npos;
    // `member` may be `line`: assign it last.
    member = found ? zu::textOf(text.substr(at, text.find(L' ', at) - at)) : CString();
    return found ? 0 : -1;
}

void ZUComn_GetZufNameFromDxfName(CString dxfPath, CString& zufPath) {
    zufPath = withExtension(std::move(dxfPath), kExtension.data());
}

int ZUComn_DxfOrZufFileExistOrNot(const CString& first, const CString& second) {
    if (isReadable(first))
        return 1;
    if (isReadable(second))
        return 2;
    return isReadable(withExtension(first, L"dwg")) ? 3 : 0;
}
