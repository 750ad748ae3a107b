// Our archives against the serialization library's own classes, on the same records in one run. Prints a table of
// ratios and of the heap that each call needs beyond the record.

#include "BenchRecords.h"
#include "HeapMeter.h"
#include "StockArchives.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace bench
{
namespace
{

using exchange::ArchiveFormat;

constexpr std::size_t toolpathSize = 1'000'000;
constexpr int meshColumns = 1000;
constexpr int meshRows = 500;
constexpr int inputCount = 10'000;
constexpr int repetitions = 3;

/// A line of the table: one operation, done by the library's classes and by ours.
struct Comparison
{
    std::string name;
    std::size_t items;
    std::function<void()> stock;
    std::function<void()> ours;
    double aim;
};

std::filesystem::path temporaryFolder()
{
    auto folder = std::filesystem::temp_directory_path() / "tessaron-archive-bench";
    std::filesystem::create_directories(folder);
    return folder;
}

template <class Record>
void oursWrite(std::ostream& stream, const Record& record, ArchiveFormat format)
{
    if constexpr (!exchange::archive::hasBinary<Record>)
        exchange::writeArchive(stream, record);
    else
        exchange::writeArchive(stream, record, format);
}

template <class Record>
void stockWrite(std::ostream& stream, const Record& record, ArchiveFormat format)
{
    if constexpr (exchange::archive::hasBinary<Record>)
        if (format == ArchiveFormat::binary)
            return stock::writeBinary(stream, record);
    stock::writeXml(stream, record);
}

template <class Record>
void stockRead(std::istream& stream, Record& record, ArchiveFormat format)
{
    if constexpr (exchange::archive::hasBinary<Record>)
        if (format == ArchiveFormat::binary)
            return stock::readBinary(stream, record);
    stock::readXml(stream, record);
}

/// Writing and reading one large record to and from a file in the page cache.
template <class Record>
void compareFile(std::vector<Comparison>& table, const std::string& name, std::size_t items, const Record& record,
                 ArchiveFormat format, double writeAim, double readAim)
{
    const std::string stockFile = (temporaryFolder() / ("stock " + name)).string();
    const std::string oursFile = (temporaryFolder() / ("ours " + name)).string();
    const auto writeStock = [&record, format, stockFile]
    {
        std::ofstream file(stockFile, std::ios_base::binary);
        stockWrite(file, record, format);
    };
    const auto writeOurs = [&record, format, oursFile]
    {
        std::ofstream file(oursFile, std::ios_base::binary);
        oursWrite(file, record, format);
    };
    // The operations come in any order.
    writeStock();
    writeOurs();
    table.push_back({name + " write", items, writeStock, writeOurs, writeAim});
    table.push_back({name + " read", items,
                     [format, stockFile]
                     {
                         std::ifstream file(stockFile, std::ios_base::binary);
                         Record fresh{};
                         stockRead(file, fresh, format);
                         benchmark::DoNotOptimize(fresh);
                     },
                     [oursFile]
                     {
                         std::ifstream file(oursFile, std::ios_base::binary);
                         Record fresh{};
                         exchange::readArchive(file, fresh);
                         benchmark::DoNotOptimize(fresh);
                     },
                     readAim});
}

/// Writing and reading many small records in memory.
void compareInputs(std::vector<Comparison>& table, const std::vector<exchange::Tessaron2dInput>& inputs,
                   ArchiveFormat format, double aim)
{
    using Input = exchange::Tessaron2dInput;
    const auto written = [&inputs](auto write)
    {
        std::vector<std::string> texts;
        for (const Input& input : inputs)
        {
            std::ostringstream stream;
            write(stream, input);
            texts.push_back(stream.str());
        }
        return texts;
    };
    const auto stockTexts =
        written([format](std::ostream& stream, const Input& input) { stockWrite(stream, input, format); });
    const auto oursTexts =
        written([format](std::ostream& stream, const Input& input) { oursWrite(stream, input, format); });
    const std::string name = format == ArchiveFormat::xml ? "2-D inputs XML" : "2-D inputs binary";
    table.push_back({name + " write", inputs.size(),
                     [&inputs, format]
                     {
                         for (const Input& input : inputs)
                         {
                             std::ostringstream stream;
                             stockWrite(stream, input, format);
                         }
                     },
                     [&inputs, format]
                     {
                         for (const Input& input : inputs)
                         {
                             std::ostringstream stream;
                             oursWrite(stream, input, format);
                         }
                     },
                     aim});
    table.push_back({name + " read", inputs.size(),
                     [stockTexts, format]
                     {
                         for (const std::string& text : stockTexts)
                         {
                             std::istringstream stream(text);
                             Input fresh;
                             stockRead(stream, fresh, format);
                         }
                     },
                     [oursTexts]
                     {
                         for (const std::string& text : oursTexts)
                         {
                             std::istringstream stream(text);
                             Input fresh;
                             exchange::readArchive(stream, fresh);
                         }
                     },
                     aim});
}

double heapMiB(const std::function<void()>& operation)
{
    const HeapMeter meter;
    operation();
    return static_cast<double>(meter.peak()) / (1024 * 1024);
}

/// Keeps the best processor time of each benchmark, which other programs on the machine disturb least.
class BestTimes : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs)
            if (run.run_type == Run::RT_Iteration)
            {
                double& best = m_seconds.try_emplace(run.run_name.function_name, 1e9).first->second;
                best = std::min(best, run.cpu_accumulated_time / static_cast<double>(run.iterations));
            }
        ConsoleReporter::ReportRuns(runs);
    }
    double seconds(const std::string& name) const
    {
        const auto it = m_seconds.find(name);
        return it == m_seconds.end() ? 0 : it->second;
    }

