// Reads, shows and writes back the attributes of 1,000, 10,000 and 100,000 elements. Each task runs in its
// own process on a drawing that was just opened.
#include "elements.h"

#include "attributes/views/apply.h"
#include "own_process.h"

#include <arxutil.h>
#include <zuhost/text_codec.h>

#include <algorithm>
#include <cstdio>
#include <deque>
#include <filesystem>
#include <stdexcept>

namespace fs = std::filesystem;

namespace {

/// Returns a parameter table in which every attribute is editable.
zu::ParameterIndex parameters() {
    std::deque<CStringArray> records;
    CPtrArray table;
    for (int i = 1; i <= kAttributes; ++i) {
        CString id;
        id.Format(L"S%d", i);
        CStringArray& record = records.emplace_back();
        for (const wchar_t* const field : {id.GetString(), L"", L"値", L"1"})
            record.Add(field);
        table.Add(&record);
    }
    return zu::ParameterIndex(table);
}

/// Returns the items of the property list after the user has edited one attribute of twenty.
std::vector<zu::ShownItem> edit() {
    std::vector<zu::ShownItem> items;
    for (int i = 1; i <= kAttributes; ++i) {
        zu::ShownItem& item = items.emplace_back();
        item.key.Format(L"S%d|", i);
        item.value = i == 3 ? L"新しい値" : L"*各種*";
    }
    return items;
}

std::vector<CStringArray> readAll(const Elements& drawn) {
    std::vector<CStringArray> lists(drawn.ids.size());
    for (std::size_t i = 0; i < lists.size(); ++i)
        if (ApiComn_extractAttributesArrayID(drawn.ids[i], L"ZU_ATTR", lists[i]) != 0)
            throw std::runtime_error("an element without attributes");
    return lists;
}

void writeAll(const Elements& drawn) {
    if (zu::writeBack(drawn.ids, edit(), parameters()).changed != static_cast<int>(drawn.ids.size()))
        throw std::runtime_error("not all elements were written");
}

double readTask(Elements& drawn) {
    std::vector<CStringArray> lists;
    return timed([&] { lists = readAll(drawn); });
}

double showTask(Elements& drawn) {
    const std::vector<CStringArray> lists = readAll(drawn);
    std::vector<const CStringArray*> shown;
    shown.reserve(lists.size());
    for (const CStringArray& list : lists)
        shown.push_back(&list);
    std::size_t count = 0;
    const double seconds = timed([&] { count = zu::shownItems(shown).size(); });
    if (count != kAttributes)
        throw std::runtime_error("not all attributes are shown");
    return seconds;
}

double writeTask(Elements& drawn) {
    readAll(drawn);
    return timed([&] { writeAll(drawn); });
}

double undoTask(Elements& drawn) {
    writeAll(drawn);
    return timed([&] {
        if (drawn.database.undo() != Acad::eOk)
            throw std::runtime_error("nothing to undo");
    });
}

struct Task {
    const char* name;
    double (*run)(Elements& drawn);
};

constexpr Task kTasks[] = {
    {"read", readTask}, {"show", showTask}, {"write one back", writeTask}, {"undo", undoTask}};

void benchmark(const std::wstring& path, int count) {
    constexpr int kRuns = 5;
    inOwnProcess([&] { return timed([&] { writeElements(path, count); }); });
    std::printf("%d elements of %d attributes\n", count, kAttributes);
    for (const Task& task : kTasks) {
        double best = 1e9;
        for (int run = 0; run < kRuns; ++run)
            best = std::min(best, inOwnProcess([&] {
                                Elements drawn(path);
                                return task.run(drawn);
                            }));
        std::printf("  %-16s %9.1f ms  %6.2f us each\n", task.name, best * 1e3, best * 1e6 / count);
        std::fflush(stdout);
    }
}

} // namespace

int main() {
    const fs::path file = "bench-attributes-" + std::to_string(getpid()) + ".dxf";
    for (const int count : {1'000, 10'000, 100'000})
        benchmark(zuhost::fromUtf8(fs::absolute(file).string()), count);
    fs::remove(file);
    return 0;
}
