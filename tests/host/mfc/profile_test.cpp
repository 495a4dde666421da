#include "recorded_cases.h"
#include "temporary_folder.h"

#include <windows.h>
#include <zuhost/file_ops.h>
#include <zuhost/profile.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

namespace {

namespace fs = std::filesystem;
using nlohmann::json;

std::optional<std::wstring> wide(const json& text) {
    if (text.is_null())
        return std::nullopt;
    return zuhost::fromUtf8(text.get<std::string>());
}

const wchar_t* orNull(const std::optional<std::wstring>& text) {
    return text ? text->c_str() : nullptr;
}

/// Unlike the platform, the host reads UTF-8 with a byte-order mark as UTF-8, as users expect.
bool marksUtf8(const std::string& bytes) {
    return bytes.starts_with("\xEF\xBB\xBF");
}

/// Headings that the recording parses differently from the real platform: "[]", or without "]".
bool hasOddHeading(const std::string& bytes) {
    return bytes.find("[]") != std::string::npos || bytes.find("[B\r") != std::string::npos ||
           bytes.starts_with("; c\r\nx=0");
}

/// Names passed by callers lose spaces only.
bool hasTabAtAnEnd(const std::optional<std::wstring>& name) {
    return name && !name->empty() && (name->front() == L'\t' || name->back() == L'\t');
}

class ProfileFile {
public:
    explicit ProfileFile(const json& file) {
        if (file.is_null())
            return;
        if (file == "directory" || file == "ISDIR") {
            fs::create_directory(path());
            return;
        }
        if (file == "NODIR") {
            name_ = "missing/p.ini";
            return;
        }
        if (file == "RODIR")
            return;
        bytes_ = file == "RO" ? "[A]\r\nk=1\r\n" : fromBase64(file.get<std::string>());
        folder_.write("p.ini", bytes_);
    }

