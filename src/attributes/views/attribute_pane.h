#pragma once

#include "attributes/model/notices.h"
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
    /// What makes an item editable while the parameter table is missing.
    enum class WithoutTable { nothing, marksOfRecords };
    explicit AttributePane(WithoutTable withoutTable = WithoutTable::marksOfRecords)
        : usesMarks_(withoutTable == WithoutTable::marksOfRecords) {}

    /// Creates the list in the view and reads the library's tables that are missing. Returns false when the
    /// list cannot be created.
    bool create(CWnd& view);
    void resize(int width, int height);

    /// Shows the items, sorted by attribute id within "共通" and "一般", below notices of what is missing;
    /// appends their keys in this order to `keys`, which may be null.
    void show(std::span<const ShownItem> items, CStringArray* keys) { show(items, keys, {}); }
    /// Shows the attributes of entities; those without a record are skipped. Items are greyed when all
    /// entities are on locked layers. What the drawing says about the entities follows in a category of its
    /// own, whose items have no keys.
    void showEntities(std::span<const AcDbObjectId> entities, CStringArray* keys);
    /// Returns true while the pane shows these entities with changed values, which showing them anew would
    /// lose.
    [[nodiscard]] bool hasChangesOf(std::span<const AcDbObjectId> entities) const;
    /// Shows the attribute file of a part; an empty list when there is none.
    void showPart(const wchar_t* partFile, CStringArray* keys);

    /// See CAttView::GetAttSel and CAttView::GetAttAll.
    int selected(CStringArray& keys, CStringArray& values) const;
    void all(CStringArray& keys, CStringArray& values) const;
    /// Shows only the items whose name or value contains the text; an empty text shows all.
    void setFilter(const CString& text);
    /// Sets the value of the item with the key, given without "|".
    void setValue(const wchar_t* key, const wchar_t* value);
    /// Returns the items whose values the user or a program changed, with the marks that make them editable.
    [[nodiscard]] std::vector<ShownItem> changedItems() const;

    /// Returns whether records' marks make items editable while the parameter table is missing.
    [[nodiscard]] bool usesMarks() const { return usesMarks_; }
    [[nodiscard]] CPropertyListCtrl& list() { return list_; }
    [[nodiscard]] const CMyAdaptablePropertyItemManager& manager() const { return manager_; }

private:
    void show(std::span<const ShownItem> items, CStringArray* keys, std::span<const AcDbObjectId> entities);
    void addNotices(bool hasItems, const LockedElements& locked, std::size_t selected);
    void addFacts(std::span<const AcDbObjectId> entities);

    bool usesMarks_;
    std::vector<AcDbObjectId> entities_; ///< The entities shown; none for parts and lines.
    CMyAdaptablePropertyItemManager manager_;
    CPropertyListCtrl list_;
};

/// Compares attribute ids; runs of digits compare as numbers. Returns a value below, equal to or above 0.
[[nodiscard]] int compareIds(const CString& left, const CString& right);

[[nodiscard]] inline std::span<const AcDbObjectId> spanOf(const AcArray<AcDbObjectId>& ids) {
    return {ids.asArrayPtr(), static_cast<std::size_t>(ids.length())};
}

} // namespace zu
