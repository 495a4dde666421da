#include "attributes/model/field_rules.h"
#include "attributes/model/shown_items.h"
#include "texts.h"

#include <gtest/gtest.h>

#include <deque>

namespace {

using List = std::initializer_list<const wchar_t*>;

class Model : public ::testing::Test {
protected:
    CStringArray& strings(List texts) { return arrays_.emplace_back(arrayOf(texts)); }

    CPtrArray& table(std::initializer_list<List> records) {
        table_.RemoveAll();
        for (const List& record : records)
            table_.Add(&strings(record));
        return table_;
    }

private:
    std::deque<CStringArray> arrays_;
    CPtrArray table_;
};

TEST_F(Model, NumbersFieldsFromOne) {
    const std::tuple<const wchar_t*, int, const wchar_t*> cases[] = {
        {L"a|b|c|", 1, L"a"},      {L"a|b|c|", 3, L"c"}, {L"a|b|c|", 4, L""},
        {L"a|b|rest", 9, L"rest"}, {L"a|b|1", 3, L"1"},  {L"a|b|", 0, L""},
        {L"a|b|", -1, L""},        {L"", 1, L""},        {L"||x|", 2, L""}};
    for (const auto& [text, n, field] : cases)
        EXPECT_TRUE(zu::attributeField(text, n) == field) << n;
    EXPECT_TRUE(zu::isEditable(L"a|b|c|1|"));
    for (const wchar_t* text : {L"a|b|c|0|", L"a|b|", L"", L"1|1|1|"})
        EXPECT_FALSE(zu::isEditable(text));
}

TEST_F(Model, FindsIdCodesIgnoringCase) {
    const CPtrArray& records = table({{L"short"}, {L"Aa", L"1", L"x"}, {L"aA", L"2", L"Y"}});
    CString code(L"kept");
    EXPECT_FALSE(zu::findIdCode(code, records, L"aa", L"z"));
    EXPECT_TRUE(code == L"kept");
    EXPECT_TRUE(zu::findIdCode(code, records, L"AA", L"y"));
    EXPECT_TRUE(code == L"2");
}

TEST_F(Model, ChoicesDependOnTheKindOfTheItem) {
    const zu::ParameterIndex index(table({{L"S1", L"E", L"e", L"1"},
                                          {L"S1", L"A", L"a", L"0"},
                                          {L"S1", L"P", L"p"},
                                          {L"S1", L"", L"any"},
                                          {L"S1", L"E", L"e"},
                                          {L"S501", L"E", L"e"},
                                          {L"S501", L"A", L"a"},
                                          {L"S2"}}));
    const auto joined = [&index](const wchar_t* id, const wchar_t* value) {
        CString all;
        for (const CString& text : index.choices(id, value))
            all += text + L",";
        return all;
    };
    EXPECT_TRUE(joined(L"S1", L"E1") == L"e,any,");
    EXPECT_TRUE(joined(L"S1", L"A1") == L"a,p,any,");
    EXPECT_TRUE(joined(L"S1", L"P1") == L"a,p,any,");
    EXPECT_TRUE(joined(L"S1", L"") == L"e,a,p,any,");
    EXPECT_TRUE(joined(L"S501", L"E1") == L"e,a,");
    EXPECT_TRUE(joined(L"S2", L"") == L"" && joined(L"S9", L"") == L"");
    EXPECT_TRUE(index.editable(L"S1"));
    EXPECT_FALSE(index.editable(L"S501") || index.editable(L"S2") || index.editable(L"S9"));
}

TEST_F(Model, MergesItemsOfSeveralEntities) {
    const CStringArray* const lists[] = {
        &strings({L"3|A|B|", L"S1|x|0|0|1|1|", L"S2|same |", L"S2|unreachable|"}),
        &strings({L"3|A|B|", L"S2|same|", L"S3|only  ", L"", L"S1|y|"})};
    const std::vector<zu::ShownItem> items = zu::shownItems(lists);
    ASSERT_EQ(items.size(), 3U);
    EXPECT_TRUE(items[0].key == L"S1|" && items[0].value == L"*各種*" && items[0].shared);
    EXPECT_TRUE(items[1].key == L"S2|" && items[1].value == L"same" && items[1].shared);
    EXPECT_TRUE(items[2].key == L"S3|" && items[2].value == L"only" && !items[2].shared);
    EXPECT_TRUE(zu::shownItems({}).empty());
    EXPECT_FALSE(zu::isEditable(items[0], zu::ParameterIndex({}))) << "the second record does not mark it";
    const CStringArray* const one[] = {&strings({L"1|A|B|", L"S1|x|0| 名 |1|1|", L"S2|x|0|名"})};
    const std::vector<zu::ShownItem> marked = zu::shownItems(one);
    EXPECT_TRUE(marked[0].label == L"名" && zu::isEditable(marked[0], zu::ParameterIndex({})));
    EXPECT_TRUE(marked[1].label.IsEmpty() && !zu::isEditable(marked[1], zu::ParameterIndex({})));
}

TEST_F(Model, WritesOnlyEditableRepresentableValues) {
    const zu::ParameterIndex index(table({{L"S1", L"", L"x", L"1"},
                                          {L"S2", L"", L"x", L"0"},
                                          {L"S3", L"", L"x", L"1"},
                                          {L"S4", L"", L"x", L"1"},
                                          {L"S5", L"", L"x", L"1"},
                                          {L"S6", L"", L"x", L"1"},
                                          {L"S7", L"", L"x", L"1"}}));
    CStringArray& list = strings({L"6|A|B|", L"S1|old|0|tail|", L"S2|fixed|", L"S3|own|", L"S4|bar|",
                                  L"S5|not ended", L"S6|same |0|", L"S7|line|"});
    const std::vector<zu::ShownItem> items = {{L"S1|", L"new"},    {L"S2|", L"new"}, {L"S3|", L"*各種*"},
                                              {L"S4|", L"a|b"},    {L"S5|", L"new"}, {L"S6|", L"same"},
                                              {L"S9|", L"absent"}, {L"S7|", L"a\nb"}};
    EXPECT_TRUE(zu::applyItems(list, zu::writableItems(items, index)));
    const List expected = {L"6|A|B|",  L"S1|new|0|tail|", L"S2|fixed|",   L"S3|own|",
                           L"S4|bar|", L"S5|new|",        L"S6|same |0|", L"S7|line|"};
    int place = 0;
    for (const wchar_t* text : expected)
        EXPECT_TRUE(list[place++] == text) << place;
    EXPECT_FALSE(zu::applyItems(list, zu::writableItems(items, index))) << "already applied";
}

} // namespace
