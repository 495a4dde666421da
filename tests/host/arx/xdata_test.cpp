#include "dbapserv.h"
#include "sample_drawing.h"
#include <zuhost/drawing_files.h>
#include <zuhost/members.h>

#include <zuhost/extended_data.h>
#include <zuhost/result_chain.h>
#include <zuhost/result_kind.h>

namespace {

using Chain = zuhost::ResultChain;

/// Appends items to a new chain.
class ChainBuilder {
public:
    ChainBuilder& text(short type, const ACHAR* value) {
        acutNewString(value, add(type).resval.rstring);
        return *this;
    }
    ChainBuilder& application(const ACHAR* name) { return text(1001, name); }
    ChainBuilder& real(short type, double value) {
        add(type).resval.rreal = value;
        return *this;
    }
    ChainBuilder& point(short type, double x, double y, double z) {
        resbuf& item = add(type);
        item.resval.rpoint[0] = x;
        item.resval.rpoint[1] = y;
        item.resval.rpoint[2] = z;
        return *this;
    }
    ChainBuilder& integer(short value) {
        add(1070).resval.rint = value;
        return *this;
    }
    ChainBuilder& longInteger(std::int32_t value) {
        add(1071).resval.rlong = value;
        return *this;
    }
    ChainBuilder& bytes(std::string_view values) {
        resbuf& item = add(1004);
        item.resval.rbinary.clen = static_cast<short>(values.size());
        item.resval.rbinary.buf = new char[values.size()];
        values.copy(item.resval.rbinary.buf, values.size());
        return *this;
    }
    ChainBuilder& chunkOfNegativeLength() {
        add(1004).resval.rbinary.clen = -1;
        return *this;
    }
    [[nodiscard]] const resbuf* get() const { return first_.get(); }

private:
    resbuf& add(short type) {
        resbuf* const item = acutNewRb(type);
        if (last_ != nullptr)
            last_->rbnext = item;
        else
            first_.reset(item);
        last_ = item;
        return *item;
    }

    Chain first_;
    resbuf* last_ = nullptr;
};

constexpr std::string_view kBytes = "\x1A\xF0\x9B";

std::string_view bytesOf(const resbuf& item) {
    return {item.resval.rbinary.buf, static_cast<std::size_t>(item.resval.rbinary.clen)};
}

class ExtendedData : public SampleDrawing {
protected:
    ExtendedData() { acdbHostApplicationServices()->setWorkingDatabase(drawing.get()); }

    Acad::ErrorStatus set(Adesk::UInt64 handle, const ChainBuilder& chain) const {
        return AcDbObjectPointer<AcDbObject>(id(handle), AcDb::kForWrite)->setXData(chain.get());
    }
    static Chain get(const AcDbDatabase& database, Adesk::UInt64 handle, const ACHAR* application) {
        return Chain(AcDbObjectPointer<AcDbObject>(idIn(database, handle))->xData(application));
    }
};

} // namespace

TEST_F(ExtendedData, EveryTypeOfValueSurvivesSaving) {
    ChainBuilder chain;
    chain.application(L"ZU_ATTR").text(1000, L"表示 850㎥/h").text(1002, L"{").point(1011, 1, 2.5, -3);
    chain.text(1002, L"}").text(1003, L"SA-ダクト").bytes(kBytes).text(1005, L"10C");
    chain.real(1040, 0.1).integer(-7);
    chain.longInteger(70000).real(1042, 0.1).point(1013, 1, 2.5, -3);
    ASSERT_EQ(set(kShelf, chain), Acad::eOk);
    for (const bool binary : {false, true}) {
        const auto again = readBytes(zuhost::dxfOutBytes(*drawing, binary));
        const Chain read = get(*again, kShelf, L"ZU_ATTR");
        const resbuf* item = read.get();
        for (const resbuf* given = chain.get(); given != nullptr;
             given = given->rbnext, item = item->rbnext) {
            ASSERT_NE(item, nullptr);
            ASSERT_EQ(item->restype, given->restype);
            if (zuhost::resultKind(given->restype) == zuhost::ResultKind::text) {
                EXPECT_STREQ(item->resval.rstring, given->resval.rstring);
            } else if (given->restype == 1011 || given->restype == 1013) {
                EXPECT_EQ(item->resval.rpoint[1], 2.5);
                EXPECT_EQ(item->resval.rpoint[2], -3.0);
            } else if (given->restype == 1004) {
                EXPECT_EQ(bytesOf(*item), kBytes);
            } else if (given->restype == 1040 || given->restype == 1042) {
                EXPECT_EQ(item->resval.rreal, 0.1);
            } else if (given->restype == 1071) {
                EXPECT_EQ(item->resval.rlong, 70000);
            } else {
                EXPECT_EQ(item->resval.rint, -7);
            }
        }
        EXPECT_EQ(item, nullptr);
    }
}

