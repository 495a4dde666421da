#pragma once

#include "sample_settings.h"
#include "texts.h"

#include <zucomn/link_info.h>

#include <gtest/gtest.h>

#include <algorithm>

inline constexpr const char* kOld = "A|old\nC|3\n";
inline constexpr const char* kNew = "A|new\nC|3\nB|2\n";

/// Provides a folder and paths in the platform's form.
class LinkInfo : public testing::Test {
protected:
    [[nodiscard]] CString path(std::string_view name = "links.lif") const {
        std::wstring text = folder_.wide(name);
        std::replace(text.begin(), text.end(), L'/', L'\\');
        return zuhost::textOf(text);
    }
    [[nodiscard]] std::string read(std::string_view name) const {
        return TemporaryFolder::read(folder_.file(name));
    }
    [[nodiscard]] bool exists(std::string_view name) const {
        return std::filesystem::exists(folder_.file(name));
    }
    [[nodiscard]] CString value(const wchar_t* key) const {
        CStringArray values;
        return ZuComn_GetLinkInfo(path(), arrayOf({key}), values) ? values[0] : CString(L"(unread)");
    }
    [[nodiscard]] bool save() const {
        return ZuComn_SaveLinkInfo(path(), arrayOf({L"A", L"B"}), arrayOf({L"new", L"2"}));
    }

    /// Removes the files of the previous run, which would add operations to the next one.
    void restart() const {
        for (const auto& left : std::filesystem::directory_iterator(folder_.path()))
            std::filesystem::remove(left);
        folder_.write("links.lif", kOld);
    }

    TemporaryFolder folder_;
};
