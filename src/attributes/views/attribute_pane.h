#pragma once

#include "attributes/model/shown_items.h"

#include <acarray.h>
#include <dbid.h>
#include <zucomn/property_list.h>

#include <span>

namespace zu {

/// Control identifier of the property list in all views.
inline constexpr UINT kPropertyListId = 3002;

/// The property list of an attribute view and its items; shared by all attribute views.
class AttributePane {
public:
    /// Creates the list in the view and reads the library's tables that are missing. Returns false when the
    /// list cannot be created.
    bool create(CWnd& view);
    void resize(int width, int height);

    /// Shows the items, sorted by attribute id within "共通" and "一般"; appends their keys in this order to
    /// `keys`, which may be null.
    void show(std::span<const ShownItem> items, CStringArray* keys);
    /// Shows the attributes of entities; those without a record are skipped.
    void showEntities(std::span<const AcDbObjectId> entities, CStringArray* keys);
    /// Shows the attribute file of a part; an empty list when there is none.
    void showPart(const wchar_t* partFile, CStringArray* keys);

    /// See CAttView::GetAttSel and CAttView::GetAttAll.
    int selected(CStringArray& keys, CStringArray& values) const;
    void all(CStringArray& keys, CStringArray& values) const;
    /// Sets the value of the item with the key, given without "|".
    void setValue(const wchar_t* key, const wchar_t* value);
    /// Returns the items with their current values.
    [[nodiscard]] std::vector<ShownItem> items() const;

    [[nodiscard]] CPropertyListCtrl& list() { return list_; }
    [[nodiscard]] const CMyAdaptablePropertyItemManager& manager() const { return manager_; }

private:
    CMyAdaptablePropertyItemManager manager_;
    CPropertyListCtrl list_;
};

/// Compares attribute ids; runs of digits compare as numbers. Returns a value below, equal to or above 0.
[[nodiscard]] int compareIds(const CString& left, const CString& right);

[[nodiscard]] inline std::span<const AcDbObjectId> spanOf(const AcArray<AcDbObjectId>& ids) {
    return {ids.asArrayPtr(), static_cast<std::size_t>(ids.length())};
}

} // namespace zu
