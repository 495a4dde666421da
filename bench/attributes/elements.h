#pragma once

#include <afxcoll.h>
#include <dbid.h>
#include <dbmain.h>

#include <memory>
#include <string>
#include <vector>

/// A drawing of elements on a few layers, each with a record of 20 attributes "S1" to "S20".
class Elements {
public:
    static constexpr int kAttributes = 20;

    explicit Elements(int count);

    [[nodiscard]] AcDbDatabase& database() const { return *database_; }
    [[nodiscard]] const std::vector<AcDbObjectId>& ids() const { return ids_; }
    /// The drawing opened anew from its file: nothing of it is built yet.
    void reopen();

private:
    std::string bytes_;
    std::unique_ptr<AcDbDatabase> database_;
    std::vector<AcDbObjectId> ids_;
    std::vector<AcDbHandle> handles_;
};
