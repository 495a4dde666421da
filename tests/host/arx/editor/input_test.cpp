#include "editor_drawing.h"

#include <accmd.h>
#include <zuhost/drawing_files.h>
#include <zuhost/input.h>
#include <zuhost/paths.h>
#include <zuhost/platform/libraries.h>

#include <cmath>
#include <numbers>

namespace {

using Input = EditorDrawing;

struct NumberCase {
    const wchar_t* typed;
    int flags;
    int code;
    double value;
};

TEST_F(Input, ReadsRealNumbers) {
    constexpr double kUnset = -1.0;
    for (const NumberCase& c : {
             NumberCase{L"12.5 ", 0, RTNORM, 12.5},
             NumberCase{L"-2\n", 0, RTNORM, -2.0},
             NumberCase{L"1e3\n", 0, RTNORM, 1000.0},
             NumberCase{L"1'3-1/2\"\n", 0, RTNORM, 15.5},
             NumberCase{L"\n", 0, RTNONE, kUnset},
             NumberCase{L"\n7\n", RSG_NONULL, RTNORM, 7.0},
             NumberCase{L"0 -4 3 ", RSG_NOZERO | RSG_NONEG, RTNORM, 3.0},
             NumberCase{L"abc 5 ", 0, RTNORM, 5.0},
             NumberCase{L"inf nan 1e999 6 ", 0, RTNORM, 6.0},
             NumberCase{L"abc", 0, RTCAN, kUnset},
             NumberCase{L"", 0, RTCAN, kUnset},
             NumberCase{L"\x1b 5 ", 0, RTCAN, kUnset},
             NumberCase{L"abc ", RSG_OTHER, RTKWORD, kUnset},
             NumberCase{L"ex ", 0, RTKWORD, kUnset},
         }) {
        type(c.typed);
        acedInitGet(c.flags, L"EXit All");
        double value = kUnset;
        EXPECT_EQ(acedGetReal(L"Number: ", &value), c.code) << testing::PrintToString(std::wstring(c.typed));
        EXPECT_EQ(value, c.value) << testing::PrintToString(std::wstring(c.typed));
    }
    EXPECT_EQ(acedGetReal(L"", nullptr), RTERROR);
}

TEST_F(Input, LimitsIntegersTo16Bits) {
    type(L"32768 1.5 -32768 ");
    int value = 0;
    EXPECT_EQ(acedGetInt(L"", &value), RTNORM);
    EXPECT_EQ(value, -32768);
}

TEST_F(Input, ReadsPoints) {
    struct Case {
        const wchar_t* typed;
        bool hasBase;
        int code;
        AcGePoint3d point;
    };
    const ads_point base{10, 20, 0};
    for (const Case& c : {
             Case{L"1,2 ", false, RTNORM, {1, 2, 0}},
             Case{L"1,2,3 ", true, RTNORM, {1, 2, 3}},
             Case{L"@1,2 ", true, RTNORM, {11, 22, 0}},
             Case{L"@5<90 ", true, RTNORM, {10, 25, 0}},
             Case{L"5<180 ", true, RTNORM, {-5, 0, 0}},
             Case{L"@ ", true, RTNORM, {10, 20, 0}},
             Case{L"*1,2 ", false, RTNORM, {1, 2, 0}},
             Case{L"5 1, 1,2,3,4 7,8 ", false, RTNORM, {7, 8, 0}},
             Case{L"\n", false, RTNONE, {0, 0, 0}},
             Case{L"", false, RTCAN, {0, 0, 0}},
         }) {
        type(c.typed);
        ads_point point{0, 0, 0};
        EXPECT_EQ(acedGetPoint(c.hasBase ? base : nullptr, L"Point: ", point), c.code);
        EXPECT_LT(asPnt3d(point).distanceTo(c.point), 1e-12) << testing::PrintToString(std::wstring(c.typed));
    }
    type(L"@1,1 ");
    ads_point relative;
    ASSERT_EQ(acedGetPoint(nullptr, L"", relative), RTNORM);
    EXPECT_EQ(asPnt3d(relative), AcGePoint3d(8, 9, 0)) << "relative to the last point";
    EXPECT_EQ(acedGetPoint(nullptr, L"", nullptr), RTERROR);
    EXPECT_EQ(acedGetCorner(nullptr, L"", relative), RTERROR);
}

TEST_F(Input, MeasuresDistancesAndAngles) {
    const ads_point base{0, 0, 0};
    double value = 0.0;
    type(L"3,4 12 1,1 4,5 nonsense 2 ");
    EXPECT_EQ(acedGetDist(base, L"", &value), RTNORM);
    EXPECT_EQ(value, 5.0);
    EXPECT_EQ(acedGetDist(nullptr, L"", &value), RTNORM);
    EXPECT_EQ(value, 12.0);
    EXPECT_EQ(acedGetDist(nullptr, L"", &value), RTNORM);
    EXPECT_EQ(value, 5.0) << "between two points";
    EXPECT_EQ(acedGetDist(nullptr, L"", &value), RTNORM);
    EXPECT_EQ(value, 2.0);

    resbuf ninety;
    ninety.restype = RTREAL;
    ninety.resval.rreal = std::numbers::pi / 2;
    ASSERT_EQ(acedSetVar(L"ANGBASE", &ninety), RTNORM);
    type(L"0,5 45 0,5 ");
    EXPECT_EQ(acedGetAngle(base, L"", &value), RTNORM);
    EXPECT_NEAR(value, 0.0, 1e-12);
    EXPECT_EQ(acedGetAngle(base, L"", &value), RTNORM);
    EXPECT_NEAR(value, std::numbers::pi / 4, 1e-12) << "entered from the base";
    EXPECT_EQ(acedGetOrient(base, L"", &value), RTNORM);
    EXPECT_NEAR(value, std::numbers::pi / 2, 1e-12);
}

TEST_F(Input, MatchesKeywords) {
    struct Case {
        const wchar_t* keywords;
        const wchar_t* typed;
        const wchar_t* keyword; ///< Empty for none.
    };
    for (const Case& c : {
             Case{L"Yes No", L"y", L"Yes"},
             Case{L"Yes No", L"NO", L"No"},
             Case{L"Yes No", L"yesno", L""},
             Case{L"LType LAyer", L"l", L""},
             Case{L"LType LAyer", L"la", L"LAyer"},
             Case{L"LTYPE,LT", L"lt", L"LTYPE"},
             Case{L"LTYPE,LT", L"l", L""},
             Case{L"eXit", L"x", L"eXit"},
             Case{L"eXit", L"exi", L"eXit"},
             Case{L"all", L"a", L""},
             Case{L"Ja Nein _Yes No", L"j", L"Yes"},
             Case{L"Ja Nein _Yes No", L"_n", L"No"},
             Case{L"Ja Nein _Yes No", L"y", L""},
         }) {
        type((std::wstring(c.typed) + L" ").c_str());
        acedInitGet(0, c.keywords);
        wchar_t keyword[20] = L"";
        const bool known = *c.keyword != L'\0';
        EXPECT_EQ(acedGetKword(L"", keyword), known ? RTNORM : RTCAN);
        EXPECT_STREQ(keyword, c.keyword) << testing::PrintToString(std::wstring(c.typed));
    }
    wchar_t unused[20];
    EXPECT_EQ(acedGetKword(L"", unused), RTERROR) << "the keywords were for one call";
}

TEST_F(Input, ReadsTexts) {
    type(L"one two three\n\nlast");
    wchar_t word[20];
    wchar_t line[4];
    EXPECT_EQ(acedGetString(0, L"Word: ", word), RTNORM);
    EXPECT_STREQ(word, L"one");
    EXPECT_EQ(acedGetString(1, L"", line), RTNORM);
    EXPECT_STREQ(line, L"two") << "cut to the buffer";
    EXPECT_EQ(acedGetString(0, L"", word), RTNORM);
    EXPECT_STREQ(word, L"");
    EXPECT_EQ(acedGetString(0, L"", word), RTNORM);
    EXPECT_STREQ(word, L"last");
    EXPECT_EQ(acedGetString(0, L"", word), RTCAN);
    EXPECT_EQ(acedGetString(0, L"", nullptr, 5), RTERROR);
    EXPECT_NE(printed.text().find(L"Word: one\n"), std::wstring::npos) << "prompts show their answers";
}

TEST_F(Input, EndsAnEndlessInputWithoutUse) {
    int asked = 0;
    zuhost::setInputSource([&asked] {
        ++asked;
        return std::optional<std::wstring>(L"never a number");
    });
    double value = 0.0;
    EXPECT_EQ(acedGetReal(L"", &value), RTERROR);
    EXPECT_LT(asked, 200);
}

std::wstring& given() {
    static std::wstring text;
    return text;
}

void recordInput() {
    wchar_t text[50];
    double number = 0.0;
    if (acedGetString(1, L"Text: ", text) == RTNORM && acedGetReal(L"Number: ", &number) == RTNORM)
        given() += std::wstring(text) + L"=" + std::to_wstring(static_cast<int>(number)) + L";";
}

void callItself() {
    given() += L"x";
    acedCommandS(RTSTR, L"SELF", RTNONE);
}

TEST_F(Input, RunsCommandsWithTheirAnswers) {
    acedRegCmds->addCommand(L"INPUT_TEST", L"RECORD", L"RECORD", ACRX_CMD_MODAL, recordInput);
    acedRegCmds->addCommand(L"INPUT_TEST", L"SELF", L"SELF", ACRX_CMD_MODAL, callItself);
    given().clear();
    EXPECT_EQ(acedCommandS(RTSTR, L"_RECORD", RTSTR, L"a b", RTREAL, 2.0, RTSTR, L"RECORD", RTSTR, L"c",
                           RTSHORT, 3, RTNONE),
              RTNORM);
    EXPECT_EQ(given(), L"a b=2;c=3;");
    EXPECT_EQ(acedCommandS(RTSTR, L"RECORD", RTSTR, L"a", RTNONE), RTERROR) << "asked for more";
    EXPECT_EQ(acedCommandS(RTSTR, L"RECORD", RTSTR, L"\\", RTNONE), RTERROR) << "a pause";
    EXPECT_EQ(acedCommandS(RTSTR, L"NO_SUCH_COMMAND", RTNONE), RTERROR);
    EXPECT_EQ(acedCommandS(RTSTR, 5, RTNONE), RTERROR);
    EXPECT_EQ(acedCommandS(RTNONE), RTNORM);
    given().clear();
    EXPECT_EQ(acedCommandS(RTSTR, L"SELF", RTNONE), RTNORM);
    EXPECT_LT(given().size(), 100U);

    given().clear();
    type(L"RECORD\nx y\n5\n\x03\x03_RECORD z\n6 ");
    EXPECT_EQ(zuhost::runPendingCommands(), 2);
    EXPECT_EQ(given(), L"x y=5;z=6;");
    acedRegCmds->removeGroup(L"INPUT_TEST");
}

TEST_F(Input, WritesAndParsesLengthsAndAngles) {
    struct Case {
        double value;
        int unit;
        int precision;
        const wchar_t* text;
    };
    wchar_t text[100];
    for (const Case& c : {
             Case{15.5, 1, 4, L"1.5500E+01"},
             Case{15.5, 2, 2, L"15.50"},
             Case{-15.5, 3, 2, L"-1'-3.50\""},
             Case{15.5, 4, 2, L"1'-3 1/2\""},
             Case{24, 4, 4, L"2'"},
             Case{0.75, 4, 4, L"3/4\""},
             Case{11.999, 4, 2, L"1'"},
             Case{15.5, 5, 4, L"15 1/2"},
             Case{15.5, -1, -1, L"15.5000"},
         }) {
        EXPECT_EQ(acdbRToS(c.value, c.unit, c.precision, text), RTNORM);
        EXPECT_STREQ(text, c.text);
    }
    EXPECT_EQ(acdbRToS(NAN, 2, 2, text), RTERROR);
    EXPECT_EQ(acdbRToS(1, 6, 2, text), RTERROR);
    EXPECT_EQ(acdbRToS(1, 2, 2, nullptr, 10), RTERROR);
    for (const Case& c : {
             Case{0.7853981633974483, 0, 4, L"45.0000"},
             Case{0.7853981633974483, 1, 4, L"45d0'0\""},
             Case{0.7853981633974483, 2, 4, L"50.0000g"},
             Case{0.7853981633974483, 3, 4, L"0.7854r"},
             Case{0.7853981633974483, 4, 4, L"N 45d0'0\" E"},
             Case{-1.5707963267948966, 0, 0, L"270"},
             Case{0.017453292519943295 * 59.99999999, 1, 4, L"60d0'0\""},
         }) {
        EXPECT_EQ(acdbAngToS(c.value, c.unit, c.precision, text), RTNORM);
        EXPECT_STREQ(text, c.text);
    }
    double value = 0.0;
    for (const Case& c : {Case{15.5, 0, 0, L"1'-3 1/2\""}, Case{15.5, 0, 0, L"15-1/2"},
                          Case{0.5, 0, 0, L"1/2"}, Case{-2, 0, 0, L"-2"}, Case{12, 0, 0, L"1'"}}) {
        EXPECT_EQ(acdbDisToF(c.text, -1, &value), RTNORM) << testing::PrintToString(std::wstring(c.text));
        EXPECT_EQ(value, c.value);
    }
    for (const wchar_t* bad : {L"", L"-", L"1/0", L"1''", L"--1", L"1x", L"15 1"})
        EXPECT_EQ(acdbDisToF(bad, -1, &value), RTERROR) << testing::PrintToString(std::wstring(bad));
    for (const Case& c : {Case{45, 0, 0, L"45"}, Case{45.5, 0, 0, L"45d30'"}, Case{45, 0, 0, L"50g"},
                          Case{135, 0, 0, L"N 45d W"}, Case{315, 0, 0, L"S45dE"}, Case{90, 0, 0, L"N"}}) {
        EXPECT_EQ(acdbAngToF(c.text, 0, &value), RTNORM) << testing::PrintToString(std::wstring(c.text));
        EXPECT_NEAR(value, c.value / 180 * std::numbers::pi, 1e-12);
    }
    for (const wchar_t* bad : {L"", L"x", L"N45d", L"45d30\"\"", L"E45dN"})
        EXPECT_EQ(acdbAngToF(bad, 0, &value), RTERROR) << testing::PrintToString(std::wstring(bad));
}

TEST_F(Input, ReadsAndSetsSystemVariables) {
    resbuf value;
    EXPECT_EQ(acedGetVar(L"CMDECHO", &value), RTNORM);
    EXPECT_EQ(value.restype, RTSHORT);
    value.resval.rint = 0;
    EXPECT_EQ(acedSetVar(L"cmdecho", &value), RTNORM);
    EXPECT_EQ(acedGetVar(L"CMDECHO", &value), RTNORM);
    EXPECT_EQ(value.resval.rint, 0);
    value.resval.rint = 1;
    acedSetVar(L"CMDECHO", &value);

    EXPECT_EQ(acedGetVar(L"CLAYER", &value), RTNORM);
    ASSERT_EQ(value.restype, RTSTR);
    EXPECT_STREQ(value.resval.rstring, L"0");
    EXPECT_EQ(acedSetVar(L"LTSCALE", &value), RTERROR) << "a text for a number";
    acutDelString(value.resval.rstring);
    value.restype = RTREAL;
    value.resval.rreal = 2.5;
    EXPECT_EQ(acedSetVar(L"LTSCALE", &value), RTNORM);
    value.resval.rreal = 0;
    EXPECT_EQ(acedGetVar(L"LTSCALE", &value), RTNORM);
    EXPECT_EQ(value.resval.rreal, 2.5);
    value.resval.rreal = -1;
    EXPECT_EQ(acedSetVar(L"LTSCALE", &value), RTERROR) << "as AcDbDatabase::setLtscale";
    EXPECT_EQ(drawing.ltscale(), 2.5);
    EXPECT_EQ(acedSetVar(L"ACADVER", &value), RTERROR);
    EXPECT_EQ(acedGetVar(L"NO_SUCH_VARIABLE", &value), RTERROR);
    EXPECT_EQ(acedGetVar(nullptr, &value), RTERROR);
    EXPECT_EQ(acedSetVar(L"LTSCALE", nullptr), RTERROR);
    AcDbDatabase copy(false);
    ASSERT_EQ(zuhost::dxfInBytes(copy, zuhost::dxfOutBytes(drawing, false), L"copy.dxf"), Acad::eOk);
    acdbHostApplicationServices()->setWorkingDatabase(&copy);
    EXPECT_EQ(acedGetVar(L"LTSCALE", &value), RTNORM);
    EXPECT_EQ(value.resval.rreal, 2.5) << "in the saved drawing";
}

TEST_F(Input, ReactorsAreNotifiedOfVariablesHoweverTheyAreSet) {
    struct Recorder : AcDbDatabaseReactor {
        void headerSysVarWillChange(const AcDbDatabase*, const ACHAR* name) override {
            heard += std::wstring(name) + L"? ";
        }
        void headerSysVarChanged(const AcDbDatabase*, const ACHAR* name, bool) override {
            heard += std::wstring(name) + L"! ";
        }
        std::wstring heard;
    } recorder;
    drawing.addReactor(&recorder);
    resbuf value;
    value.restype = RTREAL;
    value.resval.rreal = 4.0;
    EXPECT_EQ(acedSetVar(L"LTSCALE", &value), RTNORM);
    EXPECT_EQ(drawing.setLtscale(5.0), Acad::eOk);
    EXPECT_EQ(drawing.setLtscale(0.0), Acad::eInvalidInput);
    EXPECT_EQ(acedSetVar(L"CLAYER", &value), RTERROR);
    EXPECT_EQ(recorder.heard, L"LTSCALE? LTSCALE! LTSCALE? LTSCALE! ");
    drawing.removeReactor(&recorder);
}

TEST_F(Input, FindsFiles) {
    wchar_t path[500];
    EXPECT_EQ(acedFindFile(L"no such file.txt", path), RTERROR);
    EXPECT_EQ(acedFindFile(nullptr, path), RTERROR);
    const std::wstring program = zuhost::hostPath(zuhost::platform::programFile());
    const std::wstring name = program.substr(program.rfind(L'\\') + 1);
    EXPECT_EQ(acedFindFile(name.c_str(), path), RTNORM) << "in the program's folder";
    EXPECT_EQ(path, program);
    wchar_t small[5];
    EXPECT_EQ(acedFindFile(name.c_str(), small), RTERROR);
}

} // namespace
