#include <acutads.h>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>

namespace {

bool matches(const std::wstring& text, const std::wstring& pattern) {
    return acutWcMatch(text.c_str(), pattern.c_str()) == RTNORM;
}

/// Matches by trying every way, which takes exponential time.
bool matchesSlowly(std::wstring_view text, std::wstring_view pattern) {
    if (pattern.empty())
        return text.empty();
    if (pattern.front() == L'*')
        return matchesSlowly(text, pattern.substr(1)) ||
               (!text.empty() && matchesSlowly(text.substr(1), pattern));
    if (text.empty())
        return false;
    const wchar_t c = text.front();
    bool isOne = false;
    std::size_t size = 1;
    switch (pattern.front()) {
    case L'?':
        isOne = true;
        break;
    case L'#':
        isOne = c >= L'0' && c <= L'9';
        break;
    case L'@':
        isOne = (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z');
        break;
    case L'.':
        isOne = c == L'-' || c == L' ';
        break;
    case L'[':
        isOne = c == L'a' || c == L'b';
        size = 4;
        break;
    default:
        isOne = c == pattern.front();
    }
    return isOne && matchesSlowly(text.substr(1), pattern.substr(size));
}

TEST(Wildcards, MatchWhatASlowMatcherMatches) {
    std::mt19937 random(37); // NOLINT(cert-msc32-c,cert-msc51-cpp): repeatable
    const auto pick = [&random](int count) {
        return static_cast<std::size_t>(std::uniform_int_distribution<>(0, count - 1)(random));
    };
    int matched = 0;
    for (int round = 0; round < 20'000; ++round) {
        std::wstring text;
        std::wstring pattern;
        for (std::size_t i = pick(8); i > 0; --i)
            text += L"aab1-C"[pick(6)];
        for (std::size_t i = pick(7); i > 0; --i) {
            static const wchar_t* const kElements[] = {L"*", L"*", L"?", L"#", L"@", L".", L"a", L"[ab]"};
            pattern += kElements[pick(8)];
        }
        const bool expected = matchesSlowly(text, pattern);
        ASSERT_EQ(matches(text, pattern), expected)
            << testing::PrintToString(text) << testing::PrintToString(pattern);
        ASSERT_EQ(matches(text, L"~" + pattern), !expected);
        ASSERT_EQ(matches(text, L"xyz," + pattern), expected);
        matched += expected ? 1 : 0;
    }
    EXPECT_GT(matched, 1000);
}

TEST(Wildcards, ReadTheirSpecialCharacters) {
    const struct {
        const wchar_t* text;
        const wchar_t* pattern;
        bool matches;
    } cases[] = {
        {L"", L"", true},         {L"a", L"", false},       {L"", L"*", true},
        {L"", L"~*", false},      {L"P-1", L"p-1", false},  {L"P*1", L"P`*1", true},
        {L"Px1", L"P`*1", false}, {L"a`", L"a`", true},     {L"b", L"[a-c]", true},
        {L"-", L"[a-]", true},    {L"b", L"[~a-c]", false}, {L"d", L"[~a-c]", true},
        {L"[a", L"[a", true},     {L"a,b", L"a`,b", true},  {L"a,b", L"a,b", false},
        {L"b", L"a,b", true},     {L",", L"[,;]", true},    {L"", L"a,", true},
        {L"~a", L"`~a", true},    {L"ab", L"~a*,ab", true}, {L"\u914D\u7BA1-1", L"\u914D*-#", true},
        {L"\u914D", L"@", true},  {L"\u914D", L"?", true},  {L"\uFF11", L"#", false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(matches(c.text, c.pattern), c.matches)
            << testing::PrintToString(std::wstring(c.text)) << ' '
            << testing::PrintToString(std::wstring(c.pattern));
    EXPECT_EQ(acutWcMatch(nullptr, L"*"), RTERROR);
    EXPECT_EQ(acutWcMatch(L"a", nullptr), RTERROR);
    std::wstring stars;
    for (int i = 0; i < 2000; ++i)
        stars += L"*a";
    EXPECT_FALSE(matches(std::wstring(20'000, L'a') + L"b", stars + L"c"))
        << "in a time that does not explode";
    EXPECT_TRUE(matches(std::wstring(20'000, L'a'), stars));
}

TEST(Chains, HoldWhatTheyAreBuiltOf) {
    const ads_point point{1, 2, 3};
    const ads_name name{7, 8};
    resbuf* const chain =
        acutBuildList(RTDXF0, L"LINE", 8, L"PIPES", 10, point, RTPOINT, point, 40, 2.5, 40, 3, 62, 5, 90,
                      100'000, 330, name, 1071, -5, -3, 1001, L"APP", RTNONE, 8, L"never read");
    ASSERT_NE(chain, nullptr);
    const resbuf* item = chain;
    EXPECT_EQ(item->restype, 0) << "RTDXF0 is the type of code 0";
    EXPECT_STREQ(item->resval.rstring, L"LINE");
    item = item->rbnext->rbnext;
    EXPECT_EQ(item->resval.rpoint[Z], 3.0);
    item = item->rbnext;
    EXPECT_EQ(item->resval.rpoint[Z], 0.0) << "a point of the plane";
    item = item->rbnext->rbnext;
    EXPECT_EQ(item->resval.rreal, 3.0) << "an integer for a real";
    item = item->rbnext;
    EXPECT_EQ(item->resval.rint, 5);
    item = item->rbnext;
    EXPECT_EQ(item->resval.rlong, 100'000);
    item = item->rbnext;
    EXPECT_EQ(item->resval.rlname[1], 8);
    item = item->rbnext;
    EXPECT_EQ(item->resval.rlong, -5);
    item = item->rbnext;
    EXPECT_EQ(item->restype, -3);
    item = item->rbnext;
    EXPECT_EQ(item->restype, 1001);
    EXPECT_EQ(item->rbnext, nullptr);
    EXPECT_EQ(acutRelRb(chain), RTNORM);
    EXPECT_EQ(acutRelRb(nullptr), RTNORM);
    const wchar_t* const none = nullptr;
    const ads_real* const nowhere = nullptr;
    EXPECT_EQ(acutBuildList(8, none, RTNONE), nullptr);
    EXPECT_EQ(acutBuildList(10, nowhere, RTNONE), nullptr);
    EXPECT_EQ(acutBuildList(62, L"text", RTNONE), nullptr);
    EXPECT_EQ(acutBuildList(8, 5, RTNONE), nullptr);
    EXPECT_EQ(acutBuildList(8, L"a", 62), nullptr) << "without its value";
    EXPECT_EQ(acutBuildList(RTNONE), nullptr);
    wchar_t* copy = nullptr;
    EXPECT_EQ(acutNewString(L"text", copy), RTNORM);
    EXPECT_EQ(acutUpdString(copy + 2, copy), RTNORM) << "a part of itself";
    EXPECT_STREQ(copy, L"xt");
    acutDelString(copy);
    EXPECT_EQ(copy, nullptr);
}

} // namespace
