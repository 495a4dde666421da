#include "empty_drawing.h"

#include <string_view>

namespace zuhost {
namespace {

/// "CODE VALUE" records, separated by " | " and line ends.
constexpr std::string_view kTemplateText = R"(
0 SECTION | 2 HEADER
9 $ACADVER | 1 AC1032
9 $ACADMAINTVER | 90 4
9 $DWGCODEPAGE | 3 ANSI_932
9 $INSBASE | 10 0.0 | 20 0.0 | 30 0.0
9 $EXTMIN | 10 1e+20 | 20 1e+20 | 30 1e+20
9 $EXTMAX | 10 -1e+20 | 20 -1e+20 | 30 -1e+20
9 $LIMMIN | 10 0.0 | 20 0.0
9 $LIMMAX | 10 420.0 | 20 297.0
9 $LTSCALE | 40 1.0
9 $TEXTSIZE | 40 2.5
9 $TEXTSTYLE | 7 Standard
9 $CLAYER | 8 0
9 $CELTYPE | 6 ByLayer
9 $CECOLOR | 62 256
9 $DIMSTYLE | 2 Standard
9 $LUNITS | 70 2
9 $LUPREC | 70 4
9 $AUNITS | 70 0
9 $AUPREC | 70 2
9 $PDMODE | 70 0
9 $PDSIZE | 40 0.0
9 $HANDSEED | 5 40
9 $TILEMODE | 70 1
9 $INSUNITS | 70 4
9 $MEASUREMENT | 70 1
9 $LWDISPLAY | 290 0
0 ENDSEC
0 SECTION | 2 CLASSES
0 CLASS | 1 ACDBDICTIONARYWDFLT | 2 AcDbDictionaryWithDefault | 3 ObjectDBX Classes | 90 0 | 91 1
280 0 | 281 0
0 CLASS | 1 ACDBPLACEHOLDER | 2 AcDbPlaceHolder | 3 ObjectDBX Classes | 90 0 | 91 1 | 280 0 | 281 0
0 CLASS | 1 LAYOUT | 2 AcDbLayout | 3 ObjectDBX Classes | 90 0 | 91 2 | 280 0 | 281 0
0 ENDSEC
0 SECTION | 2 TABLES
0 TABLE | 2 VPORT | 5 8 | 330 0 | 100 AcDbSymbolTable | 70 1
0 VPORT | 5 29 | 330 8 | 100 AcDbSymbolTableRecord | 100 AcDbViewportTableRecord | 2 *Active | 70 0
10 0.0 | 20 0.0 | 11 1.0 | 21 1.0 | 12 210.0 | 22 148.5 | 13 0.0 | 23 0.0 | 14 10.0 | 24 10.0 | 15 10.0
25 10.0 | 16 0.0 | 26 0.0 | 36 1.0 | 17 0.0 | 27 0.0 | 37 0.0 | 40 297.0 | 41 1.6 | 42 50.0 | 43 0.0
44 0.0 | 50 0.0 | 51 0.0 | 71 0 | 72 1000 | 73 1 | 74 3 | 75 0 | 76 0 | 77 0 | 78 0
0 ENDTAB
0 TABLE | 2 LTYPE | 5 5 | 330 0 | 100 AcDbSymbolTable | 70 3
0 LTYPE | 5 14 | 330 5 | 100 AcDbSymbolTableRecord | 100 AcDbLinetypeTableRecord | 2 ByBlock | 70 0 | 3
72 65 | 73 0 | 40 0.0
0 LTYPE | 5 15 | 330 5 | 100 AcDbSymbolTableRecord | 100 AcDbLinetypeTableRecord | 2 ByLayer | 70 0 | 3
72 65 | 73 0 | 40 0.0
0 LTYPE | 5 16 | 330 5 | 100 AcDbSymbolTableRecord | 100 AcDbLinetypeTableRecord | 2 Continuous | 70 0
3 Solid line | 72 65 | 73 0 | 40 0.0
0 ENDTAB
0 TABLE | 2 LAYER | 5 2 | 330 0 | 100 AcDbSymbolTable | 70 1
0 LAYER | 5 10 | 330 2 | 100 AcDbSymbolTableRecord | 100 AcDbLayerTableRecord | 2 0 | 70 0 | 62 7
6 Continuous | 370 -3 | 390 F
0 ENDTAB
0 TABLE | 2 STYLE | 5 3 | 330 0 | 100 AcDbSymbolTable | 70 1
0 STYLE | 5 11 | 330 3 | 100 AcDbSymbolTableRecord | 100 AcDbTextStyleTableRecord | 2 Standard | 70 0
40 0.0 | 41 1.0 | 50 0.0 | 71 0 | 42 2.5 | 3 txt | 4
0 ENDTAB
0 TABLE | 2 VIEW | 5 6 | 330 0 | 100 AcDbSymbolTable | 70 0
0 ENDTAB
0 TABLE | 2 UCS | 5 7 | 330 0 | 100 AcDbSymbolTable | 70 0
0 ENDTAB
0 TABLE | 2 APPID | 5 9 | 330 0 | 100 AcDbSymbolTable | 70 1
0 APPID | 5 12 | 330 9 | 100 AcDbSymbolTableRecord | 100 AcDbRegAppTableRecord | 2 ACAD | 70 0
0 ENDTAB
0 TABLE | 2 DIMSTYLE | 5 A | 330 0 | 100 AcDbSymbolTable | 70 1 | 100 AcDbDimStyleTable | 71 1
0 DIMSTYLE | 105 27 | 330 A | 100 AcDbSymbolTableRecord | 100 AcDbDimStyleTableRecord | 2 Standard
70 0 | 41 2.5 | 42 0.625 | 43 3.75 | 44 1.25 | 73 0 | 74 0 | 77 1 | 78 8 | 140 2.5 | 141 2.5
143 0.03937007874015748 | 147 0.625 | 171 3 | 172 1 | 271 2 | 272 2 | 274 3 | 278 44 | 283 0 | 284 8
340 11
0 ENDTAB
0 TABLE | 2 BLOCK_RECORD | 5 1 | 330 0 | 100 AcDbSymbolTable | 70 2
0 BLOCK_RECORD | 5 1F | 330 1 | 100 AcDbSymbolTableRecord | 100 AcDbBlockTableRecord | 2 *Model_Space
340 22 | 70 0 | 280 1 | 281 0
0 BLOCK_RECORD | 5 1B | 330 1 | 100 AcDbSymbolTableRecord | 100 AcDbBlockTableRecord | 2 *Paper_Space
340 1E | 70 0 | 280 1 | 281 0
0 ENDTAB
0 ENDSEC
0 SECTION | 2 BLOCKS
0 BLOCK | 5 20 | 330 1F | 100 AcDbEntity | 8 0 | 100 AcDbBlockBegin | 2 *Model_Space | 70 0 | 10 0.0
20 0.0 | 30 0.0 | 3 *Model_Space | 1
0 ENDBLK | 5 21 | 330 1F | 100 AcDbEntity | 8 0 | 100 AcDbBlockEnd
0 BLOCK | 5 1C | 330 1B | 100 AcDbEntity | 67 1 | 8 0 | 100 AcDbBlockBegin | 2 *Paper_Space | 70 0
10 0.0 | 20 0.0 | 30 0.0 | 3 *Paper_Space | 1
0 ENDBLK | 5 1D | 330 1B | 100 AcDbEntity | 67 1 | 8 0 | 100 AcDbBlockEnd
0 ENDSEC
0 SECTION | 2 ENTITIES
0 ENDSEC
0 SECTION | 2 OBJECTS
0 DICTIONARY | 5 C | 330 0 | 100 AcDbDictionary | 281 1 | 3 ACAD_GROUP | 350 D | 3 ACAD_LAYOUT | 350 1A
3 ACAD_MLINESTYLE | 350 17 | 3 ACAD_PLOTSETTINGS | 350 19 | 3 ACAD_PLOTSTYLENAME | 350 E
0 DICTIONARY | 5 D | 102 {ACAD_REACTORS | 330 C | 102 } | 330 C | 100 AcDbDictionary | 281 1
0 DICTIONARY | 5 1A | 102 {ACAD_REACTORS | 330 C | 102 } | 330 C | 100 AcDbDictionary | 281 1
3 Layout1 | 350 1E | 3 Model | 350 22
0 DICTIONARY | 5 17 | 102 {ACAD_REACTORS | 330 C | 102 } | 330 C | 100 AcDbDictionary | 281 1
3 Standard | 350 18
0 DICTIONARY | 5 19 | 102 {ACAD_REACTORS | 330 C | 102 } | 330 C | 100 AcDbDictionary | 281 1
0 ACDBDICTIONARYWDFLT | 5 E | 102 {ACAD_REACTORS | 330 C | 102 } | 330 C | 100 AcDbDictionary | 281 1
3 Normal | 350 F | 100 AcDbDictionaryWithDefault | 340 F
0 ACDBPLACEHOLDER | 5 F | 102 {ACAD_REACTORS | 330 E | 102 } | 330 E
0 MLINESTYLE | 5 18 | 102 {ACAD_REACTORS | 330 17 | 102 } | 330 17 | 100 AcDbMlineStyle | 2 Standard
70 0 | 3 | 62 256 | 51 90.0 | 52 90.0 | 71 2 | 49 0.5 | 62 256 | 6 ByLayer | 49 -0.5 | 62 256
6 ByLayer
0 LAYOUT | 5 22 | 102 {ACAD_REACTORS | 330 1A | 102 } | 330 1A | 100 AcDbPlotSettings | 1
2 none_device | 4 | 6 | 40 0.0 | 41 0.0 | 42 0.0 | 43 0.0 | 44 0.0 | 45 0.0 | 46 0.0 | 47 0.0 | 48 0.0
49 0.0 | 140 0.0 | 141 0.0 | 142 1.0 | 143 1.0 | 70 1712 | 72 0 | 73 0 | 74 0 | 7 | 75 0 | 147 1.0
76 0 | 77 2 | 78 300 | 148 0.0 | 149 0.0 | 100 AcDbLayout | 1 Model | 70 1 | 71 0 | 10 0.0 | 20 0.0
11 420.0 | 21 297.0 | 12 0.0 | 22 0.0 | 32 0.0 | 14 1e+20 | 24 1e+20 | 34 1e+20 | 15 -1e+20 | 25 -1e+20
35 -1e+20 | 146 0.0 | 13 0.0 | 23 0.0 | 33 0.0 | 16 1.0 | 26 0.0 | 36 0.0 | 17 0.0 | 27 1.0 | 37 0.0
76 0 | 330 1F
0 LAYOUT | 5 1E | 102 {ACAD_REACTORS | 330 1A | 102 } | 330 1A | 100 AcDbPlotSettings | 1
2 none_device | 4 | 6 | 40 0.0 | 41 0.0 | 42 0.0 | 43 0.0 | 44 0.0 | 45 0.0 | 46 0.0 | 47 0.0 | 48 0.0
49 0.0 | 140 0.0 | 141 0.0 | 142 1.0 | 143 1.0 | 70 688 | 72 0 | 73 0 | 74 5 | 7 | 75 16 | 147 1.0
76 0 | 77 2 | 78 300 | 148 0.0 | 149 0.0 | 100 AcDbLayout | 1 Layout1 | 70 1 | 71 1 | 10 0.0 | 20 0.0
11 420.0 | 21 297.0 | 12 0.0 | 22 0.0 | 32 0.0 | 14 1e+20 | 24 1e+20 | 34 1e+20 | 15 -1e+20 | 25 -1e+20
35 -1e+20 | 146 0.0 | 13 0.0 | 23 0.0 | 33 0.0 | 16 1.0 | 26 0.0 | 36 0.0 | 17 0.0 | 27 1.0 | 37 0.0
76 0 | 330 1B
0 ENDSEC
0 EOF
)";

constexpr std::string_view kSeparator = " | ";

void appendRecord(std::string& drawing, std::string_view record) {
    const std::size_t blank = record.find(' ');
    const std::string_view code = record.substr(0, blank);
    drawing.append(code.size() < 3 ? 3 - code.size() : 0, ' ').append(code).append("\r\n");
    if (blank != std::string_view::npos)
        drawing += record.substr(blank + 1);
    drawing += "\r\n";
}

void appendLine(std::string& drawing, std::string_view line) {
    while (!line.empty()) {
        const std::size_t end = line.find(kSeparator);
        appendRecord(drawing, line.substr(0, end));
        line.remove_prefix(end == std::string_view::npos ? line.size() : end + kSeparator.size());
    }
}

} // namespace

std::string emptyDrawing() {
    std::string drawing;
    for (std::string_view rest = kTemplateText; !rest.empty();) {
        const std::size_t end = rest.find('\n');
        appendLine(drawing, rest.substr(0, end));
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    }
    return drawing;
}

} // namespace zuhost
