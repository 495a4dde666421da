#include <afxcoll.h>

#include <gtest/gtest.h>
#include <zuhost/string_pool.h>
#include <zuhost/texts.h>

#include <algorithm>
#include <optional>
#include <thread>

namespace {

TEST(SharedText, CopiesShareUntilOneIsChanged) {
    void (*const changes[])(CString&) = {
        [](CString& text) { text.SetAt(0, L'X'); },
        [](CString& text) { text += L"more"; },
        [](CString& text) { text += text; },
        [](CString& text) { text.MakeUpper(); },
        [](CString& text) { text.MakeReverse(); },
        [](CString& text) { text.TrimRight(L'f'); },
        [](CString& text) { text.TrimLeft(L'a'); },
        [](CString& text) { text.Replace(L'c', L'-'); },
        [](CString& text) { text.Remove(L'c'); },
        [](CString& text) { text.Insert(2, L'-'); },
        [](CString& text) { text.Empty(); },
        [](CString& text) {
            *text.GetBuffer(50) = L'X';
            text.ReleaseBuffer();
        },
        [](CString& text) { text.ReleaseBuffer(3); },
    };
    zuhost::StringPool pool;
    const CString own(L"abcdef");
    const CString pooled = pool.make(L"abcdef");
    EXPECT_EQ(pooled.GetString(), pool.make(L"abcdef").GetString());
    for (const CString* const original : {&own, &pooled}) {
        for (std::size_t i = 0; i < std::size(changes); ++i) {
            CString copy = *original;
            ASSERT_EQ(copy.GetString(), original->GetString()) << "a copy shares the characters";
            changes[i](copy);
            EXPECT_NE(copy, *original) << i;
            EXPECT_EQ(*original, L"abcdef") << i;
            EXPECT_EQ(copy.GetString()[copy.GetLength()], L'\0') << i;
        }
    }
}

TEST(SharedText, BuffersAreFilledInPlace) {
    CString text;
    wchar_t* const buffer = text.GetBuffer(5);
    std::copy_n(L"abcde", 5, buffer);
    text.ReleaseBuffer(4);
    EXPECT_EQ(text, L"abcd");
    EXPECT_EQ(text.GetString(), buffer);
    text.GetBuffer(5)[4] = L'e';
    text.ReleaseBuffer(99);
    EXPECT_EQ(text, L"abcde") << "limited to the size of the buffer";
    const CString copy = text;
    text.ReleaseBuffer(99);
    EXPECT_EQ(text, copy);
    CString empty;
    empty.ReleaseBuffer(3);
    EXPECT_TRUE(empty.IsEmpty());
}

TEST(SharedText, AppendingManyTimesCopiesLittle) {
    CString text;
    std::wstring wanted;
    int moves = 0;
    for (int i = 0; i < 10'000; ++i) {
        const wchar_t* const before = text.GetString();
        text += static_cast<wchar_t>(L'a' + i % 26);
        wanted += static_cast<wchar_t>(L'a' + i % 26);
        moves += text.GetString() != before ? 1 : 0;
    }
    EXPECT_EQ(zuhost::viewOf(text), wanted);
    EXPECT_LT(moves, 40);
}

TEST(SharedText, MayBeCopiedByThreads) {
    zuhost::StringPool pool;
    const std::vector<CString> texts = {L"own", pool.make(L"pooled")};
    const auto copyOften = [&texts] {
        for (std::size_t i = 0; i < 2000; ++i) {
            CString copy = texts[i % 2];
            copy += L"!";
        }
    };
    std::thread one(copyOften);
    std::thread other(copyOften);
    one.join();
    other.join();
    EXPECT_EQ(texts[0], L"own");
    EXPECT_EQ(texts[1], L"pooled");
}

TEST(StringPool, TextsAndListsOutliveItAndEachOther) {
    std::optional<zuhost::StringPool> pool(std::in_place);
    std::vector<std::unique_ptr<CStringArray>> lists;
    for (int i = 0; i < 3000; ++i) {
        lists.push_back(pool->makeArray(i % 7 == 0 ? i : 3));
        for (int field = 0; field < i % 6; ++field)
            lists.back()->Add(pool->make(std::to_wstring(i * field)));
        lists.back()->Add(pool->make(std::wstring(static_cast<std::size_t>(i % 700), L'x')));
    }
    pool.reset();
    CStringArray kept;
    kept.Append(*lists[2009]);
    const CStringArray copied = *lists[5];
    for (std::size_t i = 0; i < lists.size(); i += 2)
        lists[i].reset();
    for (int i = 1; i < 3000; i += 2) {
        const CStringArray& list = *lists[static_cast<std::size_t>(i)];
        ASSERT_EQ(list.GetSize(), i % 6 + 1);
        for (int field = 0; field < i % 6; ++field)
            ASSERT_EQ(zuhost::viewOf(list[field]), std::to_wstring(i * field));
        ASSERT_EQ(list[i % 6].GetLength(), i % 700);
    }
    lists.clear();
    EXPECT_EQ(kept[1], L"2009");
    EXPECT_EQ(copied[4], L"20");
}

TEST(StringPool, ListsChangeLikeOthers) {
    zuhost::StringPool pool;
    const std::unique_ptr<CStringArray> list = pool.makeArray(2);
    for (const wchar_t* const text : {L"a", L"b", L"c", L"d"})
        list->Add(text);
    list->InsertAt(1, (*list)[3], 2);
    list->RemoveAt(0);
    list->FreeExtra();
    list->Append(*list);
    std::wstring all;
    for (int i = 0; i < list->GetSize(); ++i)
        all += zuhost::viewOf((*list)[i]);
    EXPECT_EQ(all, L"ddbcdddbcd");
    list->SetSize(1);
    *list = CStringArray();
    EXPECT_TRUE(list->IsEmpty());
}

} // namespace