TEST_F(ExtendedData, LowerCaseChunksAreReadAndForeignCodesEndTheData) {
    ASSERT_EQ(set(kShelf, ChainBuilder().application(L"ZU_ATTR").bytes(kBytes)), Acad::eOk);
    std::string bytes = zuhost::dxfOutBytes(*drawing, false);
    const std::size_t at = bytes.find("1AF09B");
    ASSERT_NE(at, std::string::npos);
    bytes.replace(at, 6, "1af09b\n310\nFF\n1000\nx");
    const auto again = readBytes(bytes);
    EXPECT_EQ(bytesOf(*get(*again, kShelf, L"ZU_ATTR")->rbnext), kBytes);
    const Chain all = get(*again, kShelf, nullptr);
    EXPECT_EQ(all->rbnext->rbnext, nullptr);
}

TEST_F(ExtendedData, VisitsTheValuesOfChains) {
    using Values = std::vector<std::pair<short, std::wstring>>;
    ASSERT_EQ(set(kShelf, ChainBuilder().application(L"ZU_ATTR").text(1000, L"表示").bytes(kBytes)),
              Acad::eOk);
    const std::string bytes = zuhost::dxfOutBytes(*drawing, false);
    const std::string value = "1AF09B\n";
    const std::size_t at = bytes.find(value);
    ASSERT_NE(at, std::string::npos);
    for (const std::string records : {
             "1070\n7\n1005\n10C\n1040\n0.5\n1001\nZU_LINK\n1000\n2|\n",
             "1000\n\n1001\nZU_LINK\n1000\n2|\n1001\nzu_attr\n1000\nrepeated\n",
             "310\nFF\n1000\nafter a foreign code\n1001\nZU_LINK\n1000\n2|\n",
             "1010\n1.0\n1020\n2.0\n1000\nafter a plane point\n1020\n5.0\n1010\n1.0\n1010\n2.0\n1002\n}\n",
             "1000\n\\U+33A5^Jz^ \\U+0000beyond the end\n1003\n\\M+18372\n",
             "1006\nunknown\n1072\n3\n1001\nOTHER\n1000\nnot registered\n",
         }) {
        const auto again = readBytes(std::string(bytes).insert(at + value.size(), records));
        for (const wchar_t* const application : {L"", L"ZU_ATTR", L"zu_Link", L"OTHER", L"none"}) {
            const ACHAR* const name = *application != L'\0' ? application : nullptr;
            Values listed;
            const Chain chain = get(*again, kShelf, name);
            for (const resbuf* item = chain.get(); item != nullptr; item = item->rbnext) {
                const bool isText = zuhost::resultKind(item->restype) == zuhost::ResultKind::text;
                listed.emplace_back(item->restype, isText ? item->resval.rstring : L"");
            }
            Values visited;
            const AcDbObjectPointer<AcDbObject> object(idIn(*again, kShelf));
            const auto add = [&visited](short type, std::wstring_view text) {
                visited.emplace_back(type, text);
                return true;
            };
            EXPECT_EQ(zuhost::visitExtendedData(*object.object(), name, add), chain != nullptr);
            EXPECT_EQ(visited, listed) << records;
        }
    }
}

