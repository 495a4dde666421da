#pragma once

#include "export.h"

#include <acarray.h>
#include <afxcoll.h>
#include <dbid.h>
#include <rxclass.h>

/// The attribute record of elements: the tables that the attribute windows show and edit, and their way from
/// and to the "ZU_ATTR" extended data of entities and the attribute files beside part drawings.
///
/// An entity's raw list holds its "ZU_ATTR" strings as stored: the header "N|A|B|" (number of rows, two
/// values of the entity), then one string of six "|"-terminated fields for each row. An entity table is a
/// CPtrArray of rows; a row is a CStringArray of nine columns: A, B, the display name of the item (never
/// stored), and the six stored fields: the attribute id, the value, and four that only the authors of
/// attribute files give a meaning (the kind, a label, the item's number in column 7, a mark). Values that
/// hold "|" break the record; there is no escaping, by design.
class ZUCOMN_API CAttributeData : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(CAttributeData);

    CAttributeData();
    /// Frees the entity list with its tables and rows.
    ~CAttributeData() override;
    CAttributeData(const CAttributeData&) = delete;
    CAttributeData& operator=(const CAttributeData&) = delete;

    /// The entity list: one table (CPtrArray of CStringArray rows) for each entity, in the order read. It
    /// stays the object's.
    [[nodiscard]] const CPtrArray& GetEntityList() const { return m_entities; }

    // ---- entities

    /// Clears the entity list and reads the entity's record into one table; an entity without a record adds
    /// none. Always 0.
    int ReadData(const AcDbObjectId& entity);
    /// The same for several entities in order.
    int ReadData(const AcArray<AcDbObjectId>& entities);
    /// Clears the entity list and appends the entity's raw list, undecoded, as a new CStringArray to `out`;
    /// free it with FreeData3 or WriteDataFree. What GetExtensionElementData returned; unless that is 0 the
    /// list is empty.
    int ReadData3(const AcDbObjectId& entity, CPtrArray* out);

    /// Reads the attribute file of a part into one table. Column 0 is the part's name, column 1 empty,
    /// columns 3 to 8 the fields of a line, missing ones empty. The file is looked for as named, then by its
    /// name in the route-parts and the standard-parts folder of the settings. Mode 0 or 2 clears the entity
    /// list first; any other mode adds to it. 0, or -1 when there is no such file or it holds no row: nothing
    /// is then added.
    int ReadData(const CString& partFile, int mode);
    /// As ReadData; rows without a number (column 7) are numbered by their place, counted from 1.
    int ReadData2(const CString& partFile, int mode);

    /// Encodes each table and appends its raw list as a new CStringArray to `out`; free them with
    /// WriteDataFree. A table without rows gives an empty list. 0. Throws the framework's invalid-argument
    /// exception for a row of fewer than nine columns; the lists of the tables before it stay in `out`.
    int WriteData(const CPtrArray& tables, CPtrArray& out);
    /// Deletes every list, the last first, and empties the array. 0.
    int WriteDataFree(CPtrArray& lists);

    /// The entity's raw list, erased entities included. -1 when the entity can't be opened, with `out`
    /// untouched; 1 when it has no such record, with `out` empty; else 0.
    int GetExtensionElementData(AcDbObjectId entity, CStringArray& out);
    /// The value of one attribute: the text after "KEY|" up to the next "|" in the first string that begins
    /// with it. The key may end in "|" or not. Empty when absent.
    CString GetValueAttID(AcDbObjectId entity, const wchar_t* key);

    /// Modes 0 and 2 free every table and empty the entity list; other modes do nothing.
    void InitData(int mode);
    void FreeData(int mode);
    /// Deletes every CStringArray of the array, the last first, and empties it.
    void FreeData3(CPtrArray& lists);
    /// Does nothing; kept as an entry point.
    void ExchangeArrangeData(CPtrArray& from, CPtrArray& to);

    // ---- raw lists; usable without data

    /// Index of the first string that begins with the key; -1 when there is none.
    static int FindAtt(const CStringArray* list, const wchar_t* key);
    /// The whole string found. 0, or -1 with `out` untouched.
    static int GetAtAtt(const CStringArray* list, const wchar_t* key, CString& out);
    /// The string found up to its first "|". 0, or -1 with `out` untouched.
    static int GetAtt(const CStringArray* list, const wchar_t* key, CString& out);
    /// As GetValueAttID, of a list in hand.
    static CString GetValueAtt(const CStringArray* list, const wchar_t* key);
    /// Replaces the second field of the string found; text after its last "|" is dropped. 0, or -1.
    static int SetAtAtt(CStringArray* list, const wchar_t* key, const wchar_t* value);

    // ---- names and parameters of items

    /// The display name of an attribute id from the library's title table; empty when it has none.
    static CString GetItemName(const wchar_t* attributeId);
    /// The same from a title table in hand (records of id and name).
    static CString GetItemName(const CPtrArray& titles, const wchar_t* attributeId);
    /// Appends the records of an attribute id of the library's parameter table (id, kind letter, text
    /// offered, editable) to `records`; they stay the table's. Returns how many there were.
    static int GetItemParameter(const wchar_t* attributeId, CPtrArray& records);
    /// The same from a parameter table in hand.
    static int GetItemParameter(const CPtrArray& parameters, const wchar_t* attributeId, CPtrArray& records);
    /// Appends the texts offered for an attribute id by records of the kind letter (null or empty: of any
    /// kind); each text once. Returns how many were appended.
    static int GetItemParameter2(const wchar_t* attributeId, const wchar_t* kind, CStringArray& texts);

    // ---- tool tips and dump

    /// The text after the key up to the next blank. 0, or -1 with `out` untouched when the text is empty or
    /// lacks the key.
    static int GettoolTipData(const CString& text, const wchar_t* key, CString& out);
    /// Rewrites the numbers after "W=" and "H=" of a tool tip as "%5.2f"; keys that it lacks are added.
    static void toolTipStrUpDate(CString& text, double width, double height);

    /// Appends a line for each row to the debug file; nothing happens when its folder is missing.
    void TestCPtrArrayDisp();
    void TestCPtrArrayDisp2(const CPtrArray& table);