private:
    std::map<std::string, double> m_seconds;
};

void registerOperation(const std::string& name, const std::function<void()>& operation)
{
    benchmark::RegisterBenchmark(name.c_str(),
                                 [operation](benchmark::State& state)
                                 {
                                     for (auto _ : state)
                                         operation();
                                 })
        ->Iterations(1)
        ->Repetitions(repetitions)
        ->ReportAggregatesOnly(false)
        ->Unit(benchmark::kMillisecond);
}

void printTable(const std::vector<Comparison>& table, const BestTimes& times)
{
    std::printf("\n%-26s %12s %12s %8s %6s %14s %14s\n", "operation", "stock ns", "ours ns", "ratio", "aim",
                "stock heap MiB", "ours heap MiB");
    for (const Comparison& line : table)
    {
        const double stockTime = times.seconds("stock/" + line.name);
        const double oursTime = times.seconds("ours/" + line.name);
        if (stockTime == 0 || oursTime == 0)
            continue;
        const double perItem = 1e9 / static_cast<double>(line.items);
        std::printf("%-26s %12.1f %12.1f %8.2f %6.1f %14.1f %14.1f\n", line.name.c_str(), stockTime * perItem,
                    oursTime * perItem, stockTime / oursTime, line.aim, heapMiB(line.stock), heapMiB(line.ours));
    }
    std::printf("Processor time per toolpath record, vertex or facet, or input; best of 3. The heap of a read includes "
                "the record itself.\n");
}

} // namespace
} // namespace bench

int main(int argc, char** argv)
{
    using namespace bench;
    // The two sides take turns, so that what else the machine does falls on both.
    std::string interleaved = "--benchmark_enable_random_interleaving=true";
    std::vector<char*> arguments = {argv[0], interleaved.data()};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    int argumentCount = static_cast<int>(arguments.size());
    benchmark::Initialize(&argumentCount, arguments.data());
    const exchange::ToolpathRecords toolpath = makeToolpath(toolpathSize);
    const topo::mesh::TriMeshPtr mesh = makeMesh(meshColumns, meshRows);
    const std::size_t meshItems = mesh->vertices.size() + mesh->faces.size();
    std::vector<exchange::Tessaron2dInput> inputs;
    inputs.reserve(inputCount);
    for (int i = 0; i < inputCount; ++i)
        inputs.push_back(makeInput(i));

    std::vector<Comparison> table;
    compareFile(table, "toolpath XML", toolpathSize, toolpath, ArchiveFormat::xml, 8, 8);
    compareFile(table, "mesh XML", meshItems, mesh, ArchiveFormat::xml, 8, 8);
    compareFile(table, "mesh binary", meshItems, mesh, ArchiveFormat::binary, 5, 5);
    compareInputs(table, inputs, ArchiveFormat::xml, 8);
    compareInputs(table, inputs, ArchiveFormat::binary, 1);

    for (const Comparison& line : table)
    {
        registerOperation("stock/" + line.name, line.stock);
        registerOperation("ours/" + line.name, line.ours);
    }
    BestTimes times;
    benchmark::RunSpecifiedBenchmarks(&times);
    printTable(table, times);
    std::filesystem::remove_all(temporaryFolder());
    return 0;
}
