#include "model/attribute_edit.h"

#include "failure.h"
#include "model/drawing_file.h"
#include "model/readable_file.h"
#include "text.h"

#include <afxcoll.h>
#include <zucomn/frame.h>
#include <zucomn/model/attributes.h>
#include <zucomn/settings.h>
#include <zucomn/tables.h>
#include <zuhost/paths.h>

namespace zu::app {

AttributeEdit editAttribute(const std::vector<AcDbObjectId>& elements, const std::string& key,
                            const std::string& value, bool askedByName) {
    const zucomn::AttributeValue wanted{std::wstring(wide(key).SpanExcluding(L"|").view()),
                                        std::wstring(wide(value).view())};
    AttributeEdit edit;
    for (const zucomn::EditedElement& edited : zucomn::editAttributes(elements, {&wanted, 1})) {
        const std::string handle = handleText(edited.element);
        if (!edited.hasAttribute) {
            if (askedByName)
                edit.skipped.push_back({handle, "no attribute " + key});
        } else if (edited.outcome == zucomn::EditOutcome::lockedLayer) {
            edit.skipped.push_back({handle, "layer " + narrow(edited.layer) + " is locked"});
        } else if (edited.outcome == zucomn::EditOutcome::failed) {
            edit.skipped.push_back({handle, "its attributes can't be written"});
        } else {
            edit.changed.push_back(handle);
        }
    }
    return edit;
}

bool mayEditAttribute(const std::string& key) {
    CString folder;
    if (ZuComn_GetEnv(folder, ZUCE_INIFILE, L"環境設定", L"標準部品") != 0)
        throw Failure("the settings name no folder of the parameter table (標準部品 in [環境設定])");
    const CString file = folder + L"\\属性IDパラメータ.csv";
    CPtrArray table;
    if (ZuComn_ReadConfigFile(file, table, 0, nullptr, L"|", 0) != 0) {
        const std::string path = zuhost::systemPath(file.view());
        requireReadable(path);
        throw Failure(path + ": The parameter table holds no records");
    }
    bool editable = false;
    const CString id = wide(key).SpanExcluding(L"|");
    for (int i = 0; i < table.GetSize() && !editable; ++i) {
        const auto* const row = static_cast<const CStringArray*>(static_cast<CObject*>(table[i]));
        editable = row->GetSize() >= 4 && row->GetAt(0) == id && row->GetAt(3).Left(1) == L"1";
    }
    ZuComn_RemoveAllFree(table);
    return editable;
}

} // namespace zu::app
