// Any bytes as a part drawing, ASCII or binary, by both tables; comments before an ASCII drawing change
// nothing, and the strict table never reads more than the complete one.
#include "../support/memory_file.h"
#include "../support/require.h"

#include <zucomn/dxf.h>

#include <string>
#include <string_view>

using zu::fuzz::require;

namespace {

int countOf(const CAcadDxf& part) {
    int count = part.GetEntities().GetCount() + part.GetLayers().GetCount();
    for (POSITION at = part.GetBlocks().GetHeadPosition(); at != nullptr;)
        count += 1 + static_cast<const CBlock*>(part.GetBlocks().GetNext(at))->m_entities.GetCount();
    return count;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const zu::fuzz::MemoryFile file;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const CString path = file.fill(bytes);
    const CAcadDxf part(path);
    const CAcadDxf strict(path, CAcadDxf::kWhite, CAcadDxf::kStrictTable);
    require(CAcadDxf::IsAscii(path) == part.GetAsciiFlag(), "the form is detected in two ways");
    if (part.GetAsciiFlag() == 0)
        return 0;
    require(countOf(part) == countOf(strict), "the table counts for ASCII");
    if (bytes.find('\n') == std::string_view::npos || bytes.starts_with("\xEF\xBB\xBF"))
        return 0;
    const CAcadDxf commented(file.fill("999\ncomment\n" + std::string(bytes)));
    require(countOf(part) == countOf(commented), "a comment counts");
    return 0;
}
