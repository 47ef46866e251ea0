#include "e2e/stage.h"

#include <shellapi.h>

#include <cstdio>
#include <cstring>

namespace nv::e2e
{

namespace
{

constexpr char kSettingsKey[] = "Software\\Belquin\\Navrix Menu";

void CopyTo(const std::string& folder, const std::string& fromTests, const std::string& name)
{
    const std::string source = FromTests(fromTests);
    ASSERT_TRUE(CopyFileA(source.c_str(), (folder + "\\" + name).c_str(), TRUE)) << source;
}

// What the program keeps in the registry.
void ForgetRegistry()
{
    RegDeleteTreeA(HKEY_CURRENT_USER, kSettingsKey);
    RegDeleteKeyA(HKEY_CURRENT_USER, "Software\\Belquin"); // if it is empty
    RegDeleteTreeA(HKEY_CLASSES_ROOT, ".NVM");
    RegDeleteTreeA(HKEY_CLASSES_ROOT, "Navrix Menu");
}

} // namespace

std::string LineOf(const Entry& entry)
{
    return std::to_string(entry.type) + "><CAPTION>" + entry.caption + "</CAPTION> <LINK>" +
           entry.command + "</LINK> <FONTNAME>" + entry.font + "</FONTNAME> <FONTSIZE>" +
           entry.size +
           "</FONTSIZE> <FONTBOLD>True</FONTBOLD> <FONTITALIC>False</FONTITALIC> "
           "<FONTSTR>False</FONTSTR> <FONTUNDER>False</FONTUNDER> <FONTCOLOR>" +
           std::to_string(entry.color) + "</FONTCOLOR> <FONTCHAR>" + std::to_string(entry.charset) +
           "</FONTCHAR>";
}

std::string MenuOf(const std::vector<Entry>& entries)
{
    std::string menu;
    for (const Entry& entry : entries) {
        menu += LineOf(entry) + "\r\n";
    }
    return menu;
}

std::string ReasonOf(DWORD error)
{
    char reason[256] = "";
    FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS |
                       FORMAT_MESSAGE_MAX_WIDTH_MASK,
                   nullptr, error, 0, reason, sizeof reason, nullptr);
    return std::string(reason).substr(0, std::strlen(reason) - 1); // ends with a blank
}

void Stage::SetUp()
{
    folder_ = scratch_ / folder_;
    ASSERT_TRUE(CreateDirectoryA(folder_.c_str(), nullptr)) << folder_;
    CopyTo(folder_, MENU_FROM_TESTS, "NVMenu.exe");
    CopyTo(folder_, COMPANION_FROM_TESTS, "NVSub.exe");
    CopyTo(folder_, "recorder.exe", "recorder.exe");
    ForgetRegistry();
    SetEnvironmentVariableA("NAVRIX_RECORD", Path("record").c_str());
    // Where it points to nothing; twice, for where Wine believes it to be already, the display's
    // pointer stays wherever it is.
    MoveMouse({1, 1});
    MoveMouse({0, 0});
}

void Stage::TearDown()
{
    if (program_ && HasFailure()) {
        std::printf("On the screen at the end:\n%s", program_->OnScreen().c_str());
    } else if (program_ && program_->Running()) {
        EXPECT_EQ(program_->BoxNow().has_value(), false) << program_->OnScreen();
        EXPECT_EQ(program_->Close(), 0u) << program_->OnScreen();
    }
    program_.reset();
    ForgetRegistry();
}

std::string Stage::Write(const std::string& name, const std::string& content) const
{
    std::FILE* file = std::fopen(Path(name).c_str(), "wb");
    EXPECT_NE(file, nullptr) << name;
    if (file != nullptr) {
        EXPECT_EQ(std::fwrite(content.data(), 1, content.size(), file), content.size());
        std::fclose(file);
    }
    return Path(name);
}

std::string Stage::WriteMenu(const std::string& name, const std::vector<Entry>& entries) const
{
    return Write(name, MenuOf(entries));
}

