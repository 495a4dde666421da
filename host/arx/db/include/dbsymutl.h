#pragma once

#include "dbsymtb.h"

#include <zuhost/platform/export.h>

/// Names and records that every drawing has, and records by name.
namespace AcDbSymbolUtilities {

class ZUHOST_API Services {
public:
    [[nodiscard]] const ACHAR* blockModelSpaceName() const { return ACDB_MODEL_SPACE; }
    [[nodiscard]] const ACHAR* blockPaperSpaceName() const { return ACDB_PAPER_SPACE; }
    [[nodiscard]] const ACHAR* layerZeroName() const { return L"0"; }
    [[nodiscard]] const ACHAR* linetypeByLayerName() const { return L"ByLayer"; }
    [[nodiscard]] const ACHAR* linetypeByBlockName() const { return L"ByBlock"; }
    [[nodiscard]] const ACHAR* linetypeContinuousName() const { return L"Continuous"; }
    [[nodiscard]] const ACHAR* textStyleStandardName() const { return L"Standard"; }
    [[nodiscard]] bool isBlockModelSpaceName(const ACHAR* name) const;
    [[nodiscard]] bool isBlockPaperSpaceName(const ACHAR* name) const;
    [[nodiscard]] bool isLayerZeroName(const ACHAR* name) const;

    // ---- records; null ids for no database and one that lacks the record
    [[nodiscard]] AcDbObjectId blockModelSpaceId(AcDbDatabase* database) const;
    [[nodiscard]] AcDbObjectId blockPaperSpaceId(AcDbDatabase* database) const;
    [[nodiscard]] AcDbObjectId layerZeroId(AcDbDatabase* database) const;
    [[nodiscard]] AcDbObjectId linetypeByLayerId(AcDbDatabase* database) const;
    [[nodiscard]] AcDbObjectId linetypeByBlockId(AcDbDatabase* database) const;
    [[nodiscard]] AcDbObjectId linetypeContinuousId(AcDbDatabase* database) const;
    [[nodiscard]] AcDbObjectId textStyleStandardId(AcDbDatabase* database) const;

    /// eKeyNotFound when there is no such record, eNullObjectPointer for no database.
    Acad::ErrorStatus getBlockId(AcDbObjectId& id, const ACHAR* name, AcDbDatabase* database) const;
    Acad::ErrorStatus getLayerId(AcDbObjectId& id, const ACHAR* name, AcDbDatabase* database) const;
    Acad::ErrorStatus getLinetypeId(AcDbObjectId& id, const ACHAR* name, AcDbDatabase* database) const;
    Acad::ErrorStatus getTextStyleId(AcDbObjectId& id, const ACHAR* name, AcDbDatabase* database) const;
    Acad::ErrorStatus getRegAppId(AcDbObjectId& id, const ACHAR* name, AcDbDatabase* database) const;
    /// Returns the name of a record; the caller of the second form frees it with acutDelString.
    /// eNotThatKindOfClass for what is no record.
    Acad::ErrorStatus getSymbolName(AcString& name, AcDbObjectId record) const;
    Acad::ErrorStatus getSymbolName(ACHAR*& name, AcDbObjectId record) const;

    /// eInvalidInput for a name that records can't have; "|" is allowed on request only.
    Acad::ErrorStatus validateSymbolName(const ACHAR* name, bool allowVerticalBar) const;
    /// Replaces each character that names of records can't have by "_"; the caller frees the name with
    /// acutDelString. eInvalidInput for an empty name.
    Acad::ErrorStatus repairSymbolName(ACHAR*& repaired, const ACHAR* name, bool allowVerticalBar) const;
};

} // namespace AcDbSymbolUtilities

ZUHOST_API const AcDbSymbolUtilities::Services* acdbSymUtil();
