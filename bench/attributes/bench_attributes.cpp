#include "elements.h"

#include "attributes/model/write_back.h"

#include <arxutil.h>
#include <zucomn/frame.h>
#include <zuhost/command_line.h>

#include <acdocman.h>

#include <benchmark/benchmark.h>

#include <deque>
#include <map>

namespace {

Elements& elements(const benchmark::State& state) {
    static std::map<int, Elements> drawings;
    const int count = static_cast<int>(state.range(0));
    return drawings.try_emplace(count, count).first->second;
}

void report(benchmark::State& state) {
    state.SetComplexityN(state.range(0));
    state.counters["each"] =
        benchmark::Counter(static_cast<double>(state.range(0)),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

/// The parameter table lets every attribute be edited.
const zu::ParameterIndex& parameters() {
    static const zu::ParameterIndex index = [] {
        CPtrArray table;
        std::deque<CStringArray> records(Elements::kAttributes);
        for (int i = 1; i <= Elements::kAttributes; ++i) {
            CString id;
            id.Format(L"S%d", i);
            CStringArray& record = records[static_cast<std::size_t>(i) - 1];
            for (const wchar_t* const field : {id.GetString(), L"", L"値", L"1"})
                record.Add(field);
            table.Add(&record);
        }
        return zu::ParameterIndex(table);
    }();
    return index;
}

std::vector<zu::ShownItem> edit(const wchar_t* value) {
    std::vector<zu::ShownItem> items;
    for (int i = 1; i <= Elements::kAttributes; ++i) {
        zu::ShownItem& item = items.emplace_back();
        item.key.Format(L"S%d|", i);
        item.value = i == 3 ? value : L"*各種*";
    }
    return items;
}

/// One attribute of twenty is edited on all elements; `isNew` means that nobody opened them before.
void writeBack(benchmark::State& state, bool isNew) {
    Elements& drawn = elements(state);
    const std::vector<zu::ShownItem> items = edit(L"新しい値");
    const std::size_t count = drawn.ids().size();
    for (auto _ : state) {
        state.PauseTiming();
        if (isNew)
            drawn.reopen();
        state.ResumeTiming();
        if (zu::writeBack(drawn.ids(), items, parameters()) != static_cast<int>(count))
            state.SkipWithError("not all were written");
        state.PauseTiming();
        drawn.database().undo();
        zuhost::clearPendingInput();
        state.ResumeTiming();
    }
    report(state);
}

void undoAndRedo(benchmark::State& state) {
    Elements& drawn = elements(state);
    drawn.reopen();
    zu::writeBack(drawn.ids(), edit(L"新しい値"), parameters());
    zuhost::clearPendingInput();
    for (auto _ : state) {
        if (drawn.database().undo() != Acad::eOk || drawn.database().redo() != Acad::eOk)
            state.SkipWithError("nothing to undo");
    }
    report(state);
}

std::vector<CStringArray> readAll(const Elements& drawn) {
    std::vector<CStringArray> lists(drawn.ids().size());
    for (std::size_t i = 0; i < lists.size(); ++i)
        ApiComn_extractAttributesArrayID(drawn.ids()[i], L"ZU_ATTR", lists[i]);
    return lists;
}

void read(benchmark::State& state, bool isNew) {
    Elements& drawn = elements(state);
    for (auto _ : state) {
        state.PauseTiming();
        if (isNew)
            drawn.reopen();
        state.ResumeTiming();
        benchmark::DoNotOptimize(readAll(drawn).data());
    }
    report(state);
}

void show(benchmark::State& state) {
    const std::vector<CStringArray> lists = readAll(elements(state));
    std::vector<const CStringArray*> shown;
    for (const CStringArray& list : lists)
        shown.push_back(&list);
    for (auto _ : state)
        benchmark::DoNotOptimize(zu::shownItems(shown).data());
    report(state);
}

} // namespace

#define ZU_SIZES RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond)->Complexity()
BENCHMARK_CAPTURE(read, of_an_opened_drawing, true)->ZU_SIZES;
BENCHMARK_CAPTURE(read, again, false)->ZU_SIZES;
BENCHMARK(show)->ZU_SIZES;
BENCHMARK_CAPTURE(writeBack, of_an_opened_drawing, true)->ZU_SIZES;
BENCHMARK_CAPTURE(writeBack, again, false)->ZU_SIZES;
BENCHMARK(undoAndRedo)->ZU_SIZES;
BENCHMARK_MAIN();
