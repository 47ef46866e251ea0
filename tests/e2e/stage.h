// What each end-to-end test starts from: a folder of its own with the program, the companion and
// the menus that the test writes, and no settings.
#pragma once

#include "e2e/driver.h"
#include "windows/scratch_folder.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace nv::e2e
{

enum EntryType { kTitle = 1, kLabel = 2, kLink = 3, kSpace = 4, kLine = 5 };

// The controls of the edit panel.
enum PanelControl { kList = 301, kType, kCaption, kCommand };

// What the system says of an error, as the program shows it.
std::string ReasonOf(DWORD error);

// The colour by which the tests find a link on the screen. Red is lower than in any mixture with
// the background, so that no edge of a letter is taken for another link.
constexpr COLORREF Mark(int number)
{
    return RGB(0x10, number & 0xFF, 0x40 + (number >> 8 & 0x7F));
}

struct Entry {
    EntryType type = kLink;
    std::string caption;
    std::string command;
    long color = 0;
    std::string size = "16";
    std::string font = "Tahoma";
    int charset = 0;
};

// A line of a Menu file, without line end.
std::string LineOf(const Entry& entry);
std::string MenuOf(const std::vector<Entry>& entries);

class Stage : public ::testing::Test
{
protected:
    // folder: the name of the program's folder. It has a blank, as paths are quoted where they
    // must be.
    explicit Stage(std::string folder = "the program") : folder_(std::move(folder)) {}
    void SetUp() override;
    // Expects a program that still runs to close at once with exit code 0.
    void TearDown() override;

    const std::string& Folder() const { return folder_; }
    std::string Path(const std::string& name) const { return folder_ + "\\" + name; }
    // Writes a file in the folder; its path.
    std::string Write(const std::string& name, const std::string& content) const;
    // Writes a Menu file; its path.
    std::string WriteMenu(const std::string& name, const std::vector<Entry>& entries) const;
    // A link that runs the recorder with arguments; wait for it with WaitForRecord.
    static std::string Recorder(const std::string& arguments)
    {
        return "recorder.exe " + arguments;
    }
    // The record of the recorder that was started since the last call: command line, folder, title,
    // show state. Empty when none came.
    std::vector<std::string> WaitForRecord() const { return TakeRecord(Path("record")); }
    // The last word of that command line.
    std::string WaitForRecordedWord() const;
    bool HasRecord() const;

    static void SetSetting(const std::string& section, const std::string& name,
                           const std::string& value);
    // Nothing when there is no such value.
    static std::optional<std::string> Setting(const std::string& section, const std::string& name);

    // Starts the program with arguments, as they stand after its name.
    Program& Start(const std::string& arguments = "");
    // Starts the program with a menu, and waits until it is open.
    Program& Open(const std::string& path);
    // Lets the shell open a menu, which starts the program, and waits until that is open.
    void OpenInShell(const std::string& file, const std::string& menu);
    Program& Running() { return *program_; }
    // Waits for a message box, which must be so, and presses the button answer, or the only one.
    // The Enter key would press the one named byEnter, or the first.
    void ExpectBox(const std::string& text, BoxIcon icon,
                   const std::vector<std::string>& buttons = {"OK"}, std::string answer = "",
                   const std::string& byEnter = "");
    // Waits for the question whether to save the changes of a menu, and answers it.
    void ExpectSaveQuestion(const std::string& path, const std::string& answer);
    // Switches to edit mode, and waits until its list has the keyboard.
    bool EnterEditMode();
    // There, of two entries: removes the selected one.
    void RemoveOneOfTwo();
    // Ends the running program as the user does; its exit code.
    std::optional<DWORD> Close() { return program_->Close(); }
    // Clicks on what stands in the view in that colour.
    bool ClickOn(COLORREF color);
    bool ClickButton(const std::string& caption);
    // The title of the window that shows the menu at path.
    static std::string TitleOf(const std::string& path) { return kPlainTitle + (" - " + path); }
    bool WaitForMenu(const std::string& path, DWORD within = kDeadline)
    {
        return program_->WaitForTitle(TitleOf(path), within);
    }
    // Waits until the load of a menu is done, however it ended: the window then answers at once
    // and the menu is the last one opened.
    bool WaitUntilLoaded(const std::string& path, DWORD within = kDeadline);

    static constexpr char kPlainTitle[] = "Navrix Menu 1.0.0";

private:
    ScratchFolder scratch_;
    std::string folder_;
    std::unique_ptr<Program> program_;
};

} // namespace nv::e2e
