#pragma once

#include "dbmain.h"

#include <zuhost/platform/export.h>

/// A list of values that an application keeps in a dictionary.
class ZUHOST_API AcDbXrecord : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbXrecord);

    /// Sets the values as a chain that the caller frees with acutRelRb; null when there are none.
    /// eInvalidInput for a null pointer. The database is ignored.
    Acad::ErrorStatus rbChain(resbuf** chain, AcDbDatabase* auxiliary = nullptr) const;
    /// Replaces the values. eInvalidInput, and nothing changed, for types that are no group codes of values:
    /// 0, 5, 105, negative ones, those above 481 and the RT codes.
    Acad::ErrorStatus setFromRbChain(const resbuf& chain, AcDbDatabase* auxiliary = nullptr);

protected:
    [[nodiscard]] zuhost::TagList newRecords() const override;
};
