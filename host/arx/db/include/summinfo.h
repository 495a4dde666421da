#pragma once

#include "dbmain.h"

#include <zuhost/platform/export.h>

#include <array>

/// The drawing's properties: the fixed ones, such as the title, and custom ones, texts by key in their order.
/// A fixed one that the drawing lacks is empty.
class ZUHOST_API AcDbDatabaseSummaryInfo : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDatabaseSummaryInfo);

    [[nodiscard]] AcDbDatabase* database() const { return database_; }
    void setDatabase(AcDbDatabase* database) { database_ = database; }

    /// The caller frees texts with acutDelString. A null text counts as empty.
    Acad::ErrorStatus getTitle(ACHAR*& text) const { return fixed(kTitle, text); }
    Acad::ErrorStatus getTitle(AcString& text) const { return fixed(kTitle, text); }
    Acad::ErrorStatus setTitle(const ACHAR* text) { return setFixed(kTitle, text); }
    Acad::ErrorStatus getSubject(ACHAR*& text) const { return fixed(kSubject, text); }
    Acad::ErrorStatus getSubject(AcString& text) const { return fixed(kSubject, text); }
    Acad::ErrorStatus setSubject(const ACHAR* text) { return setFixed(kSubject, text); }
    Acad::ErrorStatus getAuthor(ACHAR*& text) const { return fixed(kAuthor, text); }
    Acad::ErrorStatus getAuthor(AcString& text) const { return fixed(kAuthor, text); }
    Acad::ErrorStatus setAuthor(const ACHAR* text) { return setFixed(kAuthor, text); }
    Acad::ErrorStatus getKeywords(ACHAR*& text) const { return fixed(kKeywords, text); }
    Acad::ErrorStatus getKeywords(AcString& text) const { return fixed(kKeywords, text); }
    Acad::ErrorStatus setKeywords(const ACHAR* text) { return setFixed(kKeywords, text); }
    Acad::ErrorStatus getComments(ACHAR*& text) const { return fixed(kComments, text); }
    Acad::ErrorStatus getComments(AcString& text) const { return fixed(kComments, text); }
    Acad::ErrorStatus setComments(const ACHAR* text) { return setFixed(kComments, text); }
    Acad::ErrorStatus getLastSavedBy(ACHAR*& text) const { return fixed(kLastSavedBy, text); }
    Acad::ErrorStatus getLastSavedBy(AcString& text) const { return fixed(kLastSavedBy, text); }
    Acad::ErrorStatus setLastSavedBy(const ACHAR* text) { return setFixed(kLastSavedBy, text); }
    Acad::ErrorStatus getRevisionNumber(ACHAR*& text) const { return fixed(kRevisionNumber, text); }
    Acad::ErrorStatus getRevisionNumber(AcString& text) const { return fixed(kRevisionNumber, text); }
    Acad::ErrorStatus setRevisionNumber(const ACHAR* text) { return setFixed(kRevisionNumber, text); }
    Acad::ErrorStatus getHyperlinkBase(ACHAR*& text) const { return fixed(kHyperlinkBase, text); }
    Acad::ErrorStatus getHyperlinkBase(AcString& text) const { return fixed(kHyperlinkBase, text); }
    Acad::ErrorStatus setHyperlinkBase(const ACHAR* text) { return setFixed(kHyperlinkBase, text); }

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
    enum Fixed {
        kTitle,
        kSubject,
        kAuthor,
        kKeywords,
        kComments,
        kLastSavedBy,
        kRevisionNumber,
        kHyperlinkBase,
        kFixedCount
    };
    friend ZUHOST_API Acad::ErrorStatus acdbGetSummaryInfo(AcDbDatabase* database,
                                                           AcDbDatabaseSummaryInfo*& info);
    friend ZUHOST_API Acad::ErrorStatus acdbPutSummaryInfo(const AcDbDatabaseSummaryInfo* info);
    Acad::ErrorStatus fixed(Fixed property, ACHAR*& text) const;
    Acad::ErrorStatus fixed(Fixed property, AcString& text) const;
    Acad::ErrorStatus setFixed(Fixed property, const ACHAR* text);

    struct Custom {
        std::wstring key;
        std::wstring value;
    };
    [[nodiscard]] int find(const ACHAR* key) const;

    AcDbDatabase* database_ = nullptr;
    std::array<std::wstring, kFixedCount> fixed_;
    std::vector<Custom> custom_;
};

/// Returns a copy of the drawing's custom properties, which the caller deletes.
ZUHOST_API Acad::ErrorStatus acdbGetSummaryInfo(AcDbDatabase* database, AcDbDatabaseSummaryInfo*& info);
/// Replaces the properties of the copy's database by the copy.
ZUHOST_API Acad::ErrorStatus acdbPutSummaryInfo(const AcDbDatabaseSummaryInfo* info);
