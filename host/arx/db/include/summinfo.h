#pragma once

#include "dbmain.h"

/// The drawing's custom properties: texts by key, in their order. Title, author and the other fixed
/// properties are not modelled; they are saved as they were read.
class AcDbDatabaseSummaryInfo : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDatabaseSummaryInfo);

    [[nodiscard]] AcDbDatabase* database() const { return database_; }
    void setDatabase(AcDbDatabase* database) { database_ = database; }

    [[nodiscard]] int numCustomInfo() const { return static_cast<int>(custom_.size()); }
    /// Keys are compared ignoring case; the caller frees keys and values with acutDelString. eKeyNotFound
    /// when there is no such property, eInvalidInput for a null key.
    Acad::ErrorStatus getCustomSummaryInfo(const ACHAR* key, ACHAR*& value) const;
    Acad::ErrorStatus getCustomSummaryInfo(const ACHAR* key, AcString& value) const;
    /// eInvalidIndex when there is no such property.
    Acad::ErrorStatus getCustomSummaryInfo(int index, ACHAR*& key, ACHAR*& value) const;
    Acad::ErrorStatus getCustomSummaryInfo(int index, AcString& key, AcString& value) const;
    /// eDuplicateKey when the key exists, eInvalidInput for a null key. A null value counts as empty.
    Acad::ErrorStatus addCustomSummaryInfo(const ACHAR* key, const ACHAR* value);
    Acad::ErrorStatus setCustomSummaryInfo(const ACHAR* key, const ACHAR* value);
    Acad::ErrorStatus deleteCustomSummaryInfo(const ACHAR* key);
    Acad::ErrorStatus deleteCustomSummaryInfo(int index);

private:
    struct Custom {
        std::wstring key;
        std::wstring value;
    };
    [[nodiscard]] int find(const ACHAR* key) const;

    AcDbDatabase* database_ = nullptr;
    std::vector<Custom> custom_;
};

/// Returns a copy of the drawing's custom properties, which the caller deletes.
Acad::ErrorStatus acdbGetSummaryInfo(AcDbDatabase* database, AcDbDatabaseSummaryInfo*& info);
/// Replaces the properties of the copy's database by the copy.
Acad::ErrorStatus acdbPutSummaryInfo(const AcDbDatabaseSummaryInfo* info);
