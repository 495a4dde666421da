#pragma once

#include "dbmain.h"

/// The drawing's custom properties: texts by key, in their order.
class AcDbDatabaseSummaryInfo {
public:
    [[nodiscard]] int numCustomInfo() const { return static_cast<int>(custom_.size()); }
    /// Keys are compared ignoring case. eKeyNotFound when there is no such property.
    Acad::ErrorStatus getCustomSummaryInfo(const ACHAR* key, std::wstring& value) const;
    Acad::ErrorStatus getCustomSummaryInfo(int index, std::wstring& key, std::wstring& value) const;
    /// eDuplicateKey when the key exists.
    Acad::ErrorStatus addCustomSummaryInfo(const ACHAR* key, const ACHAR* value);
    Acad::ErrorStatus setCustomSummaryInfo(const ACHAR* key, const ACHAR* value);
    Acad::ErrorStatus deleteCustomSummaryInfo(const ACHAR* key);

private:
    struct Custom {
        std::wstring key;
        std::wstring value;
    };
    [[nodiscard]] int find(const ACHAR* key) const;

    std::vector<Custom> custom_;
};

/// Returns a copy of the drawing's custom properties, and replaces them by a changed copy.
Acad::ErrorStatus acdbGetSummaryInfo(const AcDbDatabase* database,
                                     std::unique_ptr<AcDbDatabaseSummaryInfo>& info);
Acad::ErrorStatus acdbPutSummaryInfo(AcDbDatabase* database, const AcDbDatabaseSummaryInfo& info);
