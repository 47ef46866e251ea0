// Where the time of reading and of editing a menu goes. Figures to compare before and after a
// change; no aims.
#include "docs/line_reader.h"
#include "docs/menu_line.h"
#include "fakes/fake_files.h"
#include "fakes/fake_surroundings.h"
#include "mainwindow/menu_editor.h"
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

class NoPrompts final : public Prompts
{
public:
    Answer Ask(const std::string&, PromptIcon, PromptButtons) override { return Answer::cancel; }
};

// Asks for nothing but the text of what is new, as a list that draws itself does.
class ListView final : public EditorView
{
public:
    MenuEditor* editor = nullptr;
    void ItemsReplaced() override {}
    void ItemInserted(std::size_t index) override
    {
        benchmark::DoNotOptimize(editor->ItemText(index));
    }
    void ItemRemoved(std::size_t) override {}
    void ItemsChanged(std::size_t first, std::size_t) override
    {
        benchmark::DoNotOptimize(editor->ItemText(first));
    }
    void SelectionChanged() override {}
    void FieldsChanged() override {}
    void LinesChanged() override {}
};

// The editor of a menu with entries typical entries, the one in the middle selected.
struct EditorDesk {
    FakeFiles files;
    NoPrompts prompts;
    FakeSettings settings;
    FakePump pump;
    FakeDocumentEvents events;
    MenuDocument document{files, prompts, settings, pump, events, CodePage(), Font(), "C:"};
    ListView view;
    MenuEditor editor{view, document};

    explicit EditorDesk(std::int64_t entries)
    {
        view.editor = &editor;
        for (std::size_t index = 0; index < static_cast<std::size_t>(entries); ++index) {
            document.Lines().Append(EncodeLine(bench::TypicalEntry(index)));
        }
        editor.Loaded();
        editor.Select(static_cast<std::size_t>(entries) / 2);
    }
};

// One action each round, then the one that makes the menu what it was, if any.
template <typename Action, typename Back>
void Edit(benchmark::State& state, const Action& action, const Back& back)
{
    EditorDesk desk(state.range(0));
    for ([[maybe_unused]] auto round : state) {
        action(desk.editor);
        back(desk.editor);
    }
}

void TypeCharacter(benchmark::State& state)
{
    bool longer = false;
    Edit(
        state,
        [&longer](MenuEditor& editor) {
            longer = !longer;
            editor.SetCaption(longer ? "Quarterly accounts" : "Quarterly account");
        },
        [](MenuEditor&) {});
}
BENCHMARK(TypeCharacter)->Arg(1000)->Arg(100000);

void InsertAndRemove(benchmark::State& state)
{
    Edit(
        state, [](MenuEditor& editor) { editor.InsertNew(); },
        [](MenuEditor& editor) { editor.Remove(); });
}
BENCHMARK(InsertAndRemove)->Arg(1000)->Arg(100000);

void RemoveAndUndo(benchmark::State& state)
{
    Edit(
        state, [](MenuEditor& editor) { editor.Remove(); },
        [](MenuEditor& editor) { editor.Undo(); });
}
BENCHMARK(RemoveAndUndo)->Arg(1000)->Arg(100000);

void MoveUpAndUndo(benchmark::State& state)
{
    Edit(
        state, [](MenuEditor& editor) { editor.MoveUp(); },
        [](MenuEditor& editor) { editor.Undo(); });
}
BENCHMARK(MoveUpAndUndo)->Arg(1000)->Arg(100000);

void MoveToTheEndsByTurns(benchmark::State& state)
{
    Edit(
        state, [](MenuEditor& editor) { editor.MoveTo(0); },
        [](MenuEditor& editor) { editor.MoveTo(editor.Count()); });
}
BENCHMARK(MoveToTheEndsByTurns)->Arg(1000)->Arg(100000);

} // namespace
