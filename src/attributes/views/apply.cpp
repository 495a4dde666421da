#include "attributes/model/write_back.h"
#include "attributes/views/attribute_pane.h"
#include "frame/module_state.h"

#include <zucomn/frame.h>
#include <zucomn/settings.h>
#include <zucomn/tables.h>

namespace zu {

bool readParameters(CPtrArray& records) {
    CString folder;
    if (ZuComn_GetEnv(folder, ZUCE_INIFILE, L"環境設定", L"標準部品") != 0)
        return false;
    CString path;
    path.Format(L"%s\\%s", folder, L"属性IDパラメータ.csv");
    return ZuComn_ReadConfigFile(path, records, 0, nullptr, L"|", 0) == 0;
}

int applyToEntities(const AttributePane& pane, std::span<const AcDbObjectId> entities) {
    const ResourceScope scope;
    CPtrArray records;
    const bool hasParameters = readParameters(records);
    const ParameterIndex parameters(records);
    ZuComn_RemoveAllFree(records);
    return hasParameters ? writeBack(entities, pane.items(), parameters) : 0;
}

} // namespace zu
