#include "attribute_edit.h"

#include "text.h"

#include <arxutil.h>
#include <dbents.h>
#include <dbobjptr.h>
#include <dbsymtb.h>
#include <zucomn/attributes.h>
#include <zucomn/frame.h>
#include <zucomn/settings.h>
#include <zucomn/tables.h>

namespace zu::app {

namespace {

constexpr const wchar_t* kApplication = L"ZU_ATTR";

/// Empty when the element's layer is not locked.
std::string lockedLayer(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbEntity> entity(id);
    if (entity.openStatus() != Acad::eOk)
        return {};
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(entity->layerId());
    return layer.openStatus() == Acad::eOk && layer->isLocked() ? narrow(layer->name()) : std::string();
}

CString searchKey(const std::string& key) {
    const CString text = wide(key);
    return text.Right(1) == L"|" ? text : text + L"|";
}

enum class Outcome { changed, noAttribute, failed };

Outcome setAttribute(AcDbObjectId id, const CString& key, const CString& value) {
    CStringArray record;
    ApiComn_extractAttributesArrayID(id, kApplication, record);
    const int place = CAttributeData::FindAtt(&record, key);
    if (place < 0)
        return Outcome::noAttribute;
    // What no "|" ends would be dropped.
    if (record[place].Find(L'|', key.GetLength()) < 0)
        record[place] += L"|";
    CAttributeData::SetAtAtt(&record, key, value);
    return ApiComn_appendAttributesArray(id, kApplication, record) == 0 ? Outcome::changed : Outcome::failed;
}

bool hasAttribute(AcDbObjectId id, const CString& key) {
    CStringArray record;
    ApiComn_extractAttributesArrayID(id, kApplication, record);
    return CAttributeData::FindAtt(&record, key) >= 0;
}

} // namespace

AttributeEdit editAttribute(const std::vector<AcDbObjectId>& elements, const std::string& key,
                            const std::string& value, bool askedByName) {
    AttributeEdit edit;
    const CString search = searchKey(key);
    for (const AcDbObjectId id : elements) {
        if (!hasAttribute(id, search)) {
            if (askedByName)
                edit.skipped.push_back({id, "no attribute " + key});
            continue;
        }
        const std::string layer = lockedLayer(id);
        if (!layer.empty()) {
            edit.skipped.push_back({id, "layer " + layer + " is locked"});
            continue;
        }
        if (setAttribute(id, search, wide(value)) == Outcome::changed)
            edit.changed.push_back(id);
        else
            edit.skipped.push_back({id, "its attributes can't be written"});
    }
    return edit;
}

bool mayEditAttribute(const std::string& key) {
    CString folder;
    if (ZuComn_GetEnv(folder, ZUCE_INIFILE, L"環境設定", L"標準部品") != 0)
        return true;
    CPtrArray table;
    if (ZuComn_ReadConfigFile(folder + L"\\属性IDパラメータ.csv", table, 0, nullptr, L"|", 0) != 0)
        return true;
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
