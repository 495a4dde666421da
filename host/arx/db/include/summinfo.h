#pragma once

#include "dbmain.h"

/// The drawing's properties; of them its custom variables, texts by key in their order.
class AcDbDatabaseSummaryInfo {
public:
    [[nodiscard]] int numCustomInfo() const { return static_cast<int>(custom_.size()); }
    /// Keys are compared without regard to case. eKeyNotFound when there is none.
    Acad::ErrorStatus getCustomSummaryInfo(const ACHAR* key, std::wstring& value) const;
    Acad::ErrorStatus getCustomSummaryInfo(int index, std::wstring& key, std::wstring& value) const;
    /// eDuplicateKey when the key is there.
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

/// A copy of the drawing's properties, and their replacement by a changed copy.
Acad::ErrorStatus acdbGetSummaryInfo(const AcDbDatabase* database,
                                     std::unique_ptr<AcDbDatabaseSummaryInfo>& info);
Acad::ErrorStatus acdbPutSummaryInfo(AcDbDatabase* database, const AcDbDatabaseSummaryInfo& info);
