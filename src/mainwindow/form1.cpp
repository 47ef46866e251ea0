#include "mainwindow/form1.h"

#include "docs/menu_line.h"
#include "docs/paths.h"
#include "mainwindow/help.h"
#include "mainwindow/link_click.h"
#include "platform/mark.h"
#include "support/nv_support.h"
#include "system/options.h"
#include "system/sopen.h"
#include "win32/screen.h"
#include "win32/window_text.h"

#include <new>

namespace nv
{

namespace
{

constexpr double kTitlePoints = 14;

Font TitleFont()
{
    Font font;
    font.size = kTitlePoints;
    font.bold = true;
    return font;
}

// The help context number of a window or else of what it stands in; 0: none.
std::uint32_t HelpContextAt(HWND window)
{
    DWORD context = 0;
    for (; window != nullptr && context == 0; window = GetParent(window)) {
        context = GetWindowContextHelpId(window);
    }
    return context;
}

} // namespace

Form1::Form1(MessagePump& pump, std::string programFolder, const Version& version,
             std::string supportAddress)
    : pump_(pump), programFolder_(std::move(programFolder)), helpFile_(HelpFile(programFolder_)),
      title_(WindowTitle(version.major, version.minor, version.revision)),
      supportAddress_(std::move(supportAddress)), scale_(PrimaryScreenScale()),
      text_(scale_, ProcessCodePage()), pictures_(scale_), comDial_(programFolder_),
      shellExe_(shell_, programFolder_), linkPictures_(shellExe_, pictures_),
      document_(files_, prompts_, settings_, pump_, *this, ProcessCodePage(), FormFont(),
                programFolder_),
      header_(text_, pictures_, ProcessCodePage()),
      strip_(text_, pictures_, [this](Command command) { Run(command); }),
      view_(text_, pictures_, linkPictures_, ProcessCodePage(), document_.Lines(),
            document_.DefaultFont()),
      panel_(text_, pictures_, document_, comDial_, [this](Command command) { Run(command); })
{
    prompts_.SetTitle(title_);
    header_.Pic().SetFont(TitleFont());
    panel_.UseChanged = [this] { UpdateButtons(); };
    panel_.LinesEdited = [this] { LinesEdited(); };
    panel_.MayEdit = [this] { return !busy_ && IsWindowEnabled(Handle()); };
    view_.FileDropped = [this](const std::string& path) {
        WhenFree([this, path] { document_.FOpen(path); });
    };
    view_.EntryClick = [this](std::uint32_t entry) { OnEntryClick(entry); };
    pump_.Filter = [this](MSG& message) { return FilterMessage(message); };
}

Form1::~Form1()
{
    pump_.Filter = nullptr;
}

// Commands

void Form1::WhenFree(Job job)
{
    if (busy_) {
        next_ = std::move(job);
        pump_.EndWork();
        return;
    }
    busy_ = true;
    while (job) {
        pump_.BeginWork();
        try {
            job();
        } catch (const std::bad_alloc&) {
            TellNoMemory();
        }
        if (Handle() == nullptr) {
            return; // the job was the end of the program
        }
        history_.Settle(document_.CutShort());
        job = NextJob();
    }
    busy_ = false;
    if (document_.FFile().empty() && mode_ == Mode::edit) {
        TMode(Mode::run); // there is nothing to edit that could be saved
    }
    view_.SetEmptyText(document_.FFile().empty() ? "No menu is open."
                                                 : "This menu has no entries to show.");
}

void Form1::TellNoMemory()
{
    prompts_.Ask("There is not enough memory for this menu.", PromptIcon::stop, PromptButtons::ok);
}

void Form1::WhenLoaded(Job job)
{
    if (busy_) {
        afterLoad_ = std::move(job);
    } else {
        WhenFree(std::move(job));
    }
}

Form1::Job Form1::NextJob()
{
    if (next_) {
        return std::exchange(next_, nullptr);
    }
    if (!document_.CutShort().empty()) {
        return [this, path = document_.CutShort()] { document_.OpenPDM(path); };
    }
    if (rebuildCutShort_) {
        return [this] { Rebuild(); };
    }
    return std::exchange(afterLoad_, nullptr);
}

void Form1::Run(Command command)
{
    if (!Available(command, CurrentFacts())) {
        return;
    }
    switch (command) {
    case Command::back:
        Back();
        break;
    case Command::revert:
        Revert();
        break;
    case Command::home:
        WhenFree([this, home = document_.Home()] { document_.FOpen(home); });
        break;
    case Command::normal:
        WhenLoaded([this] { Normal(); });
        break;
    case Command::edit:
        WhenLoaded([this] { TMode(Mode::edit); });
        break;
    case Command::saveMenu:
        WhenLoaded([this] {
            panel_.Editor().EndTyping();
            document_.SaveMenu();
        });
        break;
    case Command::setHome:
        WhenLoaded([this] { document_.SetThisMenuAsHomeMenu(); });
        break;
    case Command::insertNew:
    case Command::remove:
    case Command::moveUp:
    case Command::moveDown:
    case Command::changeFont:
    case Command::insertPath:
    case Command::browse:
    case Command::undo:
    case Command::redo:
        if (!busy_) {
            Edit(command);
        }
        break;
    case Command::openMenu:
        WhenFree([this] { ShowOpenMenu(false); });
        break;
    case Command::newMenu:
        WhenFree([this] { ShowOpenMenu(true); });
        break;
    case Command::options:
        WhenLoaded([this] { ShowOptions(); });
        break;
    case Command::help:
        WhenLoaded([this] { ShowHelp(); });
        break;
    case Command::helpPages:
        ShowHelpPage(); // at once: a dialog may be shown
        break;
    }
}

void Form1::ShowOpenMenu(bool create)
{
    menuOpened_ = false;
    Sopen({text_, pictures_, formFonts_, prompts_}, document_, files_, settings_, comDial_, create)
        .ShowModal(Handle());
    if (menuOpened_) {
        SetFocus(PanelInView()); // who opens a menu wants to use it, not the button that he pressed
    }
}

void Form1::ShowOptions()
{
    Options({text_, pictures_, formFonts_, prompts_}, settings_, [this](HWND owner) {
        ShowSupport(owner);
    }).ShowModal(Handle());
}

void Form1::ShowSupport(HWND owner)
{
    NVSupport({text_, pictures_, formFonts_, prompts_}, files_, comDial_, supportAddress_, title_)
        .ShowModal(owner);
}

void Form1::ShowHelp()
{
    if (helpFile_.empty()) {
        prompts_.Ask(kNoHelp, PromptIcon::information, PromptButtons::ok);
        return;
    }
    const bool editorAlone = mode_ == Mode::edit;
    if (const SystemError error =
            helpViewer_.ShowKeyword(Handle(), helpFile_, HelpKeyword(editorAlone))) {
        prompts_.Ask(files_.Describe(error), PromptIcon::none, PromptButtons::ok);
    }
}

void Form1::ShowHelpPage()
{
    if (tellingNoHelp_) {
        return; // the key was pressed in the box below
    }
    const std::string page = HelpPage(programFolder_, HelpContextAt(GetFocus()));
    const bool there = FileExists(files_, page);
    ShellStartRequest request;
    request.owner = reinterpret_cast<WindowHandle>(prompts_.Owner());
    request.verb = "open";
    request.file = page;
    if (!there || shell_.StartByShell(request) <= kLastShellFailure) {
        const Mark telling(tellingNoHelp_);
        // Over another box, too, which then has to wait.
        const HWND owner = prompts_.Owner();
        prompts_.SetOwner(GetLastActivePopup(Handle()));
        prompts_.Ask(NoHelpPageText(page, there), PromptIcon::exclamation, PromptButtons::ok);
        prompts_.SetOwner(owner);
    }
}

void Form1::Back()
{
    if (history_.Empty()) {
        return;
    }
    // The step is taken when its turn comes: another request may take that before.
    WhenFree([this] {
        if (const auto path = history_.StepBack()) {
            document_.SetNoHistory();
            document_.FOpen(*path);
        }
    });
}

void Form1::Revert()
{
    // The file is the one of now: a load that this ends may leave the document without one.
    WhenFree([this, file = document_.FFile()] {
        document_.SetNoHistory();
        document_.FOpen(file);
    });
}

void Form1::Edit(Command command)
{
    MenuEditor& editor = panel_.Editor();
    switch (command) {
    case Command::insertNew:
        editor.InsertNew();
        return panel_.FocusNewEntry();
    case Command::remove:
        return editor.Remove();
    case Command::moveUp:
        return editor.MoveUp();
    case Command::moveDown:
        return editor.MoveDown();
    case Command::changeFont:
        return panel_.ChangeFont(Handle());
    case Command::insertPath:
        return panel_.InsertPath(Handle());
    case Command::browse:
        return panel_.Browse(Handle());
    case Command::undo:
        return editor.Undo();
    case Command::redo:
        return editor.Redo();
    default:
        return;
    }
}

void Form1::Normal()
{
    TMode(Mode::run);
    // A save clears the mark, too, and the column still is that of before.
    if (document_.MCh() || columnStale_) {
        Rebuild();
    }
}

// Builds the column from the edited lines. May re-enter.
void Form1::Rebuild()
{
    rebuildCutShort_ = false;
    rebuildCutShort_ = !LinesRebuilt();
    if (!rebuildCutShort_) {
        document_.SetMCh(false);
    }
}

void Form1::TMode(Mode mode)
{
    if (mode == Mode::edit && !CreatePanel()) {
        prompts_.Ask("The editor cannot be shown: there are no more windows to be had.",
                     PromptIcon::stop, PromptButtons::ok);
        return;
    }
    const Mode left = std::exchange(mode_, mode);
    if (left == Mode::edit && mode != Mode::edit) {
        panel_.Editor().Leave();
    }
    // The one to come first, so that the keyboard never stays in a hidden window.
    if (mode == Mode::run) {
        ShowWindow(view_.Handle(), SW_SHOW);
        SetFocus(view_.Handle());
        panel_.Hide();
        view_.Pane().SC();
    } else if (mode == Mode::edit) {
        panel_.Editor().Enter();
        panel_.Show();
        ShowWindow(view_.Handle(), SW_HIDE);
    } else {
        ShowWindow(view_.Handle(), SW_HIDE);
        panel_.Hide();
    }
    UpdateButtons();
}

HWND Form1::PanelInView() const
{
    return mode_ == Mode::edit ? panel_.ItemListWindow() : view_.Handle();
}

// Rows of the column stand for lines that may be gone.
void Form1::LinesEdited()
{
    if (!columnStale_) {
        columnStale_ = true;
        view_.Pane().FClear();
    }
}

void Form1::OnEntryClick(std::uint32_t entry)
{
    const std::string command = DecodeLine(document_.Lines()[entry], document_.DefaultFont()).link;
    const auto owner = reinterpret_cast<WindowHandle>(Handle());
    if (const auto menu = MenuToOpen(shellExe_, owner, command)) {
        WhenFree([this, path = *menu] { document_.FOpen(path); });
    } else {
        LaunchLink(shellExe_, owner, command);
    }
}

Facts Form1::CurrentFacts() const
{
    Facts facts;
    facts.locked = locked_;
    facts.fileOpen = !document_.FFile().empty();
    facts.homeSet = !document_.Home().empty();
    facts.editing = mode_ == Mode::edit;
    facts.fontInUse = panel_.Editor().Use().changeFont;
    facts.browseInUse = panel_.Editor().Use().browse;
    facts.canUndo = panel_.Editor().CanUndo();
    facts.canRedo = panel_.Editor().CanRedo();
    return facts;
}

void Form1::UpdateButtons()
{
    const Facts facts = CurrentFacts();
    strip_.SetFacts(facts);
    panel_.SetFacts(facts);
}

// What the document reports

void Form1::Leaving(const std::string& path)
{
    history_.Append(path);
}

void Form1::Cleared()
{
    rebuildCutShort_ = false;
    view_.SetEmptyText("");
    view_.Pane().FClear();
    panel_.Editor().Cleared();
}

void Form1::TitleChanged(const std::string& fileName)
{
    header_.SetCaption(fileName);
    view_.SetMenuName(fileName);
}

void Form1::Opened(const std::string& path)
{
    menuOpened_ = true;
    history_.Opened(path);
}

bool Form1::LinesRebuilt()
{
    try {
        if (!view_.Pane().LoadFields(pump_)) {
            return false;
        }
    } catch (const std::bad_alloc&) {
        view_.Pane().FClear(); // rows of a part of the lines would outlive an edit
        throw;
    }
    columnStale_ = false;
    panel_.Editor().Loaded();
    OnSize();
    return true;
}

void Form1::FileChanged(const std::string& path)
{
    UpdateButtons();
    UpdateCaption();
    if (path.empty()) {
        TitleChanged("");
    }
}

void Form1::UnsavedChanged()
{
    UpdateCaption();
}

// The system shows it when the session is to end meanwhile.
void Form1::AskingToSave(bool asking)
{
    if (asking) {
        ShutdownBlockReasonCreate(Handle(), L"Navrix Menu has unsaved changes");
    } else {
        ShutdownBlockReasonDestroy(Handle());
    }
}

void Form1::UpdateCaption()
{
    const std::string& path = document_.FFile();
    const std::string menu = path.empty() ? "" : " - " + path;
    SetTextOf(Handle(), title_ + menu + (document_.UnsavedChanges() ? " *" : ""));
}

void Form1::HomeChanged(const std::string&)
{
    UpdateButtons();
}

} // namespace nv
