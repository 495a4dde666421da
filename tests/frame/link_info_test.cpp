#include "link_info_fixture.h"

#include <zucomn/link_info.h>

#include <zuhost/file_ops.h>
#include <zuhost/message_box.h>
#include <zuhost/texts.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>

namespace {

namespace file_ops = zuhost::file_ops;

TEST_F(LinkInfo, Merges) {
    const std::tuple<std::string, CStringArray, CStringArray, std::string> cases[] = {
        {"", arrayOf({L"A", L"B", L"A"}), arrayOf({L"1", L"2", L"3"}), "A|1\r\nB|2\r\n"},
        {"A|old|extra\r\nB|x|y \r\n", arrayOf({L"A"}), arrayOf({L"new"}), "A|new\r\nB|x|y \r\n"},
        {"A|1\n\n  \nB|2", arrayOf({L"C"}), arrayOf({L"3"}), "A|1\nB|2\nC|3\n"},
        {"x\r\ny|1\r\n", arrayOf({L"x\ny", L"p\nq"}), arrayOf({L"2", L"3"}), "x\r\ny|2\r\np\r\nq|3\r\n"},
        {"lost\nx\ny|1\nlast\n", arrayOf({L"y"}), arrayOf({L"2"}), "x\ny|1\ny|2\n"},
        {" A |1\nA|2\n", arrayOf({L"A"}), arrayOf({L"3"}), "A|3\nA|2\n"},
        {"|x\nA|1\n", arrayOf({L"A"}), arrayOf({L"2"}), "|x\nA|2\n"},
        {"# c\nA|1\nEND\nB|2\n#\n", arrayOf({L"A", L"B"}), arrayOf({L"3", L"4"}),
         "# c\nA|3\nB|4\nEND\nB|2\n#\n"},
        {"A|1\nB|2\r", arrayOf({L"C"}), arrayOf({L"3"}), "A|1\nB|2\r\r\nC|3\n"},
        {"A|1\x1A|2", arrayOf({L"B"}), arrayOf({L"3"}), "A|1\r\nB|3\r\n\x1A|2"},
        {"x\n# c\ny|1\nlost\n# d\nz|1\nheld\n# e\nend", arrayOf({L"x\ny", L"z", L"w"}),
         arrayOf({L"2", L"3", L"4"}), "# c\nx\ny|2\nlost\n# d\nz|1\n# e\nz|3\nw|4\nend"},
        {"\x83\x7C\x83\x93|1\n", arrayOf({L"ポン"}), arrayOf({L"表"}), "\x83\x7C\x83\x93|\x95\x5C\n"},
        {"\uFEFFA|1\n", arrayOf({L"㎥", L"A"}), arrayOf({L"𠮷", L"2"}), "\uFEFFA|2\n㎥|𠮷\n"},
        {std::string("\377\376A\0|\0\x0A\x0A\n\0B", 11), arrayOf({L"A"}), arrayOf({L"𠮷"}),
         std::string("\377\376A\0|\0\x42\xD8\xB7\xDF\n\0", 12)},
        // UTF-16: a surrogate pair as key, and adjacent bytes of two characters that look like a line feed.
        {std::string("\xFF\xFE\x42\xD8\xB7\xDF|\0\x05\x0A\0\x4E\n\0", 14), arrayOf({L"𠮷"}),
         arrayOf({L"ਅ一"}), std::string("\xFF\xFE\x42\xD8\xB7\xDF|\0\x05\x0A\0\x4E\n\0", 14)},
        {std::string("\xFF\xFE\x05\x0A\0\x4E|\0x\0\n\0", 12), arrayOf({L"ਅ一"}), arrayOf({L"1"}),
         std::string("\xFF\xFE\x05\x0A\0\x4E|\0001\0\n\0", 12)},
    };
    for (const auto& [before, keys, values, after] : cases) {
        folder_.write("links.lif", before);
        EXPECT_TRUE(ZuComn_SaveLinkInfo(path(), keys, values)) << before;
        EXPECT_EQ(read("links.lif"), after);
        EXPECT_EQ(read("links.bak"), before);
        EXPECT_FALSE(exists("__Temp.tmp"));
    }
}

TEST_F(LinkInfo, RejectsLinesOverTheLimit) {
    const std::filesystem::path file = folder_.write("links.lif", "A|1\nB|2");
    constexpr int kSize = 20'000'000;
    std::filesystem::resize_file(file, kSize);
    EXPECT_EQ(value(L"A"), L"(unread)");
    EXPECT_FALSE(save());
    EXPECT_EQ(std::filesystem::file_size(file), kSize);
    folder_.write("links.lif", kOld);
    EXPECT_FALSE(ZuComn_SaveLinkInfo(path(), arrayOf({L"A"}), arrayOf({CString(L'x', kSize)})));
    EXPECT_EQ(read("links.lif"), kOld);
    EXPECT_FALSE(exists("links.bak"));
    EXPECT_FALSE(exists("__Temp.tmp"));
}

TEST_F(LinkInfo, ReadsWhatItWrites) {
    EXPECT_EQ(value(L"A"), L"(unread)");
    ASSERT_TRUE(ZuComn_SaveLinkInfo(zuhost::textOf(folder_.wide("links.lif")),
                                    arrayOf({L"x\ny", L"A", L"", L"END"}), arrayOf({L"1", L"2", L"3", L"4"})))
        << "a path with /";
    EXPECT_EQ(value(L"END"), L"4");
    EXPECT_FALSE(exists("links.bak")) << "the first save has nothing to back up";
    EXPECT_EQ(value(L"x\ny"), L"1");
    EXPECT_EQ(value(L"y"), L"");
    EXPECT_EQ(value(L"A"), L"2");
    EXPECT_EQ(value(L"a"), L"");
    EXPECT_EQ(value(L""), L"3");
    CStringArray none;
    EXPECT_TRUE(ZuComn_GetLinkInfo(path(), none, none));
    EXPECT_TRUE(none.IsEmpty());
    CStringArray both = arrayOf({L"A", L"x\ny"});
    EXPECT_TRUE(ZuComn_GetLinkInfo(path(), both, both));
    ASSERT_EQ(both.GetSize(), 4);
    EXPECT_EQ(both[2], L"2");
    EXPECT_EQ(both[3], L"1");
}

TEST_F(LinkInfo, LooksUpRecords) {
    const std::tuple<std::string_view, const wchar_t*, const wchar_t*> cases[] = {
        {"x\ny\nz|1\n", L"y\nz", L"1"}, // only the last two lines of a key count
        {"x\ny\nz|1\n", L"x\ny\nz", L""},
        {"x\n# c\n\ny|1\n", L"x\ny", L"1"},
        {"x\nB|0\nA|1\n", L"A", L"1"},
        {"A |1 |2\nA|3\n", L"A", L"1"},
        {"x|1\nA|1\r", L"A", L"1\r"},
        {"x|1\nA|1\r\r\n", L"A", L"1\r"},
        {" A|1\n", L"A", L""},
        {"B|0\nend\nA|1\n", L"A", L""},
        {"END\nA|1\n", L"A", L"(unread)"},
    };
    for (const auto& [file, key, expectedValue] : cases) {
        folder_.write("links.lif", file);
        EXPECT_EQ(value(key), expectedValue) << file;
    }
}

TEST_F(LinkInfo, ReadsTheSample) {
    const SampleSettings settings;
    const auto expected = nlohmann::json::parse(TemporaryFolder::read(ZU_SAMPLES "/expected/settings.json"));
    ASSERT_FALSE(expected.at("links").empty());
    for (const auto& link : expected.at("links")) {
        CStringArray values;
        const std::wstring key = zuhost::fromUtf8(link.at(0).get<std::string>());
        ASSERT_TRUE(
            ZuComn_GetLinkInfo(settings.system("LinkInfo.lif").c_str(), arrayOf({key.c_str()}), values));
        EXPECT_EQ(zuhost::toUtf8(zuhost::viewOf(values[0])), link.at(1).get<std::string>());
    }
}

TEST_F(LinkInfo, RejectedPairsLeaveTheFileUntouched) {
    folder_.write("links.lif", "A|1\n");
    EXPECT_FALSE(ZuComn_SaveLinkInfo(path(), arrayOf({L"A"}), arrayOf({L"𠮷"}))) << "not in the code page";
    EXPECT_FALSE(ZuComn_SaveLinkInfo(L"bare", arrayOf({L"A"}), arrayOf({L"1"}))) << "no system folder";
    EXPECT_FALSE(ZuComn_SaveLinkInfo(path("missing/links.lif"), arrayOf({L"A"}), arrayOf({L"1"})));
    EXPECT_FALSE(ZuComn_SaveLinkInfo(path("__Temp.tmp"), arrayOf({L"A"}), arrayOf({L"1"})));
    std::filesystem::create_directory(folder_.path() / "folder.lif");
    EXPECT_FALSE(ZuComn_SaveLinkInfo(path("folder.lif"), arrayOf({L"A"}), arrayOf({L"1"})));
    const std::pair<const wchar_t*, const wchar_t*> unreadable[] = {
        {L"a|b", L"1"},     {L"#a", L"1"},      {L"x\n#a", L"1"}, {L"#x\na", L"1"}, {L"End\na", L"1"},
        {L"\na", L"1"},     {L"x\ny\nz", L"1"}, {L" a", L"1"},    {L"x \na", L"1"}, {L"a\rb", L"1"},
        {L"a\x301C", L"1"}, {L"a", L"1|2"},     {L"a", L"1\n2"},  {L"a", L"1\r2"},  {L"a", L"1\x1A"}};
    for (const auto& [key, text] : unreadable)
        EXPECT_FALSE(ZuComn_SaveLinkInfo(path(), arrayOf({L"B", key}), arrayOf({L"2", text})))
            << zuhost::toUtf8(key);
    EXPECT_FALSE(ZuComn_SaveLinkInfo(path(), arrayOf({L"A", L"B"}), arrayOf({L"1"})));
    EXPECT_EQ(read("links.lif"), "A|1\n");
    EXPECT_FALSE(exists("links.bak"));
    folder_.write("links.lif", "dropped\n\xFF\xFEkept\nk|1\n");
    EXPECT_FALSE(save()) << "the next line would start with the mark of another encoding";
    EXPECT_FALSE(exists("__Temp.tmp"));
}

TEST_F(LinkInfo, NamesWithoutExtensionAreBackedUpInTheSystemFolder) {
    const SampleSettings settings;
    folder_.write("links", "A|1\n");
    const std::string before = TemporaryFolder::read(settings.folder().file("system/LinkInfo.lif"));
    ASSERT_NE(before, "");
    ASSERT_TRUE(ZuComn_SaveLinkInfo(path("links"), arrayOf({L"A"}), arrayOf({L"2"})));
    EXPECT_EQ(read("links"), "A|2\n");
    EXPECT_EQ(TemporaryFolder::read(settings.folder().file("system/LinkInfo.lif")), "A|1\n");
}

// Each file operation fails in turn, alone or with all that follow.
TEST_F(LinkInfo, NoFailureLosesTheFile) {
    for (const bool fromThenOn : {false, true}) {
        bool clean = false;
        for (std::uint64_t n = 1; !clean; ++n) {
            ASSERT_LT(n, 100U);
            restart();
            const zuhost::MessageBoxObserver observer;
            bool saved = false;
            {
                const file_ops::FailAt failure(n, fromThenOn);
                saved = save();
                clean = failure.count() < n;
            }
            const std::string now = read("links.lif");
            EXPECT_EQ(now, saved ? kNew : kOld) << n;
            if (observer.boxes().empty())
                continue;
            EXPECT_FALSE(saved) << n;
            EXPECT_TRUE(read("links.bak") == kOld || fromThenOn) << n;
            EXPECT_EQ(read("__Temp.tmp"), kNew) << n;
            ASSERT_EQ(observer.boxes().size(), 1U) << n;
            const zuhost::MessageBoxRequest& box = observer.boxes()[0];
            EXPECT_TRUE(box.text.starts_with(L"ファイルの保存に失敗しました。(")) << n;
            EXPECT_FALSE(box.text.ends_with(L"(0)")) << n;
            EXPECT_EQ(box.style & MB_ICONSTOP, MB_ICONSTOP) << n;
        }
    }
}

// A look-up that scans the file for every key would take minutes.
TEST_F(LinkInfo, ManyKeysInALargeFile) {
    std::string file;
    for (int i = 0; i < 100'000; ++i)
        file += "line\nkey" + std::to_string(i) + "|value" + std::to_string(i) + "\n";
    folder_.write("links.lif", file);
    CStringArray keys;
    CStringArray news;
    for (int i = 0; i < 10'000; ++i) {
        keys.Add(CString((L"line\nkey" + std::to_wstring(i * 11)).c_str()));
        news.Add(CString((L"new" + std::to_wstring(i)).c_str()));
    }
    CStringArray values;
    ASSERT_TRUE(ZuComn_GetLinkInfo(path(), keys, values));
    ASSERT_TRUE(ZuComn_SaveLinkInfo(path(), keys, news));
    EXPECT_EQ(values[9000], L"value99000");
    EXPECT_EQ(values[9999], L"");
    EXPECT_EQ(value(L"line\nkey99000"), L"new9000");
    EXPECT_EQ(value(L"line\nkey109989"), L"new9999");
}

} // namespace
