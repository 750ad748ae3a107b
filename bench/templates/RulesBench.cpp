// What the manager does with listed templates: filter, format a screenful, sort, find.

#include "bench/templates/SampleTemplates.h"
#include "engine/TemplateStore.h"
#include "templates/TemplateDefinitions.h"
#include "templates/TemplateFind.h"
#include "templates/TemplateMatch.h"
#include "templates/TemplateRows.h"
#include "templates/TemplateSort.h"

#include <benchmark/benchmark.h>

#include <map>

namespace
{

using namespace TessaronResources;

/// Rows and columns of so many templates, made once in the run.
struct Grid
{
    explicit Grid(int count)
    {
        util::TechnologyExpertData expertData;
        util::getTechnologyExpertData(&expertData);
        definitions = defaultTemplateColumns(operationKind::milling, true, expertData);
        columns = makeGridColumns(definitions, true);
        rows.fill(sampleTemplates(count), matchFilter::all, {});
    }
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
    for (auto _ : state)
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
    for (auto _ : state)
        for (std::size_t row = 0; row < 40; ++row)
            for (const GridColumnPtr& column : grid.columns)
                benchmark::DoNotOptimize(column->format(grid.rows.at(grid.rows.size() / 2 + row)));
}

void sortByThreeLevels(benchmark::State& state)
{
    const Grid& grid = gridOf(state);
    const std::vector<util::TemplateSortLevel> levels = {
        {util::keys::machineTool, false}, {util::keys::toolDiameter, true}, {util::keys::templateName, false}};
    for (auto _ : state)
        benchmark::DoNotOptimize(sortedOrder(grid.rows, levels, grid.definitions).data());
}

void findWhatIsNotThere(benchmark::State& state, const char* text)
{
    const Grid& grid = gridOf(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(findCell(grid.rows, grid.columns, text, {}));
}

#define SIZES Arg(100)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)
BENCHMARK(match)->SIZES;
BENCHMARK(formatScreenful)->SIZES;
BENCHMARK(sortByThreeLevels)->SIZES;
BENCHMARK_CAPTURE(findWhatIsNotThere, text, "no such words")->SIZES;
BENCHMARK_CAPTURE(findWhatIsNotThere, number, "123456789")->SIZES;

} // namespace

BENCHMARK_MAIN();
