// The thin layer over the desktop: fonts, the message pump, and the view as a real window.
#include "docs/menu_line.h"
#include "e2e/driver.h"
#include "e2e/picture.h"
#include "fakes/fake_shell.h"
#include "mainwindow/menu_view.h"
#include "platform/system_colors.h"
#include "scratch_folder.h"
#include "win32/gdi_canvas.h"
#include "win32/message_pump.h"
#include "win32/screen.h"

#include <gtest/gtest.h>
#include <string>

namespace nv
{
namespace
{

constexpr ScreenScale kScale;

Font FontOf(const std::string& name, double size)
{
    Font font;
    font.name = name;
    font.size = size;
    return font;
}

// A plain top-level window to put others in.
class Frame final : public Window
{
public:
    Frame() { Create({"NavrixTestFrame", WS_OVERLAPPEDWINDOW | WS_VISIBLE}, nullptr); }

protected:
    std::optional<LRESULT> Route(UINT, WPARAM, LPARAM) override { return std::nullopt; }
};

// Lets every waiting message through; timers and all.
void Settle()
{
    MSG message = {};
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        DispatchMessageA(&message);
    }
}

TEST(GdiText, MeasuresAlikeInWholeAndInPieces)
{
    GdiText text(kScale, CodePage(1252));
    const Font font = FontOf("Tahoma", 10);
    const std::string line(20000, 'm');
    EXPECT_EQ(text.Width(font, line), text.Width(font, "m") * 20000);
    EXPECT_EQ(text.Width(font, ""), 0);
    const Twips width = text.Width(font, line.substr(0, 37));
    EXPECT_EQ(text.Fit(font, line, width), 37u);
    EXPECT_EQ(text.Fit(font, line, width - 15), 36u);
    EXPECT_EQ(text.Fit(font, line, -5), 0u);
    EXPECT_EQ(text.Fit(font, "ab", 1e6f), 2u);
    EXPECT_EQ(text.Fit(font, "", 100), 0u);
}

TEST(GdiText, NeverSplitsACharacter)
{
    const std::pair<CodePage, std::string> cases[] = {
        {CodePage(932), "\x83\x5C\x83\x5C\x83\x5C"},
        {CodePage(65001), "\xD0\xAF\xE3\x82\xBD\xF0\x9D\x94\xB8\xD0\xAF"},
    };
    for (const auto& [page, letters] : cases) {
        GdiText text(kScale, page);
        for (Twips width = 0; width < 900; width += 15) {
            const std::size_t fits = text.Fit(Font(), letters, width);
            EXPECT_EQ(page.WholeCharacters(letters, fits).size(), fits) << width;
        }
        EXPECT_EQ(text.Fit(Font(), letters, text.Width(Font(), letters)), letters.size());
    }
}

TEST(GdiText, SharesFontsAndClosesTheManyOfAHostileMenu)
{
    GdiText text(kScale, CodePage(1252));
    const HFONT first = text.Handle(FontOf("Tahoma", 8));
    EXPECT_EQ(text.Handle(FontOf("Tahoma", 8)), first);
    for (int size = 1; size <= 300; ++size) {
        ASSERT_GT(text.LineHeight(FontOf("Tahoma", 1 + size / 100.0)), 0);
    }
    EXPECT_EQ(GetObjectType(first), 0u); // the platform has room for some thousands only
    ASSERT_GT(text.Width(FontOf("Tahoma", 8), "text"), 0);
    // A name beyond the platform's 31 characters is cut, whatever its length.
    EXPECT_GT(text.LineHeight(FontOf(std::string(5000, 'x'), 8)), 0);
}

TEST(ScreenColors, ComeFromEitherKindOfNumber)
{
    EXPECT_EQ(ColorRef(0x00123456), 0x00123456u);
    EXPECT_EQ(ColorRef(SystemColor(COLOR_WINDOWTEXT)), GetSysColor(COLOR_WINDOWTEXT));
    EXPECT_EQ(ColorRef(INT32_MIN), GetSysColor(0));
    EXPECT_EQ(ColorRef(0x7F123456), 0x00123456u); // no palette of ours
}

TEST(Fonts, KeepTheirHeightAsFontObjects)
{
    for (const double twipsPerPixel : {15.0, 12.0, 10.0, 1440.0 / 168, 7.5}) {
        const ScreenScale scale{twipsPerPixel, twipsPerPixel};
        for (LONG height = -100; height < 0; ++height) {
            LOGFONTA record = {};
            record.lfHeight = height;
            EXPECT_EQ(LogFontOf(nv::FontOf(record, scale), scale).lfHeight, height);
        }
    }
    // A line height says less than a letter height: the same font either way.
    GdiText text{kScale, CodePage(1252)};
    LOGFONTA record = LogFontOf(FontOf("Tahoma", 12), kScale);
    const Twips lineHeight = text.LineHeight(nv::FontOf(record, kScale));
    record.lfHeight = kScale.PixelsY(lineHeight);
    EXPECT_EQ(text.LineHeight(nv::FontOf(record, kScale)), lineHeight);
    EXPECT_FALSE(RecordOf(static_cast<HFONT>(nullptr)));
    EXPECT_FALSE(RecordOf(static_cast<HFONT>(GetStockObject(NULL_PEN))));
}

TEST(MessagePump, LooksAtTheClockAndEndsUnwantedWork)
{
    const Frame frame;
    MessagePump pump;
    int seen = 0;
    pump.Filter = [&](MSG& message) {
        const bool ours = message.message == WM_APP + 7;
        seen += ours;
        return ours;
    };
    const auto post = [&] { PostMessageA(frame.Handle(), WM_APP + 7, 0, 0); };
    post();
    EXPECT_TRUE(pump.LetEventsThrough());
    EXPECT_EQ(seen, 1);
    int timesThrough = 0; // of calls right after one another only some let anything through
    for (int call = 0; call < 1000; ++call) {
        const int before = seen;
        post();
        EXPECT_TRUE(pump.LetEventsThrough());
        timesThrough += seen > before;
    }
    EXPECT_GT(timesThrough, 0);
    EXPECT_LT(timesThrough, 1000);
    seen = 0;
    pump.EndWork();
    post();
    EXPECT_FALSE(pump.LetEventsThrough());
    EXPECT_EQ(seen, 0); // nothing comes between an ended work and its unwinding
}

TEST(View, DrawsSeparatorsTakesFilesAndShowsTheBarWhenItIsNeeded)
{
    const Frame frame;
    GdiText text{kScale, CodePage(1252)};
    Pictures pictures{kScale};
    FakeShell shell;
    ShellExe shellExe{shell, "C:\\Menus"};
    LinkPictures links{shellExe, pictures};
    MenuLines lines;
    MessagePump pump;
    const Font font;
    MenuView view(text, pictures, links, CodePage(1252), lines, font);
    view.Create(frame.Handle());
    SetWindowPos(view.Handle(), nullptr, 0, 0, 600, 400, SWP_NOZORDER | SWP_SHOWWINDOW);
    lines.Append(EncodeLine({ItemType::vLine, "", "", {}, 0}));
    ASSERT_TRUE(view.Pane().LoadFields(pump));
    Settle();
    e2e::Picture({200, 50}, [&](HDC dc) {
        GdiCanvas canvas(dc, text, pictures);
        view.Pane().Paint(canvas, {0, 0, 3000, 750});
        // At 150 twips: ten pixels down; the line begins at 120 twips.
        EXPECT_EQ(GetPixel(dc, 100, 9), GetSysColor(COLOR_BTNFACE));
        EXPECT_EQ(GetPixel(dc, 100, 10), GetSysColor(COLOR_BTNSHADOW));
        EXPECT_EQ(GetPixel(dc, 100, 11), GetSysColor(COLOR_3DHILIGHT));
        EXPECT_EQ(GetPixel(dc, 100, 12), GetSysColor(COLOR_BTNFACE));
        EXPECT_EQ(GetPixel(dc, 7, 10), GetSysColor(COLOR_BTNFACE));
    });

    SetWindowPos(frame.Handle(), nullptr, 0, 0, 600, 400, SWP_NOZORDER | SWP_SHOWWINDOW);
    std::string dropped;
    view.FileDropped = [&dropped](const std::string& path) { dropped += path; };
    for (const BOOL takesInput : {FALSE, TRUE}) {
        EnableWindow(frame.Handle(), takesInput); // not while a box waits for an answer
        DropFiles(view.Handle(), {"C:\\a b.nvm", "C:\\not.nvm"}, {});
        EXPECT_EQ(dropped, takesInput ? "C:\\a b.nvm" : "");
    }

    EXPECT_EQ(GetWindowLongA(view.Handle(), GWL_STYLE) & WS_VSCROLL, 0);
    const TwipSize size = view.Pane().ViewSize();
    for (int count = 0; count < 50; ++count) {
        lines.Append(EncodeLine({ItemType::vLink, "Link", "prog", {}, 0}));
    }
    ASSERT_TRUE(view.Pane().LoadFields(pump));
    Settle();
    EXPECT_NE(GetWindowLongA(view.Handle(), GWL_STYLE) & WS_VSCROLL, 0);
    EXPECT_EQ(view.Pane().ViewSize(), size); // its place was kept free
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(view.Handle(), SB_VERT, &info);
    const int maximum = view.Pane().Scroll().Maximum();
    EXPECT_EQ(info.nMax - static_cast<int>(info.nPage) + 1, maximum);
    const std::pair<WPARAM, int> scrolls[] = {
        {SB_LINEDOWN, 1000}, {SB_PAGEDOWN, 6000}, {SB_BOTTOM, maximum}, {SB_TOP, 0}};
    for (const auto& [scroll, position] : scrolls) {
        SendMessageA(view.Handle(), WM_VSCROLL, scroll, 0);
        Settle();
        EXPECT_EQ(GetScrollPos(view.Handle(), SB_VERT), position);
    }
    constexpr auto kPartOfANotch = static_cast<WPARAM>(static_cast<WORD>(-WHEEL_DELTA / 4)) << 16;
    for (int part = 0; part < 4; ++part) { // as a fine wheel sends them
        SendMessageA(view.Handle(), WM_MOUSEWHEEL, kPartOfANotch, 0);
    }
    Settle();
    EXPECT_GT(GetScrollPos(view.Handle(), SB_VERT), 0);
}

} // namespace
} // namespace nv
