#pragma once

#include <afx.h>

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

namespace zu::dxf {

/// How a part drawing holds text.
class PartText {
public:
    /// The version is $ACADVER's number. From R2007 on, and with a byte-order mark, text is UTF-8 whatever
    /// the page.
    void setVersion(int version) { version_ = version; }
    void setMark(bool mark) { mark_ = mark; }
    void setCodePage(std::string_view name);
    /// Text that is UTF-8 whatever the header says.
    void setUtf8() { mark_ = true; }

    /// At most `limit` characters; escapes are replaced by what they stand for.
    [[nodiscard]] CString decode(std::string_view bytes, std::size_t limit) const;

private:
    [[nodiscard]] UINT codePage() const;

    int version_ = 0;
    bool mark_ = false;
    UINT named_ = 0;
};

/// Each name of a drawing once. References stay good as long as the pool.
class NamePool {
public:
    const CString& get(std::string_view bytes, const PartText& text, std::size_t limit);

private:
    std::deque<CString> names_;
    std::unordered_map<std::string, const CString*> known_;
    std::string last_; ///< Names come in runs.
    const CString* lastName_ = nullptr;
};

} // namespace zu::dxf
