// The column of entries on its panel. Input, parted by code 30: what a user does there, a letter
// each, before a "!" while the menu is loading; then the entries, each a digit (its type), a letter
// (its font's size) and its caption, from whose "|" on it is the command.
#include "controls/text_layout.h"
#include "docs/menu_line.h"
#include "fakes/fake_pane.h"
#include "fuzz_input.h"

#include <algorithm>
#include <string>

namespace nv
{
namespace
{

void AddEntry(MenuLines& lines, std::string_view entry)
{
    if (entry.size() < 2) {
        lines.Append(entry);
        return;
    }
    MenuItem item;
    item.type = static_cast<ItemType>(std::clamp(entry[0] - '0', 0, 9));
    item.font.size = std::clamp(entry[1] - 'a', 0, 25) * 5 + 1; // those above 100 are cut
    const std::string_view text = entry.substr(2);
    item.caption = text.substr(0, text.find('|'));
    item.link = text.substr(std::min(item.caption.size() + 1, text.size()));
    lines.Append(EncodeLine(item));
}

// Each row below the one before it, the links among them, and P1 high enough.
void CheckColumn(const MenuColumn& column)
{
    Twips bottom = 0;
    std::vector<std::uint32_t> links;
    for (const Row& row : column.Rows()) {
        CHECK(row.top >= bottom && row.height > 0);
        bottom = row.top + row.height;
        if (row.kind == RowKind::link) {
            links.push_back(static_cast<std::uint32_t>(&row - column.Rows().data()));
        }
    }
    CHECK(column.Height() >= bottom && column.Links() == links);
}

void CheckPlaces(FakePane& stage)
{
    MenuPane& pane = stage.pane;
    const Scrolling& scroll = pane.Scroll();
    CHECK(scroll.Value() >= 0 && (!scroll.Shown() || scroll.Value() <= scroll.Maximum()));
    CHECK(scroll.Top() <= 0);
    const auto focused = pane.FocusedLink();
    CHECK(focused.has_value() == !pane.Column().Links().empty());
    CHECK(!focused || *focused < pane.Column().Links().size());
    for (Twips y = -100; y < pane.ViewSize().height; y += 400) {
        const auto row = pane.RowAt({600, y});
        CHECK(!row || pane.AreaOf(*row).Contains({600, y}));
        const auto link = pane.LinkAt({600, y});
        CHECK(!link || (link == row && pane.AreaOf(*link).Contains({600, y})));
    }
    FakeCanvas canvas;
    pane.Paint(canvas, {0, 0, pane.ViewSize().width, pane.ViewSize().height});
    for (const auto& drawn : canvas.texts) {
        CHECK(drawn.text.find_first_of("\r\n") == std::string::npos);
    }
}

void Act(FakePane& stage, char letter)
{
    MenuPane& pane = stage.pane;
    const TwipPoint point{600, static_cast<Twips>(letter * 37 % 5000)};
    const TwipSize view = pane.ViewSize();
    if (letter >= '0' && letter <= '8') {
        pane.Key(static_cast<PaneKey>(letter - '0'));
    } else if (letter >= 'A' && letter <= 'Z') {
        pane.MouseMove(point);
        pane.MouseDown(point);
        pane.MouseUp(point);
    } else if (letter == 'd') {
        pane.Drag(pane.Scroll().Maximum() / 2);
    } else if (letter == 'e') {
        pane.EndDrag();
    } else if (letter == 'f') {
        pane.SetHasFocus(true);
    } else if (letter == 'l') {
        CHECK(pane.LoadFields(stage.pump));
    } else if (letter == 'm') {
        pane.MouseLeave();
    } else if (letter == 'n') {
        pane.SetViewSize({view.width * 0.7f, view.height});
    } else if (letter == 'p') {
        pane.FindNextPicture(0);
    } else if (letter == 's') {
        pane.SetViewSize({view.width, view.height * 0.7f});
    } else if (letter == 't') {
        pane.Tick();
    } else if (letter == 'u') {
        pane.ScrollBy(-3);
    } else if (letter == 'w') {
        pane.ScrollTwips(1234);
    } else if (letter == 'x') {
        pane.SetViewSize({view.width * 2, view.height * 2});
    }
}

// After changes of the width all stands as if it had been loaded at the last one.
void CheckLikeNew(const FakePane& stage)
{
    FakePane fresh(stage.pane.ViewSize());
    for (std::size_t index = 0; index < stage.lines.size(); ++index) {
        fresh.lines.Append(stage.lines[index]);
    }
    CHECK(fresh.pane.LoadFields(fresh.pump));
    const auto same = [](const Row& a, const Row& b) {
        return a.top == b.top && a.height == b.height && a.entry == b.entry && a.kind == b.kind;
    };
    const auto& rows = stage.pane.Column().Rows();
    const auto& freshRows = fresh.pane.Column().Rows();
    CHECK(std::equal(rows.begin(), rows.end(), freshRows.begin(), freshRows.end(), same));
    CHECK(stage.pane.Column().Height() == fresh.pane.Column().Height());
}

// Broken lines hold the whole text but for blanks and line ends, and each fits or is one character.
void CheckWrap(std::string_view text)
{
    FakeMeasure measure;
    const Font font;
    const auto withoutBlanks = [](std::string part) {
        std::erase_if(part, [](char ch) { return ch == ' ' || ch == '\r' || ch == '\n'; });
        return part;
    };
    for (const Twips width : {-40.f, 0.f, 80.f, 500.f}) {
        std::string joined;
        for (const std::string_view line : WrapText(measure, CodePage(), font, text, width)) {
            CHECK(line.size() <= 1 || measure.Width(font, line) <= width);
            joined += line;
        }
        CHECK(withoutBlanks(joined) == withoutBlanks(std::string(text)));
    }
    CHECK(CountLines(text) == TextLines(text).size());
    CHECK(AutoHeight(measure, font, text) == AutoSize(measure, font, text).height);
}

} // namespace
} // namespace nv

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace nv;
    const auto fields = Fields(InputText(data, size));
    FakePane stage({8000, 5000});
    for (std::size_t field = 1; field < fields.size(); ++field) {
        AddEntry(stage.lines, fields[field]);
        CheckWrap(fields[field]);
    }
    // Few enough that the view keeps a size that a window can have.
    const std::string_view letters = fields[0].substr(0, 12);
    const std::size_t meanwhile = letters.find('!') + 1; // none: 0
    std::size_t next = 0;
    stage.pump.whileThen = [&] {
        if (next < meanwhile && letters[next] != 'l') {
            Act(stage, letters[next++]);
        }
    };
    CHECK(stage.pane.LoadFields(stage.pump));
    CHECK(stage.pane.Scroll().Value() == 0);
    stage.pump.whileThen = nullptr;
    for (const char letter : letters.substr(meanwhile)) {
        Act(stage, letter);
        CheckColumn(stage.pane.Column());
        CheckPlaces(stage);
    }
    for (const std::uint32_t entry : stage.clicked) {
        CHECK(entry < stage.lines.size());
        CHECK(DecodeLine(stage.lines[entry], stage.defaultFont).type == ItemType::vLink);
    }
    CheckLikeNew(stage);
    return 0;
}
