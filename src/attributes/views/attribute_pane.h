#pragma once

#include "attributes/model/shown_items.h"

#include <acarray.h>
#include <dbid.h>
#include <zucomn/property_list.h>

namespace zu {

/// The identifier of the property list in every view.
inline constexpr UINT kPropertyListId = 3002;

/// The property list of an attribute view with what it shows: the one implementation behind the views.
class AttributePane {
public:
    /// Makes the list in the view and reads the library's tables unless they are there. False when the list
    /// can't be made.
    bool create(CWnd& view);
    void resize(int width, int height);

    void clear();
    /// Shows the items, ordered by attribute id within "共通" and "一般"; `keys` (may be null) receives their
    /// keys in that order.
    void show(std::span<const ShownItem> items, CStringArray* keys);
    /// Shows the attributes of entities; those without a record are passed over.
    void showEntities(std::span<const AcDbObjectId> entities, CStringArray* keys);
    /// Shows the attribute file of a part; nothing when it has none.
    void showPart(const wchar_t* partFile, CStringArray* keys);

    int selected(CStringArray& keys, CStringArray& values) const;
    void all(CStringArray& keys, CStringArray& values) const;
    void setValue(const wchar_t* key, const wchar_t* value);
    /// The values as they stand in the list, for writing back.
    [[nodiscard]] std::vector<ShownItem> items() const;

    [[nodiscard]] CPropertyListCtrl& list() { return list_; }
    [[nodiscard]] const CMyAdaptablePropertyItemManager& manager() const { return manager_; }

private:
    CMyAdaptablePropertyItemManager manager_;
    CPropertyListCtrl list_;
};

/// Orders attribute ids as people do: letters first, then the number in them. Below, at or above 0.
[[nodiscard]] int compareIds(const CString& left, const CString& right);

} // namespace zu
