// What the manager does with listed templates: filter, format a screenful, sort, find.

#include "bench/templates/SampleTemplates.h"
#include "templates/TemplateDefinitions.h"
#include "templates/TemplateFind.h"
#include "templates/TemplateMatch.h"
#include "templates/TemplateRows.h"
#include "templates/TemplateSort.h"
#include "templates/columns/ColumnKinds.h"
#include <tessaron/engine/TemplateStore.h>

#include <benchmark/benchmark.h>

#include <map>
#include <memory>

namespace
{

using namespace TessaronResources;

/// Templates as a listing leaves them in memory: read from files, entry by entry in key order.
std::vector<util::Parameterized> listedTemplates(int count)
{
    std::vector<util::Parameterized> listed;
    for (const util::Parameterized& sample : sampleTemplates(count))
    {
        util::Parameterized& set = listed.emplace_back();
        for (const auto& [key, value] : sample.params())
            set.set(key, value);
    }
    return listed;
}

/// Rows and columns of so many templates, made once in the run.
struct Grid
{
    explicit Grid(int count)
    {
        util::TechnologyExpertData expertData;
        util::getTechnologyExpertData(&expertData);
        definitions = defaultTemplateColumns(operationKind::milling, true, expertData);
        columns = makeGridColumns(definitions, true);
        listed = listedTemplates(count);
        rows.fill(listed, matchFilter::all, {});
    }
    std::vector<util::Parameterized> listed;
    std::vector<util::TemplateColumn> definitions;
    std::vector<GridColumnPtr> columns;
    TemplateRows rows;
};

const Grid& gridOf(benchmark::State& state)
{
    static std::map<std::int64_t, Grid> grids;
    return grids.try_emplace(state.range(0), static_cast<int>(state.range(0))).first->second;
}

void match(benchmark::State& state)
{
    const Grid& grid = gridOf(state);
    for ([[maybe_unused]] auto turn : state)
    {
        int kept = 0;
        for (std::size_t row = 0; row < grid.rows.size(); ++row)
            kept += matchesFilter(matchFilter::sameTool, grid.rows.at(row), grid.rows.at(0)) ? 1 : 0;
        benchmark::DoNotOptimize(kept);
    }
}

void formatScreenful(benchmark::State& state)
{
    const Grid& grid = gridOf(state);
    for ([[maybe_unused]] auto turn : state)
        for (std::size_t row = 0; row < 40; ++row)
            for (const GridColumnPtr& column : grid.columns)
                benchmark::DoNotOptimize(column->format(grid.rows.at(grid.rows.size() / 2 + row)));
}

/// Calls `work` with rows: the same every time, or rows that have just been filled.
template <class Work>
void onRows(benchmark::State& state, const Grid& grid, bool justFilled, Work work)
{
    for ([[maybe_unused]] auto turn : state)
    {
        if (!justFilled)
        {
            work(grid.rows);
            continue;
        }
        state.PauseTiming();
        auto rows = std::make_unique<TemplateRows>();
        rows->fill(grid.listed, matchFilter::all, {});
        state.ResumeTiming();
        work(*rows);
        state.PauseTiming();
        rows.reset();
        state.ResumeTiming();
    }
}

void sortByThreeLevels(benchmark::State& state, bool justFilled)
{
    const Grid& grid = gridOf(state);
    const std::vector<util::TemplateSortLevel> levels = {
        {util::keys::machineTool, false}, {util::keys::toolDiameter, true}, {util::keys::templateName, false}};
    onRows(state, grid, justFilled,
           [&](const TemplateRows& rows)
           { benchmark::DoNotOptimize(sortedOrder(rows, levels, grid.definitions).data()); });
}

void findWhatIsNotThere(benchmark::State& state, const char* text, bool justFilled)
{
    const Grid& grid = gridOf(state);
    onRows(state, grid, justFilled,
           [&](const TemplateRows& rows) { benchmark::DoNotOptimize(findCell(rows, grid.columns, text, {})); });
}

#define SIZES Arg(100)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)
BENCHMARK(match)->SIZES;
BENCHMARK(formatScreenful)->SIZES;
BENCHMARK_CAPTURE(sortByThreeLevels, first, true)->SIZES;
BENCHMARK_CAPTURE(sortByThreeLevels, again, false)->SIZES;
BENCHMARK_CAPTURE(findWhatIsNotThere, text_first, "no such words", true)->SIZES;
BENCHMARK_CAPTURE(findWhatIsNotThere, text_again, "no such words", false)->SIZES;
BENCHMARK_CAPTURE(findWhatIsNotThere, number_first, "123456789", true)->SIZES;
BENCHMARK_CAPTURE(findWhatIsNotThere, number_again, "123456789", false)->SIZES;

} // namespace

BENCHMARK_MAIN();
