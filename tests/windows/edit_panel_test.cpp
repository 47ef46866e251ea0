// The edit panel by itself, where no other process can reach: files dropped on its list, texts
// that its boxes cannot hold.
#include "docs/menu_line.h"
#include "fakes/fake_desk.h"
#include "mainwindow/edit_panel.h"
#include "scratch_folder.h"
#include "win32/screen.h"
#include "win32/window_text.h"

#include <gtest/gtest.h>
#include <windowsx.h>

namespace nv
{
namespace
{

constexpr char kPath[] = "C:\\Start.nvm";

// A panel over a document with these captions.
class Panel : public testing::Test
{
protected:
    void Open(const std::vector<std::string>& captions, const std::string& command = "x")
    {
        std::string content;
        for (const std::string& caption : captions) {
            content += EncodeLine({ItemType::vLink, caption, command, {}, 0}) + "\r\n";
        }
        desk_.files.Put(kPath, content);
        panel_.UseChanged = panel_.LinesEdited = [] {};
        panel_.MayEdit = [] { return true; };
        ASSERT_TRUE(panel_.Create(parent_));
        MoveWindow(panel_.Handle(), 0, 0, 520, 353, FALSE);
        panel_.FitFonts();
        ASSERT_TRUE(desk_.document.FOpen(kPath));
        panel_.Editor().Loaded();
        panel_.Show();
    }
    ~Panel() override { DestroyWindow(parent_); }

    HWND Control(int id) const { return GetDlgItem(panel_.Handle(), id); }
    std::vector<std::string> Items() const
    {
        std::vector<std::string> items;
        for (std::size_t index = 0; index < panel_.Editor().Count(); ++index) {
            items.push_back(panel_.Editor().ItemText(index));
        }
        return items;
    }
    void Drop(const std::vector<std::string>& paths, POINT at)
    {
        DropFiles(panel_.Handle(), paths, at);
    }
    void DropOn(int control, const std::vector<std::string>& paths)
    {
        Drop(paths, e2e::CentreOf(Control(control)));
    }
    // A point of the list, that far down, in rows.
    POINT InList(double rows) const
    {
        const HWND list = Control(EditPanel::kItemList);
        POINT at = {20, static_cast<LONG>(rows * static_cast<double>(
                                                     SendMessageA(list, LB_GETITEMHEIGHT, 0, 0)))};
        ClientToScreen(list, &at);
        return at;
    }

    FakeDesk<> desk_;
    ScreenScale scale_ = PrimaryScreenScale();
    GdiText text_{scale_, ProcessCodePage()};
    Pictures pictures_{scale_};
    ComDial comDial_{"C:\\"};
    HWND parent_ = CreateWindowA("STATIC", "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 600, 450,
                                 nullptr, nullptr, nullptr, nullptr);
    EditPanel panel_{text_, pictures_, desk_.document, comDial_, [](Command) {}};
};

TEST_F(Panel, DroppedFilesBecomeLinks)
{
    Open({"a", "b"});
    Drop({"C:\\Program Files\\one.exe", "C:\\two.txt"}, InList(0.8));
    const std::vector<std::string> items = {
        "Type = vLink, Caption = a", "Type = vLink, Caption = one.exe",
        "Type = vLink, Caption = two.txt", "Type = vLink, Caption = b"};
    EXPECT_EQ(Items(), items);
    EXPECT_EQ(TextOf(Control(EditPanel::kCommandBox)), "\"C:\\two.txt\"");
    EXPECT_EQ(SendMessageA(Control(EditPanel::kItemList), LB_GETCOUNT, 0, 0), 4);
    Drop({"C:\\last.exe"}, InList(8)); // below the last entry
    EXPECT_EQ(Items().back(), "Type = vLink, Caption = last.exe");
    // On a box: the command as a whole, the caption where the caret is.
    SendMessageA(Control(EditPanel::kCaptionBox), EM_SETSEL, 4, 5);
    DropOn(EditPanel::kCaptionBox, {"C:\\a b", "C:\\not"});
    DropOn(EditPanel::kCommandBox, {"C:\\a b.exe", "C:\\not.exe"});
    DropOn(EditPanel::kTypeBox, {"C:\\not.exe"});
    EXPECT_EQ(Items().size(), 5u);
    EXPECT_EQ(panel_.Editor().Fields().caption, "lastC:\\a bexe");
    EXPECT_EQ(panel_.Editor().Fields().link, "\"C:\\a b.exe\"");
    panel_.Editor().SetType(ItemType::vLine);
    panel_.Editor().Select(4); // its boxes are not in use
    DropOn(EditPanel::kCommandBox, {"C:\\not.exe"});
    EXPECT_EQ(panel_.Editor().Fields().link, "\"C:\\a b.exe\"");
    // A code that the type box does not have.
    desk_.document.Lines().Set(4, "7>");
    panel_.Editor().Select(4);
    EXPECT_EQ(SendMessageA(Control(EditPanel::kTypeBox), CB_GETCURSEL, 0, 0), CB_ERR);
}

TEST_F(Panel, WhatABoxCannotHoldStaysAsItIs)
{
    std::string command(40000, 'c');
    const std::string caption("a\0b", 3);
    Open({caption}, command);
    panel_.Editor().Select(0);
    const HWND box = Control(EditPanel::kCommandBox);
    EXPECT_NE(GetWindowStyle(box) & ES_READONLY, 0);
    EXPECT_NE(GetWindowStyle(Control(EditPanel::kCaptionBox)) & ES_READONLY, 0);
    panel_.Browse(nullptr); // no picker comes for a box that takes nothing
    // The type is chosen.
    SendMessageA(Control(EditPanel::kTypeBox), CB_SETCURSEL, 2, 0);
    SendMessageA(panel_.Handle(), WM_COMMAND, MAKEWPARAM(EditPanel::kTypeBox, CBN_SELCHANGE), 0);
    const MenuItem expected = {ItemType::vLabel, caption, command, {}, 0};
    EXPECT_EQ(DecodeLine(desk_.document.Lines()[0], {}), expected);
}

TEST(WindowText, KnowsWhatStandsAroundTheSelection)
{
    const HWND box = CreateWindowA("EDIT", "one two three", ES_AUTOHSCROLL, 0, 0, 100, 20, nullptr,
                                   nullptr, nullptr, nullptr);
    SendMessageA(box, EM_SETSEL, 4, 7);
    const TextAround around = TextAroundSelection(box);
    EXPECT_EQ(around.before, "one ");
    EXPECT_EQ(around.after, " three");
    DestroyWindow(box);
}

} // namespace
} // namespace nv
