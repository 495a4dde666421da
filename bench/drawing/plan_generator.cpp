#include "plan_generator.h"

#include "drawing/document.h"
#include "dxf_records/number_text.h"

#include <fstream>
#include <map>
#include <random>
#include <stdexcept>
#include <utility>
#include <vector>

using namespace zuhost;

namespace {

constexpr const char* kSymbolName = "ZU-VAV";
constexpr const char* kApplicationName = "ZU_ATTRIBUTES";
constexpr int kGroupSize = 20;

/// Formats records as in ASCII drawings.
class RecordWriter {
public:
    RecordWriter& add(int code, std::string_view value) {
        const std::string digits = std::to_string(code);
        text_.append(digits.size() < 3 ? 3 - digits.size() : 0, ' ').append(digits).append("\r\n");
        text_.append(value).append("\r\n");
        return *this;
    }
    RecordWriter& add(int code, double value) { return add(code, formatReal(value)); }
    RecordWriter& handle(int code, std::uint64_t value) { return add(code, formatHandle(value)); }
    std::string take() { return std::exchange(text_, {}); }

private:
    std::string text_;
};

class Plan {
public:
    Plan(std::ofstream& out, std::uint64_t modelSpace, std::uint64_t groupDictionary)
        : out_(out), modelSpace_(modelSpace), groupDictionary_(groupDictionary) {}

    /// Writes a group of block references with the lines, texts and the polyline around them.
    void room() {
        const std::uint64_t group = next_++;
        std::vector<std::uint64_t> members;
        for (int i = 0; i < kGroupSize; ++i) {
            members.push_back(reference(group));
            for (int k = 0; k < 4; ++k)
                line();
            text();
        }
        polyline();
        out_ << records_.take();
        groups_ += groupRecords(group, members);
        RecordWriter entry;
        entry.add(3, "*A" + std::to_string(++groupCount_)).handle(350, group);
        dictionaryEntries_ += entry.take();
    }

    [[nodiscard]] const std::string& groups() const { return groups_; }
    [[nodiscard]] const std::string& dictionaryEntries() const { return dictionaryEntries_; }
    [[nodiscard]] std::uint64_t written() {
        return static_cast<std::uint64_t>(out_.tellp()) + groups_.size();
    }

private:
    double coordinate() { return position_(random_); }

    std::uint64_t begin(const char* type, const char* layer, std::uint64_t reactor = 0) {
        records_.add(0, type).handle(5, next_);
        if (reactor != 0)
            records_.add(102, "{ACAD_REACTORS").handle(330, reactor).add(102, "}");
        records_.handle(330, modelSpace_).add(100, "AcDbEntity").add(8, layer);
        return next_++;
    }

    void point(int code) {
        records_.add(code, coordinate()).add(code + 10, coordinate()).add(code + 20, 0.0);
    }

    std::uint64_t reference(std::uint64_t group) {
        const std::uint64_t handle = begin("INSERT", "0", group);
        records_.add(100, "AcDbBlockReference").add(2, kSymbolName);
        point(10);
        records_.add(41, 1.5).add(50, coordinate() / 1000).add(1001, kApplicationName);
        for (const char* value : {"機器記号|VAV-2F-01|1", "風量|850|2", "静圧|120.5|3", "系統|AC-201|4"})
            records_.add(1000, value);
        records_.add(1070, "2").add(1040, coordinate());
        return handle;
    }

    void line() {
        begin("LINE", "0");
        records_.add(62, "     3").add(100, "AcDbLine");
        point(10);
        point(11);
    }

    void text() {
        begin("TEXT", "0");
        records_.add(100, "AcDbText");
        point(10);
        records_.add(40, 2.5).add(1, "空調機械室 系統図 AC-201").add(7, "Standard").add(100, "AcDbText");
    }

    void polyline() {
        begin("LWPOLYLINE", "0");
        records_.add(100, "AcDbPolyline").add(90, "       40").add(70, "     1").add(43, 0.0);
        for (int i = 0; i < 40; ++i)
            records_.add(10, coordinate()).add(20, coordinate());
    }

    std::string groupRecords(std::uint64_t group, const std::vector<std::uint64_t>& members) const {
        RecordWriter records;
        records.add(0, "GROUP").handle(5, group).add(102, "{ACAD_REACTORS").handle(330, groupDictionary_);
        records.add(102, "}").handle(330, groupDictionary_).add(100, "AcDbGroup").add(300, "");
        records.add(70, "1").add(71, "1");
        for (const std::uint64_t member : members)
            records.handle(340, member);
        return records.take();
    }

    std::ofstream& out_;
    std::uint64_t modelSpace_;
    std::uint64_t groupDictionary_;
    std::uint64_t next_ = kFirstPlanHandle;
    RecordWriter records_;
    std::string groups_;
    std::string dictionaryEntries_;
    int groupCount_ = 0;
    std::mt19937_64 random_{20240229};
    std::uniform_real_distribution<double> position_{0, 90000};
};

/// Returns an empty drawing with the application, the symbol's block and a handle seed above all handles.
std::string emptyDrawing() {
    const auto document = Document::createEmpty(nullptr);
    std::map<const AcDbStub*, TagList> tags;
    const auto entry = [&](const char* table, const char* type, const char* name) {
        Container& container = document->container(Container::Kind::table, table);
        AcDbStub* stub = document->append(container, type, container.head);
        TagList& records = tags[stub] = document->tags(*stub);
        records.add(100, "AcDbSymbolTableRecord");
        records.add(100,
                    std::string_view(type) == "APPID" ? "AcDbRegAppTableRecord" : "AcDbBlockTableRecord");
        records.add(2, name);
        records.add(70, "0");
        return stub;
    };
    entry("APPID", "APPID", kApplicationName);
    document->appendBlock(kSymbolName, entry("BLOCK_RECORD", "BLOCK_RECORD", kSymbolName));
    TagList header = document->header();
    const std::size_t seed = header.find(5, header.all());
    header[seed].value = "FFFFFFF";
    document->setHeader(header);
    return document->bytes(DrawingForm::ascii, [&](const AcDbStub& stub) {
        const auto found = tags.find(&stub);
        return found == tags.end() ? nullptr : &found->second;
    });
}

} // namespace

void writePlan(const std::string& path, std::uint64_t bytes) {
    const std::string text = emptyDrawing();
    const std::size_t entities = text.find("ENTITIES\r\n") + 10;
    const std::size_t dictionary = text.find("  0\r\n", text.find("DICTIONARY\r\n  5\r\nD\r\n"));
    const std::size_t objectsEnd = text.rfind("  0\r\nENDSEC");
    std::ofstream out(path, std::ios::binary);
    out << text.substr(0, entities);
    Plan plan(out, 0x1F, 0xD);
    while (plan.written() + text.size() < bytes)
        plan.room();
    out << text.substr(entities, dictionary - entities) << plan.dictionaryEntries()
        << text.substr(dictionary, objectsEnd - dictionary) << plan.groups() << text.substr(objectsEnd);
    if (!out.flush())
        throw std::runtime_error("cannot write " + path);
}
