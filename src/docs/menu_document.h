#pragma once

#include "docs/menu_lines.h"
#include "platform/ansi_text.h"
#include "platform/event_pump.h"
#include "platform/files.h"
#include "platform/font.h"
#include "platform/prompts.h"
#include "platform/settings.h"

#include <optional>
#include <string>

namespace nv
{

// What the document reports; the windows listen.
class DocumentEvents
{
public:
    virtual ~DocumentEvents() = default;
    // Another menu is about to take the place of the one at path: a step for the history.
    virtual void Leaving(const std::string& path) = 0;
    // The entries are gone; nothing of the lines may be used any more.
    virtual void Cleared() = 0;
    // The file name to show as the menu's title.
    virtual void TitleChanged(const std::string& fileName) = 0;
    // The file at path was read whole.
    virtual void Opened(const std::string& path) = 0;
    // The lines are new: show them (LoadFields). May re-enter. False when the showing was ended
    // before its last line because it is no longer wanted.
    virtual bool LinesRebuilt() = 0;
    // The current file is another one (empty: none).
    virtual void FileChanged(const std::string& path) = 0;
    // UnsavedChanges() has changed.
    virtual void UnsavedChanged() = 0;
    // True: the user is being asked whether to save the changes; false: no longer.
    virtual void AskingToSave(bool asking) = 0;
    virtual void HomeChanged(const std::string& path) = 0;
};

// The one open menu document: its lines, its file, whether it was changed, and the operations that
// replace, create and save it. All paths are ANSI.
class MenuDocument
{
public:
    // The references must outlive the document.
    // defaultFont: of entries whose line names no font. programFolder: a full path.
    MenuDocument(Files& files, Prompts& prompts, Settings& settings, EventPump& pump,
                 DocumentEvents& events, const CodePage& codePage, const Font& defaultFont,
                 std::string programFolder);

    // Makes path the shown menu, asking first whether to save changes; true when it was opened. A
    // path that is not full begins at the program's folder; all that is kept of it is full.
    // Every refusal is told to the user in a message box, which quotes path as it is given. May
    // re-enter; must not be called while Loading().
    // path is a copy: what a caller passes (FFile(), a step of the history) may change meanwhile.
    bool FOpen(std::string path);
    // The path that FOpen and CreateNewMenuFile make of one that is not full.
    std::string FullPath(const std::string& path) const;
    // Reads the Menu file at path, which is full, and has it shown. False after telling the user
    // why it could not be read, or when the load was ended by the pump. What was cleared by then
    // stays cleared: the document is then empty and has no file, so that no save can put the
    // remains over a menu. May re-enter; must not be called while Loading().
    bool OpenPDM(std::string path);
    // Writes the lines to path, which is full; false after telling the user why it could not, and
    // the old file stands. Asks before it overwrites what another program has written there since
    // the menu was read or saved; No counts as a failure that was told. See SafeSave for what it is
    // safe from. Does nothing but return false while Loading(). May re-enter.
    bool SavePDM(const std::string& path);
    // Creates an empty Menu file and the folders above it, asking before it overwrites one; false
    // after telling the user that it could not, or when he does not want it. path: as for FOpen.
    // May re-enter.
    bool CreateNewMenuFile(const std::string& path);
    // The toolbar's "Save Menu": saves to the current file, if there is one. May re-enter.
    void SaveMenu();
    // The toolbar's "Set This Menu As Home Menu": does nothing without a current file.
    void SetThisMenuAsHomeMenu();
    // Asks about unsaved changes before the program ends: whatever MCh is since, a changed menu
    // stays one until it is saved. False: the program is to go on. While Loading() there is nothing
    // to ask about. While the user is being asked he is not asked a second time: false.
    bool MayClose();
    // The session ends and leaves no time to ask: writes a changed menu beside its file, where its
    // next opening tells the user of it. Does nothing when it has done so since the last change. A
    // failure is not told. Lets no events through.
    void KeepUnsaved();
    // The user is being asked whether to save.
    bool AskingToSave() const { return asking_; }

    // Full path of the current Menu file; empty when none.
    const std::string& FFile() const { return file_; }
    void SetFFile(const std::string& path);
    // Path of the home menu; empty when none.
    const std::string& Home() const { return home_; }
    void SetHome(const std::string& path);
    // The changed mark. Setting it also sets the unsaved-changes flag; clearing it does not clear
    // that: an edit followed by an undoing edit still counts as unsaved.
    bool MCh() const { return changed_; }
    void SetMCh(bool changed);
    bool UnsavedChanges() const { return unsaved_; }
    // The next FOpen leaves no step in the history, however it ends.
    void SetNoHistory() { noHistory_ = true; }

    // True from the clearing of the old menu to the end of the new one's load.
    bool Loading() const { return loading_; }
    // The path of the last load when the pump ended it; empty otherwise. Who ended it for a request
    // that then opened nothing can open this path again.
    const std::string& CutShort() const { return cutShort_; }
    const MenuLines& Lines() const { return lines_; }
    MenuLines& Lines() { return lines_; }
    const Font& DefaultFont() const { return defaultFont_; }
    const CodePage& Page() const { return codePage_; }

private:
    bool OfferToSave();
    bool Open(const std::string& path, const std::string& given);
    bool Load(const std::string& path, SystemError& error);
    bool ReadLines(File& file, SystemError& error);
    bool Show(const std::string& path);
    void TellOfUnsaved();
    void RemoveUnsavedCopy();
    bool ChangedByOthers();
    bool HoldsWhatIsKnown();
    SystemError Write(const std::string& path);
    std::string FileForm() const; // RCrLf's write list, joined as it stands in the file
    void ClearLines();
    void BecomeNoDocument();
    void SetUnsaved(bool unsaved);
    std::string Shown(const std::string& path) const;
    void TellFailure(const std::string& message, const std::string& path, SystemError error);

    Files& files_;
    Prompts& prompts_;
    Settings& settings_;
    EventPump& pump_;
    DocumentEvents& events_;
    CodePage codePage_;
    Font defaultFont_;
    std::string programFolder_;
    MenuLines lines_;
    std::string file_;
    std::string home_;
    std::string cutShort_;
    std::string unsavedCopy_; // what KeepUnsaved has written of this menu; empty: nothing
    FileState known_;         // of the file when it was read or saved last
    std::optional<std::size_t> savedHash_; // of what was saved last, if it was since the reading
    bool changed_ = false;
    bool unsaved_ = false;
    bool noHistory_ = false;
    bool loading_ = false;
    bool keptUnsaved_ = false; // the last changes stand beside the file
    bool asking_ = false;      // the user is being asked whether to save
};

} // namespace nv