std::string Stage::WaitForRecordedWord() const
{
    const auto record = WaitForRecord();
    return record.empty() ? "no record" : record[0].substr(record[0].rfind(' ') + 1);
}

bool Stage::HasRecord() const
{
    return GetFileAttributesA(Path("record").c_str()) != INVALID_FILE_ATTRIBUTES;
}

void Stage::SetSetting(const std::string& section, const std::string& name,
                       const std::string& value)
{
    const std::string key = std::string(kSettingsKey) + "\\" + section;
    ASSERT_EQ(RegSetKeyValueA(HKEY_CURRENT_USER, key.c_str(), name.c_str(), REG_SZ, value.c_str(),
                              static_cast<DWORD>(value.size() + 1)),
              ERROR_SUCCESS);
}

std::optional<std::string> Stage::Setting(const std::string& section, const std::string& name)
{
    const std::string key = std::string(kSettingsKey) + "\\" + section;
    char value[2048] = "";
    DWORD size = sizeof value;
    if (RegGetValueA(HKEY_CURRENT_USER, key.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr, value,
                     &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    return value;
}

Program& Stage::Start(const std::string& arguments)
{
    program_.reset();
    std::string command = '"' + Path("NVMenu.exe") + '"';
    if (!arguments.empty()) {
        command += ' ' + arguments;
    }
    program_ = std::make_unique<Program>(command);
    return *program_;
}

Program& Stage::Open(const std::string& path)
{
    Start('"' + path + '"');
    EXPECT_TRUE(WaitUntilLoaded(path)) << path;
    return *program_;
}

void Stage::OpenInShell(const std::string& file, const std::string& menu)
{
    program_.reset();
    const HINSTANCE result =
        ShellExecuteA(nullptr, "open", file.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    ASSERT_GT(reinterpret_cast<INT_PTR>(result), 32);
    program_ = std::make_unique<Program>();
    EXPECT_TRUE(WaitUntilLoaded(menu));
}

void Stage::ExpectBox(const std::string& text, BoxIcon icon,
                      const std::vector<std::string>& buttons, std::string answer,
                      const std::string& byEnter)
{
    const auto box = program_->WaitForBox();
    ASSERT_TRUE(box) << "no message box\n" << program_->OnScreen();
    EXPECT_EQ(box->text, text);
    EXPECT_EQ(box->title, kPlainTitle);
    EXPECT_EQ(box->icon, icon);
    EXPECT_EQ(box->buttons, buttons);
    EXPECT_EQ(box->defaultButton, byEnter.empty() ? buttons.front() : byEnter);
    EXPECT_TRUE(program_->Answer(*box, answer.empty() ? buttons.front() : answer));
}

void Stage::ExpectSaveQuestion(const std::string& path, const std::string& answer)
{
    ExpectBox("Do you want to save the changes you made to \n\n" + path + "?", BoxIcon::question,
              {"Yes", "No", "Cancel"}, answer);
}

bool Stage::EnterEditMode()
{
    PressKey('E', {VK_CONTROL});
    return program_->WaitForFocus("ListBox");
}

void Stage::RemoveOneOfTwo()
{
    PressKey(VK_DELETE);
    const HWND list = program_->Control(kList);
    EXPECT_TRUE(Until([&] { return SendMessageA(list, LB_GETCOUNT, 0, 0) == 1; }));
}

bool Stage::ClickOn(COLORREF color)
{
    const auto at = WaitForColor(program_->View(), color);
    if (!at) {
        return false;
    }
    Click(*at);
    return true;
}

bool Stage::ClickButton(const std::string& caption)
{
    const HWND button = program_->Button(caption);
    if (button == nullptr) {
        return false;
    }
    Click(CentreOf(button));
    return true;
}

bool Stage::WaitUntilLoaded(const std::string& path, DWORD within)
{
    return WaitForMenu(path, within) &&
           Until([&] { return Setting("Settings", "Last") == path; }, within) &&
           program_->Answers();
}

} // namespace nv::e2e
