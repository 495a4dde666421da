// Any bytes as the files beside drawings: part outlines, attribute files, link information, parts lists. What
// was saved is read back.
#include "../support/require.h"
#include "../support/scratch_folder.h"

#include "attributes/partslist/attribute_lines.h"
#include "attributes/partslist/lines_file.h"

#include <zucomn/attributes.h>
#include <zucomn/dxf.h>
#include <zucomn/link_info.h>

#include <algorithm>
#include <cstdint>

using zu::fuzz::require;

namespace {

void readOutline(const CString& file) {
    const CAcadDxf part(file);
    CAcadDxf again;
    require(again.LoadZufData(part.GetZufLines()), "the lines of an outline are refused");
    CString member;
    for (int i = 0; i < part.GetZufLines().GetSize(); ++i)
        for (int n = 0; n < 8; ++n)
            CAcadDxf::GetRecordMember(n, part.GetZufLines()[i], member);
}

void readAttributeFile(const CString& file) {
    CAttributeData data;
    if (data.ReadData(file, 0) != 0)
        return;
    require(data.ReadData2(file, 1) == 0, "a file is read in one way only");
    const CPtrArray& tables = data.GetEntityList();
    require(tables.GetSize() == 2, "a file is not one table");
    CPtrArray lists;
    require(data.WriteData(tables, lists) == 0, "a table can't be stored");
    data.WriteDataFree(lists);
}

void saveLinks(const CString& file) {
    CStringArray keys;
    CStringArray values;
    keys.Add(L"zu-key");
    values.Add(L"zu-value");
    CStringArray before;
    ZuComn_GetLinkInfo(file, keys, before);
    if (!ZuComn_SaveLinkInfo(file, keys, values))
        return;
    CStringArray after;
    require(ZuComn_GetLinkInfo(file, keys, after) && after.GetSize() == 1 && after[0] == values[0],
            "a saved link is not read back");
}

void savePartsList(const CString& file) {
    CStringArray lines;
    if (!zu::readLines(file, lines))
        return;
    const std::vector<zu::ShownItem> items = zu::shownItemsOf(lines);
    zu::applyToLines(lines, items, zu::ParameterIndex({}));
    if (!zu::saveLines(file, lines))
        return;
    CStringArray again;
    require(zu::readLines(file, again), "a saved parts list can't be read");
    require(std::equal(lines.GetData(), lines.GetData() + lines.GetSize(), again.GetData(),
                       again.GetData() + again.GetSize()),
            "a parts list changed");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const zu::fuzz::ScratchFolder folder;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    readOutline(folder.write("part.zuf", bytes));
    readAttributeFile(folder.write("part.csv", bytes));
    readAttributeFile(folder.write("part.csw", bytes));
    saveLinks(folder.write("LinkInfo.lif", bytes));
    savePartsList(folder.write("list.csv", bytes));
    savePartsList(folder.write("RootAttr.dat", bytes));
    return 0;
}
