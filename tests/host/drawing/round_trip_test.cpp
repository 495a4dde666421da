#include "notation.h"

#include "dxf_records/number_text.h"
#include "dxf_records/value_type.h"

#include <gtest/gtest.h>

using namespace zuhost;

namespace {

constexpr const char* kSamples[] = {
    "drawings/office-floor.dxf",   "drawings/office-floor-932.dxf", "parts/equip-fan.dxf",
    "parts/equip-fan-utf8.dxf",    "parts/fitting-01.dxf",          "parts/fitting-02.dxf",
    "parts/fitting-03.dxf",        "parts/binary/equip-fan.dxf",    "parts/binary/equip-fan-utf8.dxf",
    "parts/binary/fitting-01.dxf", "parts/binary/fitting-02.dxf",
};

std::string sample(const char* name) {
    return fileBytes(std::string(ZU_SAMPLES) + "/" + name);
}

DrawingForm otherForm(DrawingForm form) {
    return form == DrawingForm::ascii ? DrawingForm::binary : DrawingForm::ascii;
}

bool sameValue(int code, const std::string& a, const std::string& b) {
    const dxf::ValueType type = dxf::valueType(code);
    if (type == dxf::ValueType::real)
        return parseReal(a) == parseReal(b);
    return dxf::isInteger(type) ? parseInteger(a) == parseInteger(b) : a == b;
}

/// Compares numbers by value.
void expectSameTags(const TagList& a, const TagList& b) {
    ASSERT_EQ(a.size(), b.size());
    for (std::size_t i = 0; i < a.size(); ++i) {
        ASSERT_EQ(a[i].code, b[i].code);
        ASSERT_TRUE(sameValue(a[i].code, a[i].value, b[i].value)) << a[i].value << " / " << b[i].value;
    }
}

void expectSameDrawing(const Document& a, const Document& b) {
    expectSameTags(a.header(), b.header());
    ASSERT_EQ(a.containers().size(), b.containers().size());
    auto other = b.containers().begin();
    for (const Container& container : a.containers()) {
        EXPECT_EQ(container.name, other->name);
        ASSERT_EQ(container.members.size(), other->members.size());
        for (std::size_t i = 0; i < container.members.size(); ++i) {
            EXPECT_EQ(container.members[i]->handle, other->members[i]->handle);
            expectSameTags(a.tags(*container.members[i]), b.tags(*other->members[i]));
        }
        ++other;
    }
}

} // namespace

TEST(RoundTrip, UneditedSamplesKeepTheirBytes) {
    for (const char* name : kSamples) {
        const std::string bytes = sample(name);
        const auto document = opened(bytes);
        EXPECT_GT(document->objectCount(), 100U) << name;
        EXPECT_TRUE(saved(*document) == bytes) << name;
    }
}

TEST(RoundTrip, TheOtherFormKeepsObjectsAndValues) {
    for (const char* name : kSamples) {
        SCOPED_TRACE(name);
        const auto document = opened(sample(name));
        const std::string converted = document->bytes(otherForm(document->form()), nullptr);
        const auto other = opened(converted);
        ASSERT_EQ(other->form(), otherForm(document->form()));
        expectSameDrawing(*document, *other);
        const std::string back = other->bytes(document->form(), nullptr);
        expectSameDrawing(*document, *opened(back));
        EXPECT_TRUE(document->form() == DrawingForm::ascii || back == sample(name)); // numbers included
    }
}

TEST(RoundTrip, ObjectsWrittenFromTagsKeepTheirBytes) {
    for (const char* name : kSamples) {
        const std::string bytes = sample(name);
        const auto document = opened(bytes);
        TagList tags;
        const std::string rewritten = saved(*document, [&](const AcDbStub& stub) {
            tags = document->tags(stub);
            return &tags;
        });
        EXPECT_TRUE(rewritten == bytes) << name;
    }
}

TEST(RoundTrip, LongAndRareValuesSurviveTheBinaryForm) {
    const std::string records = "1 " + std::string(5000, 'x') + "|310 " + std::string(254, 'A') +
                                "|160 -9007199254740993|90 -2147483648|90 2147483647|70 -32768|70 32767|290 "
                                "255|40 nan|40 -0.0|40 1E-300" +
                                "|1001 ACAD|1004 00FF|1004 " + std::string(508, '0') +
                                "|1005 FFFFFFFFFFFFFFFF|1071 -1";
    const auto document = opened(drawing("AC1032", "0 SECTION|2 ENTITIES|0 X|" + records + "|0 ENDSEC"));
    const auto binary = opened(document->bytes(DrawingForm::binary, nullptr));
    const auto back = opened(binary->bytes(DrawingForm::ascii, nullptr));
    const TagList before = document->tags(*member(*document, "X"));
    const TagList after = back->tags(*member(*back, "X"));
    ASSERT_EQ(before.size(), after.size());
    for (std::size_t i = 0; i < before.size(); ++i) {
        const bool nan = before[i].value == "nan";
        EXPECT_TRUE(nan ? after[i].value == "nan"
                        : sameValue(before[i].code, before[i].value, after[i].value))
            << before[i].value << " / " << after[i].value;
    }
}

/// In the text form a line end would separate a value from its own record. The last byte of "タ" is that of
/// "^".
TEST(RoundTrip, LineEndsWithinTextsOfTheBinaryFormReturn) {
    const auto document =
        opened(drawing("AC1015", "0 SECTION|2 ENTITIES|0 X|1 a1b2c|1 ^^J^|1 \x83\x5EJ^J|0 ENDSEC"));
    std::string bytes = document->bytes(DrawingForm::binary, nullptr);
    const std::size_t at = bytes.find("a1b2c");
    ASSERT_NE(at, std::string::npos);
    bytes.replace(at, 5, "a\nb\rc");
    const auto back = opened(opened(bytes)->bytes(DrawingForm::ascii, nullptr));
    const TagList tags = back->tags(*member(*back, "X"));
    EXPECT_EQ(TagView(tags).text(1), "a^Jb^Mc");
    const auto again = opened(back->bytes(DrawingForm::binary, nullptr));
    EXPECT_EQ(again->tags(*member(*again, "X")),
              TagList({{0, "X"}, {1, "a\nb\rc"}, {1, "^^J^"}, {1, "\x83\x5EJ\n"}}));
}

TEST(RoundTrip, ValuesThatDoNotFitAreErrors) {
    const std::string zero("a\0b", 3);
    for (const std::string& record :
         {std::string("70 32768"), std::string("90 3000000000"), std::string("290 256"), "1 " + zero,
          std::string("310 ABC"), std::string("310 XY"), "310 " + std::string(512, '0'),
          std::string("1500 x")}) {
        const auto document = opened(drawing("AC1032", "0 SECTION|2 ENTITIES|0 X|" + record + "|0 ENDSEC"));
        DocumentError error;
        EXPECT_EQ(document->bytes(DrawingForm::binary, nullptr, &error), "") << record;
        EXPECT_NE(error.problem.find(L"group code"), std::wstring::npos) << record;
    }
}
