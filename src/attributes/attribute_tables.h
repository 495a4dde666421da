#pragma once

#include <afxcoll.h>

namespace zu {

/// The library's title table (records of attribute id and display name) and parameter table (attribute id,
/// kind letter, offered text, editable). Records are CStringArray objects.
class AttributeTables {
public:
    /// Returns the library's instance. Reads missing tables when the path of the settings file has changed
    /// since the last attempt.
    static AttributeTables& instance();

    /// Reads the tables that are still empty from the standard-parts folder of the settings. Loaded tables
    /// are kept until the library is reset or unloaded.
    void readMissing();

    AttributeTables() = default;
    ~AttributeTables();
    AttributeTables(const AttributeTables&) = delete;
    AttributeTables& operator=(const AttributeTables&) = delete;

    [[nodiscard]] const CPtrArray& titles() const { return titles_; }
    [[nodiscard]] const CPtrArray& parameters() const { return parameters_; }

    /// Returns the path of a table's file; empty when the settings name no folder.
    [[nodiscard]] static CString titlesFile();
    [[nodiscard]] static CString parametersFile();

    /// Reads the current parameter table from its file; the caller frees `records` with ZuComn_RemoveAllFree.
    /// Returns false when the settings name no folder or the file cannot be read or has no records.
    static bool readParameters(CPtrArray& records);

private:
    CPtrArray titles_;
    CPtrArray parameters_;
    CString settingsFile_; ///< The settings file of the last attempt to read the tables.
};

} // namespace zu
