#pragma once

#include "adsdef.h"
#include "drawing/tag_view.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace zuhost {

struct DatabaseCore;

/// Bytes in a record or an item of a chain.
inline constexpr short kChunkLimit = 127;

/// Converts the records of a drawing to a chain of values: texts decoded, the coordinates of a point as one
/// item, handles that refer to objects as names.
class ChainWriter {
public:
    /// Without a core the records are those of an object outside of drawings, in UTF-8.
    explicit ChainWriter(const DatabaseCore* core) : core_(core) {}
    ~ChainWriter();
    ChainWriter(const ChainWriter&) = delete;
    ChainWriter& operator=(const ChainWriter&) = delete;

    /// Appends the value of the record, which is not the end, and moves to the one after it. Unreadable
    /// numbers count as 0.
    void add(TagView::Iterator& at);
    /// Appends an item without a value.
    resbuf& append(int type);

    /// Returns the chain, which the caller frees with acutRelRb; null when nothing was added.
    [[nodiscard]] resbuf* release();

private:
    const DatabaseCore* core_;
    resbuf* first_ = nullptr;
    resbuf* last_ = nullptr;
    std::wstring text_; ///< Of the record that is added.
};

/// Appends the records of an item of a chain: those of a point for its first `coordinates`. Nothing for a
/// type without a value. A null text is empty.
void addRecords(TagList& tags, const resbuf& item, const DatabaseCore* core, std::size_t coordinates = 3);

/// Convert texts of records, which are in UTF-8 without a core.
[[nodiscard]] std::wstring decodeText(const DatabaseCore* core, std::string_view value);
void decodeText(const DatabaseCore* core, std::string_view value, std::wstring& text);
[[nodiscard]] std::string encodeText(const DatabaseCore* core, std::wstring_view text);

/// Returns false for a chunk of a size that no record holds and a number that is not finite.
[[nodiscard]] bool isStorable(const resbuf& item);

} // namespace zuhost