TEST_F(ExtendedData, TextsAreReplacedInOrder) {
    const std::string name = "1001\nZU_ATTR\n";
    const std::string values = "1000\na\n1040\n0.50\n999\nnote\n1000\n\\U+33A5\n1070\n7\n";
    ASSERT_EQ(set(kShelf, ChainBuilder().application(L"ZU_ATTR").text(1000, L"a")), Acad::eOk);
    const std::string bytes = zuhost::dxfOutBytes(*drawing, false);
    const std::string stored = name + "1000\na\n";
    const std::size_t at = bytes.find(stored);
    ASSERT_NE(at, std::string::npos);
    const auto drawingWith = [&](const std::string& data) {
        return std::string(bytes).replace(at, stored.size(), data);
    };
    const auto setTexts = [](const AcDbDatabase& database, const ACHAR* application,
                             std::span<const std::wstring_view> texts, AcDb::OpenMode mode) {
        const AcDbObjectPointer<AcDbObject> object(idIn(database, kShelf), mode);
        return zuhost::setExtendedTexts(*object.object(), application, texts);
    };
    const struct {
        std::string before;
        std::vector<std::wstring_view> texts;
        std::string after;
    } cases[] = {
        {name + values, {L"a", L"㎥"}, name + values},
        {name + values, {L"b"}, name + "1000\nb\n1040\n0.50\n999\nnote\n1070\n7\n"},
        {name + values, {}, name + "1040\n0.50\n999\nnote\n1070\n7\n"},
        {name + values,
         {L"", L"c", L"d|", L"e"},
         name + "1000\n\n1040\n0.50\n999\nnote\n1000\nc\n1070\n7\n1000\nd|\n1000\ne\n"},
        {stored, {}, ""},
        {"", {}, ""},
        {"", {L"a"}, stored},
    };
    for (const auto& c : cases) {
        const auto database = readBytes(drawingWith(c.before));
        EXPECT_EQ(setTexts(*database, L"zu_attr", c.texts, AcDb::kForWrite), Acad::eOk);
        EXPECT_EQ(zuhost::dxfOutBytes(*database, false), drawingWith(c.after));
    }
    const auto database = readBytes(drawingWith(name + values));
    const std::vector<std::wstring_view> tooMuch(1638, L"six by");
    EXPECT_EQ(setTexts(*database, L"ZU_ATTR", tooMuch, AcDb::kForWrite), Acad::eXdataSizeExceeded);
    EXPECT_EQ(setTexts(*database, L"none", {}, AcDb::kForWrite), Acad::eRegappIdNotFound);
    EXPECT_EQ(setTexts(*database, L"ZU_ATTR", {}, AcDb::kForRead), Acad::eNotOpenForWrite);
    EXPECT_EQ(zuhost::dxfOutBytes(*database, false), drawingWith(name + values));
    const std::vector<std::wstring_view> most(1635, L"six by");
    EXPECT_EQ(setTexts(*database, L"ZU_ATTR", most, AcDb::kForWrite), Acad::eOk);
}

TEST_F(ExtendedData, ApplicationsAreReplacedOneByOne) {
    const Chain links = get(*drawing, kDuct, L"ZU_LINK");
    ASSERT_NE(links, nullptr);
    ASSERT_EQ(set(kDuct, ChainBuilder().application(L"ZU_ATTR").text(1000, L"new")), Acad::eOk);
    const Chain attributes = get(*drawing, kDuct, L"ZU_ATTR");
    ASSERT_NE(attributes->rbnext, nullptr);
    EXPECT_STREQ(attributes->rbnext->resval.rstring, L"new");
    EXPECT_EQ(attributes->rbnext->rbnext, nullptr);
    EXPECT_STREQ(get(*drawing, kDuct, L"ZU_LINK")->rbnext->resval.rstring, links->rbnext->resval.rstring);
    // A name without values removes the application's data.
    ASSERT_EQ(set(kDuct, ChainBuilder().application(L"ZU_ATTR")), Acad::eOk);
    EXPECT_EQ(get(*drawing, kDuct, L"ZU_ATTR"), nullptr);
    const Chain rest = get(*drawing, kDuct, nullptr);
    EXPECT_STREQ(rest->resval.rstring, L"ZU_LINK");
    EXPECT_EQ(get(*drawing, kShelf, nullptr), nullptr);
}

TEST_F(ExtendedData, ApplicationsMustBeRegistered) {
    ChainBuilder chain;
    chain.application(L"MY_APP").integer(1);
    EXPECT_EQ(set(kShelf, chain), Acad::eRegappIdNotFound);
    EXPECT_EQ(get(*drawing, kShelf, nullptr), nullptr);
    EXPECT_EQ(acdbRegApp(L"MY_APP"), RTNORM);
    EXPECT_EQ(acdbRegApp(L"my_app"), RTNORM);
    EXPECT_EQ(set(kShelf, chain), Acad::eOk);
    const auto again = reopened();
    EXPECT_NE(get(*again, kShelf, L"MY_APP"), nullptr);
    const AcDbObjectPointer<AcDbRegAppTable> applications(again->regAppTableId());
    EXPECT_TRUE(applications->has(L"MY_APP"));
    EXPECT_EQ(zuhost::recordIds(*applications).size(), 6U);
}

