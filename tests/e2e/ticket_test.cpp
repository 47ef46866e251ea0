// The support window, used as a user does: from the Options dialog to the ticket on the clipboard
// or in a file.
#include "e2e/stage.h"

#include <cstring>

namespace nv::e2e
{

namespace
{

enum Control {
    kClose = 2,
    kSupportButton = 215,
    kLetter = 223,
    kEmail,
    kCounts,
    kProblem = 229,
    kServers,
    kWorkstations = 235,
    kToClipboard = 241,
    kToFile
};

std::string TicketOf(const std::string& servers, const std::string& workstations,
                     const std::string& problem)
{
    return SUPPORT_ADDRESS "\r\n>> Navrix Trouble Ticket <<\r\nann@office.example\r\n"
                           "Navrix Menu 1.0.0\r\nHardware:\r\nServers: " +
           servers + "\r\nWorkstations: " + workstations + "\r\n" + problem +
           "\r\n<< Navrix Trouble Ticket >>";
}

std::string WhatToDo(const std::string& with)
{
    return "\n\nPlease do not change it and leave it as it is.\n\n" + with +
           " it to your e-mail message and send it to " SUPPORT_ADDRESS
           ".\nThe destination e-mail address is also in the first line of Trouble Ticket.";
}

} // namespace

class Ticket : public Stage
{
protected:
    void SetUp() override
    {
        Stage::SetUp();
        clipboardOwner_ =
            CreateWindowA("STATIC", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
        Open(WriteMenu("Start.nvm", {{kLink, "a", "a.exe"}}));
        ASSERT_TRUE(ClickButton("Options"));
        options_ = Running().WaitForDialog("Options");
        ShowSupport();
    }
    void TearDown() override
    {
        DestroyWindow(clipboardOwner_);
        Stage::TearDown();
    }
    void ShowSupport()
    {
        Click(CentreOf(GetDlgItem(options_, kSupportButton)));
        support_ = Running().WaitForDialog("Navrix Support");
        ASSERT_NE(support_, nullptr);
        EXPECT_TRUE(WaitForFocus(kEmail));
    }
    HWND Item(int control) const { return GetDlgItem(support_, control); }
    std::string Text(int control) const { return TextOf(Item(control)); }
    bool WaitForFocus(int control) const
    {
        return Until([&] { return FocusOf(support_) == Item(control); });
    }
    bool WaitForText(int control, const std::string& text) const
    {
        return nv::e2e::WaitForText(Item(control), text);
    }
    // Presses the button to save, and names the file or, with no name, cancels; the picker.
    HWND SaveAs(const std::string& name)
    {
        Click(CentreOf(Item(kToFile)));
        const HWND picker =
            Running().PickFile("Please select file name for your Trouble Ticket file", name);
        EXPECT_NE(picker, nullptr);
        return picker;
    }
    // Holds the clipboard, so that no other program can open it, until CloseClipboard.
    void HoldClipboard() const
    {
        EXPECT_TRUE(Until([&] { return OpenClipboard(clipboardOwner_) != FALSE; }));
    }
    std::string Clipboard() const
    {
        HoldClipboard();
        const HANDLE memory = GetClipboardData(CF_TEXT);
        const std::string text =
            memory != nullptr ? static_cast<const char*>(GlobalLock(memory)) : "no text";
        CloseClipboard(); // unlocks it as well
        return text;
    }
    void SetClipboard(const std::string& text) const
    {
        const HGLOBAL memory = GlobalAlloc(GMEM_FIXED, text.size() + 1);
        std::memcpy(memory, text.c_str(), text.size() + 1);
        HoldClipboard();
        EmptyClipboard();
        EXPECT_NE(SetClipboardData(CF_TEXT, memory), nullptr);
        CloseClipboard();
    }

    HWND options_ = nullptr;
    HWND support_ = nullptr;
    HWND clipboardOwner_ = nullptr;
};

TEST_F(Ticket, IsFilledInByKeyboardAndSentToTheClipboard)
{
    const RECT place = PlaceOf(support_);
    EXPECT_LE(place.right - place.left, 800); // for small screens
    EXPECT_LE(place.bottom - place.top, 552); // below it stands the taskbar
    const std::pair<int, int> order[] = {{kCounts, 2},       {kServers, 5}, {kCounts + 2, 2},
                                         {kWorkstations, 6}, {kProblem, 1}, {kToClipboard, 2},
                                         {kClose, 1},        {kLetter, 2}};
    for (const auto& [first, count] : order) { // in which one reads
        for (int next = first; next < first + count; ++next) {
            PressKey(VK_TAB);
            EXPECT_TRUE(WaitForFocus(next)) << next << " is not it";
        }
    }
    SetDlgItemTextA(support_, kProblem, "Again: ");
    PressKey(VK_RETURN);
    ExpectBox("Please enter your e-mail where do you want to recive our reply.",
              BoxIcon::exclamation);
    EXPECT_TRUE(WaitForFocus(kEmail));
    Type("ann@office.example\r");
    ExpectBox("You have to enter at least one server or workstation.", BoxIcon::exclamation);
    EXPECT_TRUE(WaitForFocus(kCounts));
    Type("1x2-a");
    EXPECT_TRUE(WaitForText(kCounts, "12")) << Text(kCounts);
    Type("\b\b");
    EXPECT_TRUE(WaitForText(kCounts, ""));
    PressKey(VK_TAB);
    EXPECT_TRUE(WaitForText(kCounts, "0"));
    Type("3\r");
    ExpectBox("You have to enter at least one operating system.", BoxIcon::exclamation);
    EXPECT_TRUE(WaitForFocus(kServers));
    for (const int key : {VK_SPACE, VK_RIGHT, VK_RIGHT, VK_RIGHT, VK_SPACE, VK_RETURN}) {
        PressKey(static_cast<WORD>(key));
    }
    ExpectBox("Please describe your problem.", BoxIcon::exclamation);
    EXPECT_TRUE(WaitForFocus(kProblem));
    Type("a line\rand another");
    const std::string problem = "Again: a line\r\nand another";
    EXPECT_TRUE(WaitForText(kProblem, problem)) << Text(kProblem);
    PressKey(VK_TAB);
    EXPECT_TRUE(WaitForFocus(kToClipboard));

    HoldClipboard();
    PressKey(VK_RETURN);
    ExpectBox("Your Trouble Ticket could not be put on the clipboard.\n\n"
              "Another program is using it. Please try again, or copy it to a file.",
              BoxIcon::exclamation);
    CloseClipboard();
    EXPECT_TRUE(WaitForFocus(kToClipboard));
    PressKey(VK_RETURN);
    ExpectBox("Your Trouble Ticket has been sent to clipboard." + WhatToDo("Paste"),
              BoxIcon::information);
    EXPECT_EQ(Clipboard(), TicketOf("0, 3, 2000-XP", "0, 0, ", problem));
    EXPECT_TRUE(WaitForFocus(kClose));
    PressKey(VK_RETURN);
    EXPECT_TRUE(WaitUntilGone(support_) && IsWindowEnabled(options_));
    ShowSupport();
    EXPECT_EQ(Text(kEmail) + Text(kProblem), "");
    Click(CentreOf(Item(kProblem)));
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(WaitUntilGone(support_) && IsWindowEnabled(options_));
}

TEST_F(Ticket, CountBoxesTakeNoLettersFromTheClipboard)
{
    const std::pair<WORD, WORD> ways[] = {{VK_CONTROL, 'V'}, {VK_SHIFT, VK_INSERT}};
    const struct {
        const char* clipboard;
        const char* box; // after it and a 9
    } cases[] = {{"12 computers", "09"}, {"", "09"}, {"345", "3459"}, {" 67\r\n8x\r\n", "679"}};
    for (const auto& [held, key] : ways) {
        for (const auto& [clipboard, expected] : cases) {
            SCOPED_TRACE((key == 'V' ? "Ctrl+V " : "Shift+Insert ") + std::string(clipboard));
            SetClipboard(clipboard);
            SetDlgItemTextA(support_, kCounts, "0");
            Click(CentreOf(Item(kCounts)));
            PressKey(VK_HOME);
            PressKey(VK_END, {VK_SHIFT});
            PressKey(key, {held});
            PressKey(VK_END);
            Type("9"); // all before it was seen to when it stands there
            EXPECT_TRUE(WaitForText(kCounts, expected)) << Text(kCounts);
        }
    }
}

TEST_F(Ticket, IsSavedToAFile)
{
    const std::string ticket = TicketOf("0, 0, ", "0, 2, Other", "No link ever starts.") + "\r\n";
    SetDlgItemTextA(support_, kEmail, "ann@office.example");
    SetDlgItemTextA(support_, kCounts + 3, "2");
    SendMessageA(Item(kWorkstations + 5), BM_CLICK, 0, 0);
    SetDlgItemTextA(support_, kProblem, "No link ever starts.");
    const HWND cancelled = SaveAs("");
    EXPECT_TRUE(WaitUntilGone(cancelled));
    EXPECT_TRUE(WaitForFocus(kToFile)); // and no box, which would have it

    SaveAs(Path("ticket"));
    ExpectBox("Your Trouble Ticket has been copied to file: " + Path("ticket.txt") + "." +
                  WhatToDo("Attach"),
              BoxIcon::information);
    EXPECT_EQ(Contents(Path("ticket.txt")), ticket);
    EXPECT_TRUE(WaitForFocus(kClose));

    const HANDLE held = CreateFileA(Write("held.txt", "old").c_str(), GENERIC_READ, FILE_SHARE_READ,
                                    nullptr, OPEN_EXISTING, 0, nullptr);
    SaveAs(Path("held.txt"));
    const auto overwrite = Running().WaitForBox();
    ASSERT_TRUE(overwrite);
    EXPECT_TRUE(Running().Answer(*overwrite, "Yes"));
    ExpectBox("Cannot write your Trouble Ticket to file: " + Path("held.txt"), BoxIcon::stop);
    CloseHandle(held);
    EXPECT_EQ(Contents(Path("held.txt")), "old");
    EXPECT_TRUE(WaitForFocus(kToFile));
    EXPECT_EQ(Text(kEmail), "ann@office.example");
}

} // namespace nv::e2e
