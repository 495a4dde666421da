#pragma once

#include <afxcoll.h>
#include <zuhost/platform/export.h>
#include <zuhost/shared_text.h>

#include <memory>
#include <string_view>

namespace zuhost {

/// Creates texts and lists of texts for large numbers of them, such as the records of a table, without an
/// allocation for each. Their lifetimes are independent of the pool's.
class ZUHOST_API StringPool {
public:
    [[nodiscard]] CString make(std::wstring_view text) { return CString(pool_.make(text)); }
    /// Returns an empty list with room for that many texts; it grows on demand.
    [[nodiscard]] std::unique_ptr<CStringArray> makeArray(int room);

private:
    TextPool pool_;
};

} // namespace zuhost