TEST_F(ExtendedData, NamesOfApplicationsAreComparedIgnoringCase) {
    ASSERT_EQ(set(kDuct, ChainBuilder().application(L"zu_attr").text(1000, L"new")), Acad::eOk);
    const Chain read = get(*drawing, kDuct, L"Zu_Attr");
    ASSERT_NE(read, nullptr);
    EXPECT_STREQ(read->resval.rstring, L"ZU_ATTR");
    EXPECT_STREQ(read->rbnext->resval.rstring, L"new");
}

TEST_F(ExtendedData, InvalidChainsChangeNothing) {
    struct Case {
        const char* what;
        ChainBuilder chain;
        Acad::ErrorStatus expected;
    };
    Case cases[] = {
        {"no application", {}, Acad::eInvalidInput},    {"value first", {}, Acad::eInvalidInput},
        {"not extended data", {}, Acad::eInvalidInput}, {"no such code", {}, Acad::eInvalidInput},
        {"chunk too long", {}, Acad::eInvalidInput},    {"chunk of negative length", {}, Acad::eInvalidInput},
        {"too much", {}, Acad::eXdataSizeExceeded},
    };
    cases[1].chain.text(1000, L"x").application(L"ZU_ATTR");
    cases[2].chain.application(L"ZU_ATTR").text(1, L"x");
    cases[3].chain.application(L"ZU_ATTR").real(1050, 1.0);
    cases[4].chain.application(L"ZU_ATTR").bytes(std::string(128, 'x'));
    cases[5].chain.application(L"ZU_ATTR").chunkOfNegativeLength();
    cases[6].chain.application(L"ZU_LINK");
    for (int i = 0; i < 200; ++i)
        cases[6].chain.text(1000, std::wstring(80, L'x').c_str());
    const std::string before = zuhost::dxfOutBytes(*drawing, false);
    for (const Case& c : cases)
        EXPECT_EQ(set(kDuct, c.chain), c.expected) << c.what;
    EXPECT_EQ(AcDbObjectPointer<AcDbObject>(id(kDuct))->setXData(cases[0].chain.get()),
              Acad::eNotOpenForWrite);
    EXPECT_TRUE(zuhost::dxfOutBytes(*drawing, false) == before);
    EXPECT_EQ(set(kDuct, ChainBuilder().application(L"ZU_ATTR").bytes(std::string(127, 'x'))), Acad::eOk);
}

TEST_F(ExtendedData, LimitHoldsForAllApplicationsTogether) {
    const auto filled = [](const ACHAR* application, int strings) {
        ChainBuilder chain;
        chain.application(application);
        for (int i = 0; i < strings; ++i)
            chain.text(1000, std::wstring(96, L'x').c_str()); // 100 bytes each
        return chain;
    };
    EXPECT_EQ(set(kShelf, filled(L"ZU_ATTR", 100)), Acad::eOk);
    EXPECT_EQ(set(kShelf, filled(L"ZU_LINK", 70)), Acad::eXdataSizeExceeded);
    EXPECT_EQ(set(kShelf, filled(L"ZU_LINK", 60)), Acad::eOk);
    EXPECT_EQ(set(kShelf, filled(L"ZU_ATTR", 100)), Acad::eOk);
    const std::wstring text(96, L'x');
    const auto setTexts = [&](const ACHAR* application, std::size_t count) {
        const AcDbObjectPointer<AcDbObject> object(id(kShelf), AcDb::kForWrite);
        return zuhost::setExtendedTexts(*object.object(), application,
                                        std::vector<std::wstring_view>(count, text));
    };
    EXPECT_EQ(setTexts(L"ZU_ATTR", 104), Acad::eXdataSizeExceeded);
    EXPECT_EQ(setTexts(L"ZU_ATTR", 103), Acad::eOk);
    EXPECT_EQ(setTexts(L"ZU_LINK", 61), Acad::eXdataSizeExceeded);
}
