#pragma once

#include "export.h"

#include <acarray.h>
#include <dbid.h>
#include <rxclass.h>

/// Told of route elements that are replaced or merged. Derive from it, override what you need, and register
/// an object with RuleComn_addReplaceReactor.
class ZUCOMN_API CReplaceReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(CReplaceReactor);

    CReplaceReactor();
    ~CReplaceReactor() override;
    /// Copies take nothing over.
    CReplaceReactor(const CReplaceReactor& other);
    CReplaceReactor(CReplaceReactor&& other) noexcept;
    CReplaceReactor& operator=(const CReplaceReactor& other);
    CReplaceReactor& operator=(CReplaceReactor&& other) noexcept;

    /// The element is about to be erased by a replacement: the first of those that are replaced.
    virtual void erase(AcDbObjectId id);
    /// The element has been replaced or merged; `newIds` are the elements that now stand in its place.
    virtual void terminated(AcDbObjectId id, AcArray<AcDbObjectId> newIds);
};

/// Appends the reactor to the library's list. It stays its owner's, who removes it before destroying it. One
/// that is registered twice is told twice. Null is not registered.
ZUCOMN_API void RuleComn_addReplaceReactor(CReplaceReactor* reactor);

/// Removes the first entry of the reactor; nothing happens when there is none.
ZUCOMN_API void RuleComn_removeReplaceReactor(CReplaceReactor* reactor);

/// Replaces elements by others: tells every reactor of the erasure of the first old element, gives the new
/// elements a place in each group that held an old one (where the first old member stood), erases the old
/// elements, and tells every reactor, for each old element in order, that it was replaced by the new ones. An
/// id in both lists is kept, and nobody is told of it. 0; -1, with nothing changed and nobody told, when
/// there is no old element, or one of the ids or of their groups can't be opened.
ZUCOMN_API int RuleComn_rootReplace(const AcArray<AcDbObjectId>& oldIds, const AcArray<AcDbObjectId>& newIds);

/// Merges elements into one that stays: as RuleComn_rootReplace, but reactors are told of the end of each
/// merged element only, and the remaining one stays in the lowest-numbered of its route groups of a kind.
ZUCOMN_API int RuleComn_rootMerge(const AcArray<AcDbObjectId>& mergedIds, AcDbObjectId remaining);