protected:
    /// Stores a raw list as the entity's record. 0, or -1 when the entity can't be opened for write or takes
    /// no such data; it is then unchanged.
    int SetAttributeData(AcDbObjectId entity, const CStringArray& list);
    /// Encodes a table. 0.
    static int SetAttributeDataArray1(const CPtrArray& table, CStringArray& list);
    /// Decodes a raw list and appends the table to the entity list. 0.
    int SetAttributeDataArray2(const CStringArray& list);
    /// Appends the entity's table, or its raw list, as ReadData and ReadData3 do. What
    /// GetExtensionElementData returned.
    int ObjectIDReadData(AcDbObjectId entity);
    int ObjectIDReadData3(AcDbObjectId entity, CPtrArray* out);

    /// Reads a table file, see ZuComn_ReadConfigFile, and appends its records to `rows`; the caller frees
    /// them with DeleteCPtrArray1. 0, or -1 with nothing appended when there is no separator, no such file or
    /// no record in it. The flag is not used.
    static int ReadConfigFile(const wchar_t* path, CPtrArray& rows, int linesToSkip, const wchar_t* columns,
                              const wchar_t* separator, int flag);
    /// True when a column number (from 1) is in a comma-separated list; a null list holds every column.
    static bool checkIndex(const wchar_t* columns, int column);
    /// 1 when the file can be opened for reading.
    static int findFile(const wchar_t* path);
    /// A value of a settings file; kind 0 gives the text as it stands, any other kind a number as "%5.2f". 0,
    /// or -1 with the destination untouched when it is missing.
    static int GetEnv(CString& destination, int kind, const wchar_t* iniFile, const wchar_t* section,
                      const wchar_t* key);
    /// The attribute file that belongs to a part file, in the same folder: a .csv or .csw file itself, else
    /// the part's name with the ending .csv. Drawings NAME-NN.dxf, NN being two digits, share NAME.csv.
    static CString GetCsvFileName(const CString& partFile);
    /// The part's name: the attribute file's without folder and ending.
    static CString GetPartsName(const CString& partFile);
    /// Appends the table of a part's attribute file, as ReadData and ReadData2 do with their modes that add.
    int AttributeFileReadData(const CString& partFile);
    int AttributeFileReadData2(const CString& partFile);

    /// Fills a row from the entity's values and the six stored fields.
    static void SetArrayData(CStringArray& row, const CString& first, const CString& second,
                             const CStringArray& fields);

    // Shared items of several tables: an item is shared when each table has a row of its id (column 3).
    /// Builds the table of shared items of the entity list; values (column 4) that differ become "*各種*".
    /// The caller frees it with DeleteCPtrArray1. 0.
    int AddCommon(CPtrArray& common);
    /// Keeps of a table of shared items those that the table has, and marks the values that differ.
    static void AddCommonData(CPtrArray& common, const CPtrArray& table);
    /// Index of the row with the item id; -1 when there is none.
    static int AddCommonDataSearch(const CPtrArray& table, const wchar_t* attributeId);
    static int CommonItemSearch(const CPtrArray& table, const wchar_t* attributeId);
    /// True when every table of the entity list has the item.
    bool CheckCommon(const wchar_t* attributeId) const;
    /// A copy of a row, owned by the caller.
    static CStringArray* CommonItemCreate(const CStringArray& row);
    static void CommonItemCopy(const CStringArray& from, CStringArray& to);
    /// Writes the values of shared items into the tables of the entity list, except "*各種*".
    void SetCommonData(const CPtrArray& common);

    /// Deletes the rows of a table and empties it.
    static void DeleteCPtrArray1(CPtrArray& table);
    /// Deletes the tables of a list with their rows and empties it.
    static void DeleteCPtrArray2(CPtrArray& tables);

private:
    CPtrArray m_entities;
};
