#pragma once

#include "export.h"

#include <acarray.h>
#include <afxcoll.h>
#include <dbid.h>
#include <rxclass.h>

/// The attribute tables of entities, and their transfer to and from the "ZU_ATTR" extended data of entities
/// and the attribute files beside part drawings.
///
/// A raw list holds the "ZU_ATTR" strings of one entity as stored: the header "N|A|B|" (number of rows, two
/// values of the entity), then for each row one string of six fields that each end in "|".
///
/// An entity table is a CPtrArray of rows; a row is a CStringArray of nine columns: 0 and 1 the values A and
/// B; 2 the item's display name, which is never stored; 3 to 8 the six stored fields. These are the attribute
/// id, the value, the kind, a label, the item's number and a mark; the authors of attribute files define all
/// but the first two. A value that contains "|" breaks the record: there is no escaping.
///
/// Arrays that are passed in must hold the element types stated here. Rows of fewer than nine columns cause
/// the framework's invalid-argument exception. No function shows a message.
class ZUCOMN_API CAttributeData : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(CAttributeData);

    CAttributeData();
    /// Deletes the entity list with its tables and rows.
    ~CAttributeData() override;
    CAttributeData(const CAttributeData&) = delete;
    CAttributeData& operator=(const CAttributeData&) = delete;

    /// Returns the entity list: one entity table per entity, in the order read. This object keeps ownership.
    [[nodiscard]] const CPtrArray& GetEntityList() const { return m_entities; }

    // ---- entities

    /// Clears the entity list and appends the entity's table, or nothing when the entity has no record.
    /// Always returns 0.
    int ReadData(const AcDbObjectId& entity);
    /// Clears the entity list and appends the tables of several entities in order, see above. Always returns
    /// 0.
    int ReadData(const AcArray<AcDbObjectId>& entities);
    /// Clears the entity list and appends the entity's raw list to `out` as a new CStringArray, which the
    /// caller deletes with FreeData3 or WriteDataFree. Returns the result of GetExtensionElementData, whose
    /// errors leave the new list empty; -1 when `out` is null.
    int ReadData3(const AcDbObjectId& entity, CPtrArray* out);

    /// Reads the attribute file of a part into one table: column 0 is the part's name, column 1 is empty,
    /// columns 3 to 8 are the fields of a line, missing ones empty. When the file is not beside the part, it
    /// is looked up by name in the route-parts and the standard-parts folder of the settings. Modes 0 and 2
    /// clear the entity list first; other modes append. Returns 0 on success, -1 with no table appended when
    /// the file is missing or has no rows.
    int ReadData(const CString& partFile, int mode);
    /// Works as ReadData, and sets an empty item number (column 7) to the row's number, counted from 1.
    int ReadData2(const CString& partFile, int mode);

    /// Encodes each table and appends its raw list to `out` as a new CStringArray, which the caller deletes
    /// with WriteDataFree. A table without rows yields an empty list. Returns 0. When a row is too short, the
    /// lists of the tables before it stay in `out`.
    int WriteData(const CPtrArray& tables, CPtrArray& out);
    /// Deletes all lists, the last first, and empties the array. Returns 0.
    int WriteDataFree(CPtrArray& lists);

    /// Reads the entity's raw list; erased entities are accepted. Returns 0 on success, 1 with `out` empty
    /// when the entity has no attribute record, -1 with `out` untouched when it cannot be opened.
    int GetExtensionElementData(AcDbObjectId entity, CStringArray& out);
    /// Returns the value of an attribute: in the first string that begins with "KEY|", the text after that up
    /// to the next "|". `key` is given with or without the "|". Returns an empty text when it is missing.
    CString GetValueAttID(AcDbObjectId entity, const wchar_t* key);

    /// Deletes all tables and empties the entity list in modes 0 and 2; does nothing in other modes.
    void InitData(int mode);
    /// Works as InitData.
    void FreeData(int mode);
    /// Deletes all CStringArray elements of the array, the last first, and empties it.
    void FreeData3(CPtrArray& lists);
    /// Does nothing; kept for compatibility.
    void ExchangeArrangeData(CPtrArray& from, CPtrArray& to);

    // ---- raw lists

    /// Returns the index of the first string that begins with the key; -1 when there is none.
    static int FindAtt(const CStringArray* list, const wchar_t* key);
    /// Copies the string that FindAtt finds. Returns 0, or -1 with `out` untouched when there is none.
    static int GetAtAtt(const CStringArray* list, const wchar_t* key, CString& out);
    /// Copies the string that FindAtt finds up to its first "|". Returns 0, or -1 with `out` untouched.
    static int GetAtt(const CStringArray* list, const wchar_t* key, CString& out);
    /// Returns the value of an attribute in a raw list, see GetValueAttID.
    static CString GetValueAtt(const CStringArray* list, const wchar_t* key);
    /// Replaces the second field of the string that FindAtt finds and removes the text after its last "|".
    /// Returns 0, or -1 with the list unchanged when there is none.
    static int SetAtAtt(CStringArray* list, const wchar_t* key, const wchar_t* value);

    // ---- names and parameters of items

    /// Returns the display name of an attribute id in the library's title table; empty when it is missing.
    static CString GetItemName(const wchar_t* attributeId);
    /// Returns the display name in the given title table, whose records hold an id and a name.
    static CString GetItemName(const CPtrArray& titles, const wchar_t* attributeId);
    /// Appends the records of an attribute id in the library's parameter table (id, kind letter, offered
    /// text, editable) to `records`. The table keeps ownership. Returns the number of records appended.
    static int GetItemParameter(const wchar_t* attributeId, CPtrArray& records);
    /// Does the same with the given parameter table.
    static int GetItemParameter(const CPtrArray& parameters, const wchar_t* attributeId, CPtrArray& records);
    /// Appends the texts that the library's parameter table offers for an attribute id, skipping those
    /// already in `texts`. `kind` selects the records of one kind letter; null or empty selects all. Returns
    /// the number of texts appended.
    static int GetItemParameter2(const wchar_t* attributeId, const wchar_t* kind, CStringArray& texts);

    // ---- tool tips and dump

    /// Copies the text after the key up to the next blank. Returns 0, or -1 with `out` untouched when the
    /// text does not contain the key.
    static int GettoolTipData(const CString& text, const wchar_t* key, CString& out);
    /// Replaces the numbers after "W=" and "H=" in a tool tip, formatted by "%5.2f" without leading blanks.
    /// Appends missing keys.
    static void toolTipStrUpDate(CString& text, double width, double height);

    /// Appends a line for each row of the entity list to the debug file. Does nothing when its folder is
    /// missing.
    void TestCPtrArrayDisp();
    /// Appends a line for each row of one table.
    void TestCPtrArrayDisp2(const CPtrArray& table);