    [[nodiscard]] std::string path() const { return folder_.file(name_); }
    [[nodiscard]] std::wstring wide() const { return folder_.wide(name_); }
    [[nodiscard]] const std::string& bytes() const { return bytes_; }

private:
    TemporaryFolder folder_;
    std::string name_ = "p.ini";
    std::string bytes_;
};

TEST(Profile, ReadsAsRecorded) {
    for (const json& recorded : recordedCases("profile_reads.json")) {
        const ProfileFile file(recorded["file"]);
        const bool real = recorded.contains("windows") && !marksUtf8(file.bytes());
        const json& expected = real ? recorded["windows"] : recorded;
        const auto section = wide(recorded["section"]);
        const auto key = wide(recorded["key"]);
        const auto fallback = wide(recorded["default"]);
        const DWORD size = recorded["size"];
        const bool byRule = hasTabAtAnEnd(section) || hasTabAtAnEnd(key);
        const std::wstring text = byRule ? *fallback : *wide(expected["text"]);
        if (hasOddHeading(file.bytes()) && (!section || section->empty()))
            continue;
        if (sizeof(wchar_t) > 2 && text.ends_with(L'\xFFFD'))
            continue; // half a surrogate pair, which wide text of 32 bits does not have
        std::wstring buffer(size + 2, L'#');
        const DWORD length = GetPrivateProfileStringW(orNull(section), orNull(key), orNull(fallback),
                                                      buffer.data(), size, file.wide().c_str());
        EXPECT_EQ(zuhost::toUtf8(buffer.substr(0, length)), zuhost::toUtf8(text)) << recorded["name"];
        EXPECT_EQ(size > 0 ? buffer[length] : L'\0', L'\0') << recorded["name"];
        if (const json error = expected.value("last_error", json()); error.is_number()) {
            EXPECT_EQ(GetLastError(), error.get<DWORD>()) << recorded["name"];
        }
        EXPECT_EQ(buffer.substr(size), L"##") << recorded["name"];
    }
}

/// Returns the contents of a profile without its formatting: the recording reformats files where the real
/// platform changes one line.
std::string meaning(const std::string& bytes) {
    const zuhost::Profile profile(bytes);
    std::wstring text;
    for (const std::wstring& section : profile.sections()) {
        text += L"[" + section + L"]";
        for (const std::wstring& key : profile.keys(section))
            text += key + L"=" + profile.value(section, key).value_or(L"") + L";";
    }
    return zuhost::toUtf8(text);
}

/// Denies the operations that the recorded permissions deny: real permissions would not apply to tests run by
/// an administrator.
int denied(const json& recorded, zuhost::file_ops::Operation operation) {
    const std::string name = recorded["name"];
    const bool binds = name.starts_with("read-only: ");
    const bool unreadable = name == "read-only: no permission at all";
    using enum zuhost::file_ops::Operation;
    return binds && (operation == openToWrite || (unreadable && operation == open)) ? EACCES : 0;
}

bool fits(const json& write, const std::string& file) {
    const auto encoding = zuhost::TextEncoding::of(file);
    return std::all_of(write.begin(), write.end(),
                       [&](const json& text) { return text.is_null() || encoding.encode(*wide(text)); });
}

TEST(Profile, WritesAsRecorded) {
    for (const json& recorded : recordedCases("profile_writes.json")) {
        const ProfileFile file(recorded["file"]);
        const zuhost::file_ops::Interception rights(
            [&](auto operation, const std::string&) { return denied(recorded, operation); });
        const json& expected = recorded.contains("windows") ? recorded["windows"] : recorded;
        const json& wanted = expected.contains("results") ? expected["results"] : recorded["results"];
        bool allFit = true;
        for (std::size_t i = 0; i < recorded["writes"].size(); ++i) {
            const json& write = recorded["writes"][i];
            const auto section = wide(write[0]);
            const auto key = wide(write[1]);
            const auto value = wide(write[2]);
            const std::string before = TemporaryFolder::read(file.path());
            const BOOL result =
                WritePrivateProfileStringW(orNull(section), orNull(key), orNull(value), file.wide().c_str());
            // The host rejects text that the file's encoding cannot represent; the recording replaces it.
            const bool refused = !fits(write, file.bytes());
            allFit = allFit && !refused;
            EXPECT_EQ(result, refused ? FALSE : wanted[i].get<BOOL>()) << recorded["name"];
            EXPECT_EQ(GetLastError(),
                      refused ? ERROR_NO_UNICODE_TRANSLATION : recorded["last_error"][i].get<DWORD>())
                << recorded["name"];
            EXPECT_TRUE(!refused || TemporaryFolder::read(file.path()) == before) << recorded["name"];
        }
        const json after = expected.value("after", json());
        // The host keeps both forms of the wave dash and similar characters.
        const bool kept = recorded["name"].get<std::string>().starts_with("code page: ") &&
                          fromBase64(after.is_string() ? after : json("")).find('?') != std::string::npos;
        if (!after.is_string() || !allFit || kept || marksUtf8(file.bytes()))
            continue;
        const std::string bytes = TemporaryFolder::read(file.path());
        const std::string target = fromBase64(after);
        if (recorded.contains("windows") || recorded.contains("confirmed"))
            EXPECT_EQ(bytes, target) << recorded["name"];
        else
            EXPECT_EQ(meaning(bytes), meaning(target)) << recorded["name"];
    }
}

TEST(Profile, ReadsIntegersAsRecorded) {
    const TemporaryFolder folder;
    const json recorded = recordedCases("misc.json");
    for (const json& c : recorded["GetPrivateProfileIntW_default_77"]) {
        const std::string value = c[0];
        folder.write("p.ini",
                     value == "(missing key)" ? "[A]\r\n" : "\xEF\xBB\xBF[A]\r\nk=" + value + "\r\n");
        const UINT read = GetPrivateProfileIntW(L"A", L"k", 77, folder.wide("p.ini").c_str());
        EXPECT_EQ(static_cast<int>(read), c[1].get<int>()) << value;
    }
}

TEST(Profile, DropsAnIncompleteUnitAtTheEndOfAFile) {
    zuhost::Profile profile(std::string_view("\xFF\xFE[\0A\0]\0\n\0x", 11));
    EXPECT_TRUE(profile.set(L"A", L"k", L"1"));
    EXPECT_EQ(zuhost::Profile(profile.bytes()).value(L"A", L"k"), L"1");
}

TEST(Profile, WritesUtf8ToFilesWithItsMark) {
    const TemporaryFolder folder;
    const std::string path = folder.write("p.ini", "\xEF\xBB\xBF[A]\r\nk=1\r\n");
    EXPECT_TRUE(WritePrivateProfileStringW(L"A", L"k", L"850㎥/h", folder.wide("p.ini").c_str()));
    EXPECT_EQ(TemporaryFolder::read(path), "\xEF\xBB\xBF[A]\r\nk=850㎥/h\r\n");
}

} // namespace
