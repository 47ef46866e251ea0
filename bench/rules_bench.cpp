// Where the time of reading a menu goes. Figures to compare before and after a change; no aims.
#include "docs/line_reader.h"
#include "docs/menu_line.h"
#include "posix_file.h"
#include "sample_menu.h"

#include <benchmark/benchmark.h>

namespace
{

using namespace nv;

constexpr std::size_t kEntries = 100000;

class NoEvents final : public EventPump
{
public:
    bool LetEventsThrough() override { return true; }
};

// Lines with the entries of a typical menu of 100,000, from the disk.
const char* MenuOnDisk()
{
    static const std::string path = [] {
        std::string made = "rules_bench.nvm";
        bench::WriteMenu(made, kEntries);
        return made;
    }();
    return path.c_str();
}

void ReadLines(benchmark::State& state)
{
    const char* path = MenuOnDisk();
    NoEvents pump;
    for ([[maybe_unused]] auto round : state) {
        bench::PosixFile file(path);
        MenuLines lines;
        SystemError error = 0;
        benchmark::DoNotOptimize(ReadMenuLines(file, lines, pump, error));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kEntries));
}
BENCHMARK(ReadLines)->Unit(benchmark::kMillisecond);

void DecodeLines(benchmark::State& state)
{
    bench::PosixFile file(MenuOnDisk());
    NoEvents pump;
    MenuLines lines;
    SystemError error = 0;
    ReadMenuLines(file, lines, pump, error);
    const Font defaultFont;
    for ([[maybe_unused]] auto round : state) {
        for (std::size_t index = 0; index < lines.size(); ++index) {
            benchmark::DoNotOptimize(DecodeLine(lines[index], defaultFont));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kEntries));
}
BENCHMARK(DecodeLines)->Unit(benchmark::kMillisecond);

void EncodeLines(benchmark::State& state)
{
    const MenuItem item = bench::TypicalEntry(12345);
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(EncodeLine(item));
    }
}
BENCHMARK(EncodeLines);

} // namespace
