#pragma once

#include <afxcoll.h>

namespace zu {

/// The library's tables of attribute ids: records (CStringArray) of the title table (id, display name) and of
/// the parameter table (id, kind letter, text offered, editable).
class AttributeTables {
public:
    /// The one copy of the library. Reads the missing tables when they are asked for the first time with a
    /// settings file.
    static AttributeTables& instance();

    /// Reads a table that is still empty from the standard-parts folder of the settings file; what is read is
    /// kept until the library goes.
    void readMissing();

    AttributeTables() = default;
    ~AttributeTables();
    AttributeTables(const AttributeTables&) = delete;
    AttributeTables& operator=(const AttributeTables&) = delete;

    [[nodiscard]] const CPtrArray& titles() const { return titles_; }
    [[nodiscard]] const CPtrArray& parameters() const { return parameters_; }

    /// Reads the parameter table anew into `records`, which the caller frees with ZuComn_RemoveAllFree.
    /// False, with `records` untouched, when the settings name no folder or the file can't be read.
    static bool readParameters(CPtrArray& records);

    /// Empties both tables, so that they are read again.
    void clear();

private:
    CPtrArray titles_;
    CPtrArray parameters_;
    CString triedFor_; ///< The settings file with which reading was tried last.
};

} // namespace zu
