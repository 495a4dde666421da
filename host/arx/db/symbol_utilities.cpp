#include "dbsymutl.h"

#include "dbobjptr.h"
#include "new_text.h"
#include "renaming.h"

#include <zuhost/folded_name.h>

#include <string>

using AcDbSymbolUtilities::Services;

namespace {

bool isSame(const ACHAR* name, const ACHAR* other) {
    return name != nullptr && zuhost::foldedName(name) == zuhost::foldedName(other);
}

template <typename Table>
Acad::ErrorStatus findIn(AcDbObjectId& id, const ACHAR* name, AcDbDatabase* database) {
    const AcDbSymbolTablePointer<Table> table(database);
    return table.openStatus() == Acad::eOk ? table->getAt(name, id) : table.openStatus();
}

template <typename Table>
AcDbObjectId found(const ACHAR* name, AcDbDatabase* database) {
    AcDbObjectId id;
    findIn<Table>(id, name, database);
    return id;
}

std::wstring withoutBars(std::wstring name) {
    std::erase(name, L'|');
    return name;
}

} // namespace

const Services* acdbSymUtil() {
    static const Services services;
    return &services;
}

bool Services::isBlockModelSpaceName(const ACHAR* name) const {
    return isSame(name, blockModelSpaceName());
}
bool Services::isBlockPaperSpaceName(const ACHAR* name) const {
    return isSame(name, blockPaperSpaceName());
}
bool Services::isLayerZeroName(const ACHAR* name) const {
    return isSame(name, layerZeroName());
}

AcDbObjectId Services::blockModelSpaceId(AcDbDatabase* database) const {
    return found<AcDbBlockTable>(blockModelSpaceName(), database);
}
AcDbObjectId Services::blockPaperSpaceId(AcDbDatabase* database) const {
    return found<AcDbBlockTable>(blockPaperSpaceName(), database);
}
AcDbObjectId Services::layerZeroId(AcDbDatabase* database) const {
    return found<AcDbLayerTable>(layerZeroName(), database);
}
AcDbObjectId Services::linetypeByLayerId(AcDbDatabase* database) const {
    return found<AcDbLinetypeTable>(linetypeByLayerName(), database);
}
AcDbObjectId Services::linetypeByBlockId(AcDbDatabase* database) const {
    return found<AcDbLinetypeTable>(linetypeByBlockName(), database);
}
AcDbObjectId Services::linetypeContinuousId(AcDbDatabase* database) const {
    return found<AcDbLinetypeTable>(linetypeContinuousName(), database);
}
AcDbObjectId Services::textStyleStandardId(AcDbDatabase* database) const {
    return found<AcDbTextStyleTable>(textStyleStandardName(), database);
}

Acad::ErrorStatus Services::getBlockId(AcDbObjectId& id, const ACHAR* name, AcDbDatabase* database) const {
    return findIn<AcDbBlockTable>(id, name, database);
}
Acad::ErrorStatus Services::getLayerId(AcDbObjectId& id, const ACHAR* name, AcDbDatabase* database) const {
    return findIn<AcDbLayerTable>(id, name, database);
}
Acad::ErrorStatus Services::getLinetypeId(AcDbObjectId& id, const ACHAR* name, AcDbDatabase* database) const {
    return findIn<AcDbLinetypeTable>(id, name, database);
}
Acad::ErrorStatus Services::getTextStyleId(AcDbObjectId& id, const ACHAR* name,
                                           AcDbDatabase* database) const {
    return findIn<AcDbTextStyleTable>(id, name, database);
}
Acad::ErrorStatus Services::getRegAppId(AcDbObjectId& id, const ACHAR* name, AcDbDatabase* database) const {
    return findIn<AcDbRegAppTable>(id, name, database);
}

Acad::ErrorStatus Services::getSymbolName(AcString& name, AcDbObjectId record) const {
    const AcDbObjectPointer<AcDbSymbolTableRecord> opened(record);
    return opened.openStatus() == Acad::eOk ? opened->getName(name) : opened.openStatus();
}
Acad::ErrorStatus Services::getSymbolName(ACHAR*& name, AcDbObjectId record) const {
    name = nullptr;
    AcString text;
    const Acad::ErrorStatus status = getSymbolName(text, record);
    if (status == Acad::eOk)
        name = zuhost::newText(text.kwszPtr());
    return status;
}

Acad::ErrorStatus Services::validateSymbolName(const ACHAR* name, bool allowVerticalBar) const {
    if (name == nullptr)
        return Acad::eInvalidInput;
    const std::wstring checked = allowVerticalBar ? withoutBars(name) : std::wstring(name);
    return zuhost::isRecordName(checked, false) ? Acad::eOk : Acad::eInvalidInput;
}

Acad::ErrorStatus Services::repairSymbolName(ACHAR*& repaired, const ACHAR* name,
                                             bool allowVerticalBar) const {
    repaired = nullptr;
    if (name == nullptr || *name == L'\0')
        return Acad::eInvalidInput;
    std::wstring text = name;
    for (wchar_t& c : text)
        if (!(c == L'|' && allowVerticalBar) && !zuhost::isRecordName({&c, 1}, false))
            c = L'_';
    repaired = zuhost::newText(text);
    return Acad::eOk;
}
