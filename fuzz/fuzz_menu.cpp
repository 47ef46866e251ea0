// Menu files. Input: the contents of one. It is also taken for lines as an editor may set them,
// with line ends of every kind inside, parted by code 30.
#include "docs/line_reader.h"
#include "docs/menu_document.h"
#include "docs/menu_line.h"
#include "fakes/fake_files.h"
#include "fakes/fake_surroundings.h"
#include "fuzz_input.h"
#include "tool/menu_text.h"

#include <algorithm>
#include <string>

namespace nv
{
namespace
{

using Texts = std::vector<std::string>;

const char kFirst[] = "C:\\Menus\\First.nvm";
const char kSecond[] = "C:\\Menus\\Second.nvm";

// Whole in size, so that it can be written.
const Font kDefault{"Default Face", 31, false, false, false, false, 186};

// No box is due in what is done here.
class NoPrompts final : public Prompts
{
public:
    Answer Ask(const std::string& text, PromptIcon, PromptButtons) override
    {
        StopAt(__FILE__, __LINE__, text.c_str());
    }
};

// line as reading and saving leave it: a stored break, and whatever is saved as one, is CR LF.
std::string WithBreaks(std::string_view line, std::string_view single)
{
    std::string text;
    for (std::size_t at = 0; at < line.size(); ++at) {
        const bool pair = line.substr(at, 2) == "\r\n";
        const bool isBreak = single.find(line[at]) != std::string_view::npos;
        text += pair || isBreak ? "\r\n" : std::string(1, line[at]);
        at += pair ? 1 : 0;
    }
    return text;
}

std::string_view WithoutMarks(std::string_view contents)
{
    while (contents.starts_with("\xEF\xBB\xBF")) {
        contents.remove_prefix(3);
    }
    return contents;
}

// The lines of a file, taken one byte after the other.
Texts LinesOf(std::string_view contents)
{
    contents = WithoutMarks(contents);
    Texts lines;
    bool open = false; // the last of lines has no end yet
    for (std::size_t at = 0; at < contents.size(); ++at) {
        if (!open) {
            lines.emplace_back();
        }
        open = contents[at] != '\r' && contents[at] != '\n';
        if (open) {
            lines.back() += contents[at];
        }
        at += contents.substr(at, 2) == "\r\n" ? 1u : 0u;
    }
    for (std::string& line : lines) {
        line = WithBreaks(line, "\x01");
    }
    return lines;
}

Texts TextsOf(const MenuLines& lines)
{
    Texts texts;
    for (std::size_t index = 0; index < lines.size(); ++index) {
        texts.emplace_back(lines[index]);
    }
    return texts;
}

Texts Read(const std::string& contents, std::size_t piece)
{
    FakeFiles files;
    files.readPiece = piece;
    files.Put(kFirst, contents);
    SystemError error = 0;
    const auto file = files.Open(kFirst, OpenMode::read, error);
    MenuLines lines;
    FakePump pump;
    CHECK(ReadMenuLines(*file, lines, pump, error) == ReadOutcome::whole);
    CHECK(pump.calls == static_cast<int>(lines.size()));
    return TextsOf(lines);
}

// The same lines however the system parts the reading, and over the end of the reader's blocks.
void CheckReading(const std::string& contents)
{
    CHECK(Read(contents, 1 + contents.size() % 5) == LinesOf(contents));
    if (contents.size() % 16 == 0) {
        constexpr std::size_t kFirstEnd = std::size_t{16} * 1024;
        constexpr std::size_t kSecondEnd = kFirstEnd + std::size_t{256} * 1024;
        const std::size_t end = contents.size() % 64 == 0 ? kSecondEnd : kFirstEnd;
        const std::string padding(end - contents.size() / 2, 'x');
        Texts padded = LinesOf('x' + contents);
        padded.front().insert(0, padding, 1);
        CHECK(Read(padding + contents, SIZE_MAX) == padded);
    }
}

// Lines and line ends, as the tool reads them, make up the whole file.
void CheckLineEnds(const std::string& contents)
{
    FakeFiles files;
    files.Put(kFirst, contents);
    MenuText text;
    CHECK(ReadMenuText(files, kFirst, text) == 0);
    CHECK(text.ends.size() == text.lines.size());
    const char* const ends[] = {"\r\n", "\r", "\n", ""}; // by LineEnd
    std::string whole = contents.substr(0, contents.size() - WithoutMarks(contents).size());
    CHECK(text.byteOrderMark == !whole.empty());
    for (std::size_t index = 0; index < text.ends.size(); ++index) {
        std::string line(text.lines[index]);
        for (auto at = line.find("\r\n"); at != std::string::npos; at = line.find("\r\n", at)) {
            line.replace(at, 2, "\x01");
        }
        whole += line + ends[static_cast<std::size_t>(text.ends[index])];
    }
    CHECK(whole == contents);
}

// A document over files in memory, which asks nothing.
struct Desk {
    explicit Desk(const CodePage& codePage)
        : document(files, prompts, settings, pump, events, codePage, kDefault, "C:")
    {
    }

    FakeFiles files;
    NoPrompts prompts;
    FakeSettings settings;
    FakePump pump;
    FakeDocumentEvents events;
    MenuDocument document;
};

// Lines as they come back from a file that they were saved to.
Texts AfterSaving(Texts lines)
{
    for (std::string& line : lines) {
        line =
            WithBreaks(line.empty() ? EncodeLine(DecodeLine({}, kDefault)) : line, "\r\n\x01\x1A");
    }
    return lines;
}

void CheckSaving(Desk& desk)
{
    const Texts before = TextsOf(desk.document.Lines());
    CHECK(desk.document.SavePDM(kFirst));
    CHECK(TextsOf(desk.document.Lines()) == before);
    CHECK(desk.document.OpenPDM(kFirst));
    CHECK(TextsOf(desk.document.Lines()) == AfterSaving(before));
    // One line end for each line, and none within.
    const std::string saved = desk.files.Contents(kFirst);
    for (const char ch : {'\r', '\n'}) {
        CHECK(std::count(saved.begin(), saved.end(), ch) == std::ssize(before));
    }
    CHECK(before.empty() ? saved.empty() : saved.ends_with("\r\n"));
    // What was saved once stays as it is, and nothing is left beside it.
    CHECK(desk.document.SavePDM(kSecond));
    CHECK(desk.files.Contents(kSecond) == saved);
    CHECK(desk.files.Count() == 2);
}

} // namespace
} // namespace nv

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace nv;
    const std::string contents(InputText(data, size));
    CheckReading(contents);
    CheckLineEnds(contents);
    const CodePage& codePage = kCodePages[size % kCodePages.size()];
    Desk reader(codePage);
    reader.files.Put(kFirst, contents);
    CHECK(reader.document.OpenPDM(kFirst));
    CHECK(TextsOf(reader.document.Lines()) == LinesOf(contents));
    CheckSaving(reader);

    Desk editor(codePage);
    for (const std::string_view line : Fields(contents)) {
        editor.document.Lines().Append(WithoutMarks(line)); // no entry's line begins with one
    }
    CheckSaving(editor);
    return 0;
}