protected:
    /// Stores a raw list as the entity's attribute record. Returns 0 on success, -1 with the entity unchanged
    /// when it cannot be opened for writing or rejects the record, for example because it is too large.
    int SetAttributeData(AcDbObjectId entity, const CStringArray& list);
    /// Replaces `list` by the encoded table. Returns 0.
    static int SetAttributeDataArray1(const CPtrArray& table, CStringArray& list);
    /// Decodes a raw list and appends its table to the entity list; an empty raw list appends none. Returns
    /// 0.
    int SetAttributeDataArray2(const CStringArray& list);
    /// Appends the entity's table to the entity list. Returns the result of GetExtensionElementData.
    int ObjectIDReadData(AcDbObjectId entity);
    /// Appends the entity's raw list to `out`, see ReadData3.
    int ObjectIDReadData3(AcDbObjectId entity, CPtrArray* out);

    /// Reads a table file, see ZuComn_ReadConfigFile, and appends its records to `rows`; the caller deletes
    /// them with DeleteCPtrArray1. `flag` is ignored. Returns 0 on success, -1 with nothing appended when the
    /// separator is null, the file cannot be read or has no records.
    static int ReadConfigFile(const wchar_t* path, CPtrArray& rows, int linesToSkip, const wchar_t* columns,
                              const wchar_t* separator, int flag);
    /// Returns true when a column number (from 1) is in a comma-separated list; null lists all columns.
    static bool checkIndex(const wchar_t* columns, int column);
    /// Returns 1 when the file can be opened for reading, else 0.
    static int findFile(const wchar_t* path);
    /// Reads a value from a settings file: as text for kind 0, else as a number formatted by "%5.2f". Returns
    /// 0 on success, -1 with `destination` untouched when it is missing.
    static int GetEnv(CString& destination, int kind, const wchar_t* iniFile, const wchar_t* section,
                      const wchar_t* key);
    /// Returns the path of the attribute file in the folder of a part file: a .csv or .csw file itself, else
    /// the part's name with ".csv". Drawings NAME-NN.dxf, where NN are two digits, share NAME.csv.
    static CString GetCsvFileName(const CString& partFile);
    /// Returns the part's name: that of its attribute file without folder and extension.
    static CString GetPartsName(const CString& partFile);
    /// Appends the table of a part's attribute file, see ReadData.
    int AttributeFileReadData(const CString& partFile);
    /// Appends the table of a part's attribute file with all item numbers set, see ReadData2.
    int AttributeFileReadData2(const CString& partFile);

    /// Fills a row from the two values of the entity and the six stored fields; missing fields become empty.
    static void SetArrayData(CStringArray& row, const CString& first, const CString& second,
                             const CStringArray& fields);

    // Shared items of several tables: items whose id (column 3) is in every table.

    /// Fills `common` with copies of the shared items of the entity list; values (column 4) that differ
    /// become
    /// "*各種*". The caller deletes the rows with DeleteCPtrArray1. Returns 0.
    int AddCommon(CPtrArray& common);
    /// Removes from `common` the items that are not in the table; sets values that differ to "*各種*".
    static void AddCommonData(CPtrArray& common, const CPtrArray& table);
    /// Returns the index of the row with the attribute id; -1 when there is none.
    static int AddCommonDataSearch(const CPtrArray& table, const wchar_t* attributeId);
    /// Works as AddCommonDataSearch.
    static int CommonItemSearch(const CPtrArray& table, const wchar_t* attributeId);
    /// Returns true when the item is shared; false when the entity list is empty.
    bool CheckCommon(const wchar_t* attributeId) const;
    /// Returns a copy of a row, owned by the caller.
    static CStringArray* CommonItemCreate(const CStringArray& row);
    /// Copies the columns of a row.
    static void CommonItemCopy(const CStringArray& from, CStringArray& to);
    /// Copies the values of shared items, except "*各種*", to the tables of the entity list.
    void SetCommonData(const CPtrArray& common);

    /// Deletes the rows of a table and empties it.
    static void DeleteCPtrArray1(CPtrArray& table);
    /// Deletes the tables of a list with their rows and empties it.
    static void DeleteCPtrArray2(CPtrArray& tables);

private:
    CPtrArray m_entities;
};
