#pragma once

#include "export.h"

#include <acarray.h>
#include <dbid.h>
#include <rxclass.h>

/// Notified when route elements are replaced or merged. Derive a class, override the notifications of
/// interest and register an object of it with RuleComn_addReplaceReactor. The notifications of this class do
/// nothing.
class ZUCOMN_API CReplaceReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(CReplaceReactor);

    CReplaceReactor();
    ~CReplaceReactor() override;
    /// Copies and moves transfer no state: the class has none, and a copy is not registered.
    /// @{
    CReplaceReactor(const CReplaceReactor& other);
    CReplaceReactor(CReplaceReactor&& other) noexcept;
    CReplaceReactor& operator=(const CReplaceReactor& other);
    CReplaceReactor& operator=(CReplaceReactor&& other) noexcept;
    /// @}

    /// Called before a replacement erases its elements, with the first of them.
    virtual void erase(AcDbObjectId id);
    /// Called after an element was replaced or merged. `newIds` are the elements that took its place.
    virtual void terminated(AcDbObjectId id, AcArray<AcDbObjectId> newIds);
};

/// Appends a reactor to the library's list; null is ignored. The caller keeps ownership and removes the
/// reactor before destroying it. A reactor that is registered twice is notified twice.
ZUCOMN_API void RuleComn_addReplaceReactor(CReplaceReactor* reactor);

/// Removes the first entry of a reactor from the library's list; does nothing when there is none.
ZUCOMN_API void RuleComn_removeReplaceReactor(CReplaceReactor* reactor);

/// Replaces elements by others. Notifies the reactors of the erasure of the first old element, inserts the
/// new elements into each group of an old one at the position of its first old member, erases the old
/// elements, and notifies the reactors for each old element in order. Ids in both lists are kept and not
/// notified. Returns 0 on success, -1 with the drawing unchanged and no notification when `oldIds` is empty
/// or one of the elements or of the old elements' groups cannot be opened for writing.
ZUCOMN_API int RuleComn_rootReplace(const AcArray<AcDbObjectId>& oldIds, const AcArray<AcDbObjectId>& newIds);

/// Merges elements into `remaining`. Works as RuleComn_rootReplace, except that there is no erase
/// notification, and that `remaining` is afterwards in only one route group of each kind, the
/// lowest-numbered.
ZUCOMN_API int RuleComn_rootMerge(const AcArray<AcDbObjectId>& mergedIds, AcDbObjectId remaining);
