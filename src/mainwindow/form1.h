#pragma once

#include "controls/kel_pic_window.h"
#include "docs/menu_document.h"
#include "mainwindow/commands.h"
#include "mainwindow/edit_panel.h"
#include "mainwindow/history.h"
#include "mainwindow/link_pictures.h"
#include "mainwindow/menu_view.h"
#include "mainwindow/start_up.h"
#include "mainwindow/tool_strip.h"
#include "system/com_dial.h"
#include "system/form_fonts.h"
#include "system/regis.h"
#include "win32/gdi_text.h"
#include "win32/help_viewer.h"
#include "win32/message_boxes.h"
#include "win32/message_pump.h"
#include "win32/mouse_presses.h"
#include "win32/pictures.h"
#include "win32/win_files.h"
#include "win32/win_shell.h"
#include "win32/window.h"

#include <functional>
#include <optional>
#include <string>

namespace nv
{

// The main window. It owns all that lives longer than a dialog: the open document, the history of
// menus, the toolbar, the view, the editor.
class Form1 final : public Window, private DocumentEvents
{
public:
    struct Version {
        int major;
        int minor;
        int revision;
    };
    // programFolder: without closing backslash, unless it is a drive root. supportAddress: where
    // users mail their trouble tickets. pump must outlive this.
    Form1(MessagePump& pump, std::string programFolder, const Version& version,
          std::string supportAddress);
    ~Form1() override;

    // Creates and shows the window and opens the first menu, in the program's fixed order.
    // arguments: of the command line, whole. showCommand: how the starter wants the window. False:
    // the program is to end. May re-enter.
    bool StartUp(std::string_view arguments, int showCommand);

    const MenuDocument& Document() const { return document_; }
    MenuView& View() { return view_; }
    EditPanel& Panel() { return panel_; }

protected:
    std::optional<LRESULT> Route(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    // What the window does, each runnable while a menu loads: see WhenFree.
    using Job = std::function<void()>;
    // Runs job now; while a menu loads, ends that load first and runs job when it has unwound, so
    // that loads never run inside each other. Of several jobs the last one is run. A load that was
    // ended for a job that opened nothing begins again.
    void WhenFree(Job job);
    void TellNoMemory(); // may re-enter
    // Runs job now or, while a menu loads, after the load.
    void WhenLoaded(Job job);
    // What is to run next of all that was asked for; nothing.
    Job NextJob();

    bool CheckLauncher();
    bool CreateWindows();
    bool CreatePanel();
    void Place();
    void OpenFirstMenu(const std::string& filePart);

    void Run(Command command);
    Facts CurrentFacts() const;
    void UpdateButtons();
    void UpdateCaption();
    // The dialogs. May re-enter.
    void ShowOpenMenu(bool create);
    void ShowOptions();
    void ShowSupport(HWND owner);
    // The help: in the viewer of help files; as pages in the browser. May re-enter.
    void ShowHelp();
    void ShowHelpPage();
    void Back();
    void Revert();
    void Normal();
    void Rebuild();
    void Edit(Command command);
    void LinesEdited();
    void OnEntryClick(std::uint32_t entry);
    // The panels P2 and P3: one is shown, or neither.
    enum class Mode { run = 0, edit = 1, none = 2 };
    // May re-enter, when there are no windows to be had for the editor.
    void TMode(Mode mode);
    // The window in it that takes the keyboard.
    HWND PanelInView() const;

    bool FilterMessage(MSG& message);
    bool OnKeyDown(const MSG& message);
    void OnSize();
    void OnClose();
    bool OnQueryEndSession(bool forced);
    void OnEndSession(bool forced);
    void OnDestroy();
    void StorePlacement();
    void OnActivate(bool active);
    void OnGetMinMaxInfo(MINMAXINFO& info);

    void Leaving(const std::string& path) override;
    void Cleared() override;
    void TitleChanged(const std::string& fileName) override;
    void Opened(const std::string& path) override;
    bool LinesRebuilt() override;
    void FileChanged(const std::string& path) override;
    void UnsavedChanged() override;
    void AskingToSave(bool asking) override;
    void HomeChanged(const std::string& path) override;

    MousePresses mousePresses_;
    MessagePump& pump_;
    std::string programFolder_;
    std::string helpFile_;
    std::string title_;
    std::string supportAddress_;
    ScreenScale scale_;
    WinFiles files_;
    Regis settings_;
    WinShell shell_;
    MessageBoxes prompts_;
    FormFonts formFonts_;
    GdiText text_;
    Pictures pictures_;
    ComDial comDial_;
    HelpViewer helpViewer_;
    ShellExe shellExe_;
    LinkPictures linkPictures_;
    MenuDocument document_;
    History history_;
    KelPicWindow header_;
    ToolStrip strip_;
    MenuView view_;
    EditPanel panel_;
    Twips nonClientHeight_ = 0;    // what frame and caption add to the window's height
    std::optional<SIZE> minTrack_; // pixels; nothing until start-up is done
    HWND lastFocus_ = nullptr;     // the child that had the keyboard when the window lost it
    Job next_;                     // ends the load that runs
    Job afterLoad_;                // waits for its end
    Mode mode_ = Mode::none;
    bool locked_ = false;
    bool busy_ = false;
    bool columnStale_ = false;     // the lines were edited since the column was built
    bool menuOpened_ = false;      // since a dialog was shown
    bool tellingNoHelp_ = false;   // the box about it is shown
    bool rebuildCutShort_ = false; // the building of the column from edited lines was ended
};

} // namespace nv
