// Sections so long that threads read pieces of them give what reading from front to back gives.
#include "part_files.h"

#include <gtest/gtest.h>
#include <zuhost/text_codec.h>

#include <bit>
#include <functional>
#include <sstream>

namespace zu::test {
namespace {

constexpr int kEntities = 40000; ///< Some megabytes.
const std::string kStart = "0\nSECTION\n2\nENTITIES\n";
const std::string kEnd = "0\nENDSEC\n0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n2\nB\n0\nLINE\n0\nENDBLK\n0\nENDSEC\n";

std::string repeated(const std::function<std::string(int)>& entity) {
    std::string text;
    for (int i = 0; i < kEntities; ++i)
        text += entity(i);
    return text;
}

std::string lineAt(int x) {
    std::ostringstream text;
    text << "0\nLINE\n5\n" << 100000 + x << "\n8\nLAYER " << x % 7 << "\n10\n" << x << "\n20\n1.5\n";
    return text.str();
}

std::string findingsOf(const CAcadDxf& part) {
    std::ostringstream text;
    text << part.GetFindings().count;
    for (const dxf::Finding& finding : part.GetFindings().kept)
        text << ' ' << finding.line << ':' << finding.offset;
    return text.str();
}

/// Reads each section by itself, which one thread does.
class FrontToBack : public CAcadDxf {
public:
    explicit FrontToBack(const CString& path) {
        Open(path);
        while (Skip(2) != 0) {
            if (GetText() == L"ENTITIES")
                LoadEnt(entities);
            else if (GetText() == L"BLOCKS")
                LoadBlocks();
        }
    }
    CEntList entities;
};

void summarize(const CObList& entities, std::ostream& text) {
    for (POSITION at = entities.GetHeadPosition(); at != nullptr;) {
        const auto* const entity = static_cast<const CEnt*>(entities.GetNext(at));
        text << zuhost::toUtf8(entity->GetHandle().GetString())
             << zuhost::toUtf8(entity->GetLayer().GetString());
        if (entity->m_type == EntType::line)
            text << ' ' << static_cast<const CLine*>(entity)->m_x1;
        if (entity->m_type == EntType::polyline)
            summarize(static_cast<const CPline*>(entity)->m_vertices, text << '(');
        text << '\n';
    }
}

std::string summaryOf(const CObList& entities) {
    std::ostringstream text;
    summarize(entities, text);
    return text.str();
}

/// The same records in binary form.
std::string toBinary(const std::string& ascii) {
    std::string bytes("AutoCAD Binary DXF\r\n\x1a\0", 22);
    std::istringstream lines(ascii);
    std::string value;
    for (int code = 0; lines >> code && std::getline(lines >> std::ws, value);) {
        if (code < 10) {
            bytes += binaryText(code, value);
            continue;
        }
        append(bytes, static_cast<std::uint64_t>(code), 2);
        if (code < 60)
            append(bytes, std::bit_cast<std::uint64_t>(std::stod(value)), 8);
        else
            append(bytes, static_cast<std::uint64_t>(std::stoi(value)), 2);
    }
    return bytes;
}

void expectAsFrontToBack(const std::string& bytes) {
    const PartFile file(bytes);
    const CAcadDxf part(file.path());
    const FrontToBack expected(file.path());
    EXPECT_GT(expected.entities.GetCount(), 0);
    EXPECT_TRUE(summaryOf(part.GetEntities()) == summaryOf(expected.entities));
    EXPECT_EQ(part.GetBlocks().GetCount(), expected.GetBlocks().GetCount());
    EXPECT_EQ(findingsOf(part), findingsOf(expected));
}

TEST(Pieces, AsFrontToBack) {
    const std::string lines = repeated(lineAt);
    const std::string vertex = "0\nVERTEX\n10\n1\n";
    const std::string broken = lineAt(1) + "no code\n";
    const std::pair<const char*, std::string> drawings[] = {
        {"lines", lines},
        {"vertices of one polyline", "0\nPOLYLINE\n" + repeated([&](int i) { return vertex + lineAt(i); })},
        {"a polyline in each piece",
         repeated([&](int i) { return (i % 1000 == 0 ? "0\nPOLYLINE\n" : lineAt(i)) + vertex; })},
        {"vertices without a polyline", repeated([&](int i) { return vertex + lineAt(i); })},
        {"faults everywhere", repeated([](int i) { return lineAt(i) + "62\n999\n"; })},
        {"a fault in the last piece", lines + "0\nTEXT\n62\n-1\n"},
        {"the section ends in the first piece", lineAt(1) + kEnd + kStart + lines},
    };
    for (const auto& [what, entities] : drawings) {
        SCOPED_TRACE(what);
        const std::string bytes = std::string(kStart).append(entities).append(kEnd);
        expectAsFrontToBack(bytes);
        expectAsFrontToBack(toBinary(bytes));
    }
    for (const std::string& entities :
         {broken + lines, lineAt(1) + "\nTEXT\n" + lines, lines + "0\nLINE\n10", lines + broken}) {
        SCOPED_TRACE(entities.size());
        expectAsFrontToBack(kStart + entities);
    }
}

} // namespace
} // namespace zu::test
