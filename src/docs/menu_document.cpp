#include "docs/menu_document.h"

#include "docs/line_reader.h"
#include "docs/menu_line.h"
#include "docs/paths.h"
#include "docs/safe_save.h"
#include "platform/byte_scan.h"
#include "platform/mark.h"
#include "platform/system_error.h"

#include <functional>
#include <new>
#include <utility>

namespace nv
{

namespace
{

constexpr char kStoredBreak = '\x01';
// So that no listing of "*.nvm" finds it.
constexpr char kUnsavedEnding[] = ".unsaved";
constexpr char kOldEndOfFile = '\x1A'; // ended the reading of a text file in programs of old

// Appends line as it stands in a file: each CR LF, then each LF, each CR and each code 26 left over
// is one stored break.
void AppendFileForm(std::string& form, std::string_view line)
{
    const char* at = line.data();
    const char* end = at + line.size();
    while (at != end) {
        const char* found = FindControl(at, end);
        form.append(at, found);
        if (found == end) {
            return;
        }
        const bool pair = *found == '\r' && end - found > 1 && found[1] == '\n';
        const bool coded = *found == '\r' || *found == '\n' || *found == kOldEndOfFile;
        form += coded ? kStoredBreak : *found;
        at = found + (pair ? 2 : 1);
    }
}

// As long as it lives, the user is being asked about unsaved changes.
class Asking
{
public:
    Asking(bool& asking, DocumentEvents& events) : mark_(asking), events_(events)
    {
        events_.AskingToSave(true);
    }
    ~Asking() { events_.AskingToSave(false); }
    Asking(const Asking&) = delete;
    Asking& operator=(const Asking&) = delete;

private:
    Mark mark_;
    DocumentEvents& events_;
};

} // namespace

MenuDocument::MenuDocument(Files& files, Prompts& prompts, Settings& settings, EventPump& pump,
                           DocumentEvents& events, const CodePage& codePage,
                           const Font& defaultFont, std::string programFolder)
    : files_(files), prompts_(prompts), settings_(settings), pump_(pump), events_(events),
      codePage_(codePage), defaultFont_(defaultFont), programFolder_(std::move(programFolder))
{
}

bool MenuDocument::FOpen(std::string path)
{
    const bool leavesStep = !std::exchange(noHistory_, false);
    if (loading_ || (unsaved_ && !OfferToSave())) {
        return false;
    }
    // Before the new path is looked at: a menu that then cannot be opened still is a step.
    if (leavesStep && !file_.empty()) {
        events_.Leaving(file_);
    }
    // Before the path is completed: that makes "com1.nvm" the name of a device.
    if (FileExtension(path) != "NVM") {
        prompts_.Ask("Cannot open: \"" + Shown(path) + "\"\n\nInvalid file extension!",
                     PromptIcon::exclamation, PromptButtons::ok);
        return false;
    }
    const std::string full = FullPath(path);
    if (!FileExists(files_, full)) {
        const Answer answer = prompts_.Ask("File " + Shown(path) +
                                               " does not exist.\n\n"
                                               "Would you like to create a new menu?",
                                           PromptIcon::exclamation, PromptButtons::yesNo);
        if (answer != Answer::yes || !CreateNewMenuFile(path)) {
            return false;
        }
    }
    return Open(full, path);
}

std::string MenuDocument::FullPath(const std::string& path) const
{
    return CompletePath(files_, path, programFolder_);
}

// The path is a copy because a load that stops empties FFile(), which it may have been.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
bool MenuDocument::OpenPDM(std::string path)
{
    return !loading_ && Open(path, path);
}

// given: the path as the user knows it.
bool MenuDocument::Open(const std::string& path, const std::string& given)
{
    SystemError error = 0;
    const bool opened = Load(path, error);
    if (error != 0) {
        TellFailure("Cannot open:", given, error);
    }
    if (opened) {
        TellOfUnsaved();
    }
    return opened;
}

bool MenuDocument::SavePDM(const std::string& path)
{
    // While a menu is being read the lines are a part of it, which must not get into any file.
    if (loading_) {
        return false;
    }
    if (path == file_ && ChangedByOthers()) {
        const Answer answer =
            prompts_.Ask("File " + Shown(path) +
                             " was changed by another program.\n\nDo you want to overwrite it?",
                         PromptIcon::exclamation, PromptButtons::noYes);
        if (answer != Answer::yes) {
            return false;
        }
    }
    const SystemError error = Write(path);
    if (error != 0) {
        TellFailure("Cannot save:", path, error);
        return false;
    }
    SetFFile(path);
    changed_ = false;
    SetUnsaved(false);
    RemoveUnsavedCopy();
    return true;
}

bool MenuDocument::ChangedByOthers()
{
    const FileState now = files_.State(file_);
    const bool same = now.size == known_.size && now.written == known_.written;
    if (!now.exists || !known_.exists || same) {
        return false;
    }
    return now.size != known_.size || !HoldsWhatIsKnown();
}

// False also when the file cannot be read: the user is rather asked once too often.
bool MenuDocument::HoldsWhatIsKnown()
{
    SystemError error = 0;
    const std::unique_ptr<File> file = files_.Open(file_, OpenMode::read, error);
    if (file == nullptr) {
        return false;
    }
    try {
        std::string contents;
        return ReadAll(*file, contents) == 0 &&
               (savedHash_ ? std::hash<std::string>()(contents) == *savedHash_
                           : lines_.SourceIs(contents));
    } catch (const std::bad_alloc&) {
        return false;
    }
}

bool MenuDocument::CreateNewMenuFile(const std::string& path)
{
    const std::string full = FullPath(path);
    MakeFolders(files_, SplitPath(full, codePage_).folder, codePage_);
    // A file that the listing did not show, but that is there, was not asked about: it stays.
    OpenMode mode = OpenMode::createNew;
    if (FileExists(files_, full)) {
        const Answer answer = prompts_.Ask("File: " + Shown(path) +
                                               " already exists.\n\n"
                                               "Do you want overwrite this file?",
                                           PromptIcon::exclamation, PromptButtons::noYes);
        if (answer != Answer::yes) {
            return false;
        }
        mode = OpenMode::overwrite;
    }
    SystemError error = 0;
    const std::unique_ptr<File> file = files_.Open(full, mode, error);
    if (file == nullptr || file->Close() != 0) {
        prompts_.Ask("New Menu Could Not Be Created!", PromptIcon::exclamation, PromptButtons::ok);
        return false;
    }
    if (full == file_) {
        known_ = files_.State(full); // it was this program that emptied it
    }
    return true;
}

void MenuDocument::SaveMenu()
{
    if (!file_.empty()) {
        SavePDM(file_);
    }
}

void MenuDocument::SetThisMenuAsHomeMenu()
{
    if (!file_.empty()) {
        // Ignored: the menu is home for this run at least.
        static_cast<void>(settings_.SetKeyValue("Settings", "Home", file_));
        SetHome(file_);
    }
}

bool MenuDocument::MayClose()
{
    // During a load the mark still belongs to the menu that was left, whose changes were asked
    // about then.
    return loading_ || !unsaved_ || (!asking_ && OfferToSave());
}

// What an earlier end of a session left there is moved aside: nobody has looked at it, perhaps.
void MenuDocument::KeepUnsaved()
{
    if (loading_ || !unsaved_ || keptUnsaved_ || file_.empty()) {
        return;
    }
    const std::string path = file_ + kUnsavedEnding;
    if (path != unsavedCopy_ && files_.Attributes(path).exists) {
        // Ignored: then it is written over.
        static_cast<void>(files_.Replace(path, FreeName(files_, file_, kUnsavedEnding)));
    }
    try {
        const std::string form = FileForm();
        SystemError error = 0;
        const std::unique_ptr<File> file = files_.Open(path, OpenMode::overwrite, error);
        if (file != nullptr) {
            unsavedCopy_ = path;
            // Ignored: a copy that others may read, too, is better than none.
            static_cast<void>(files_.CopyAccess(file_, path));
            keptUnsaved_ = file->Write(form.data(), form.size()) == 0 && file->Flush() == 0;
        }
    } catch (const std::bad_alloc&) {
        // There is nobody to tell.
    }
}

// The session did not end after all, and the changes are in the menu.
void MenuDocument::RemoveUnsavedCopy()
{
    if (!unsavedCopy_.empty()) {
        // Ignored: the next opening then tells of it.
        static_cast<void>(files_.Remove(std::exchange(unsavedCopy_, {})));
    }
}

// Once for each file that KeepUnsaved wrote: by its time.
void MenuDocument::TellOfUnsaved()
{
    const std::string path = file_ + kUnsavedEnding;
    const FileState state = files_.State(path);
    const std::string written = std::to_string(state.written);
    if (!state.exists || SettingText(settings_.GetKeyValue("Unsaved", file_, "")) == written) {
        return;
    }
    // Ignored: it is then told again.
    static_cast<void>(settings_.SetKeyValue("Unsaved", file_, written));
    prompts_.Ask("The last changes to this menu were not saved when Windows ended the session. "
                 "They are in the file:\n\n" +
                     Shown(path) + "\n\nTo use them, rename it so that its name ends in \".nvm\".",
                 PromptIcon::exclamation, PromptButtons::ok);
}

void MenuDocument::SetFFile(const std::string& path)
{
    file_ = path;
    events_.FileChanged(file_);
}

void MenuDocument::SetHome(const std::string& path)
{
    home_ = path;
    events_.HomeChanged(home_);
}

void MenuDocument::SetMCh(bool changed)
{
    changed_ = changed;
    if (changed) {
        keptUnsaved_ = false;
        SetUnsaved(true);
    }
}

void MenuDocument::SetUnsaved(bool unsaved)
{
    if (std::exchange(unsaved_, unsaved) != unsaved) {
        events_.UnsavedChanged();
    }
}

// Asks whether to save the changes and does it; false when the user or a failed save says stop.
bool MenuDocument::OfferToSave()
{
    const Asking asking(asking_, events_);
    const Answer answer =
        prompts_.Ask("Do you want to save the changes you made to \n\n" + Shown(file_) + "?",
                     PromptIcon::question, PromptButtons::yesNoCancel);
    if (answer == Answer::yes) {
        // A menu that never had a file has nowhere to go: its changes are dropped.
        return file_.empty() || SavePDM(file_);
    }
    return answer == Answer::no;
}

// The load itself. False with error set when the file could not be read; false and no error when
// the load was ended.
bool MenuDocument::Load(const std::string& path, SystemError& error)
{
    const std::unique_ptr<File> file = files_.Open(path, OpenMode::read, error);
    if (file == nullptr) {
        if (path == cutShort_) {
            cutShort_.clear(); // or it would be opened again, and fail, for ever
        }
        return false;
    }
    const Mark loading(loading_);
    // Of before the reading: what is written during it counts as changed by others.
    const FileState before = files_.State(path);
    cutShort_.clear();
    ClearLines();
    events_.TitleChanged(SplitPath(path, codePage_).fileName);
    if (!ReadLines(*file, error)) {
        BecomeNoDocument();
        cutShort_ = error == 0 ? path : "";
        return false;
    }
    // Ignored: all was read.
    static_cast<void>(file->Close());
    known_ = before;
    savedHash_.reset();
    return Show(path);
}

// False when the showing was ended. The document is that of the file all the same.
bool MenuDocument::Show(const std::string& path)
{
    SetFFile(path);
    events_.Opened(path);
    // From here on the lines are the file's, whether all of them come to be shown or not.
    changed_ = false;
    SetUnsaved(false);
    const bool shown = events_.LinesRebuilt();
    if (!shown) {
        cutShort_ = path;
    } else {
        // Ignored: that the next start does not find this menu is not worth a message.
        static_cast<void>(settings_.SetKeyValue("Settings", "Last", path));
    }
    return shown;
}

// False when the file could not be read (error says why) or was no longer wanted (error is 0).
bool MenuDocument::ReadLines(File& file, SystemError& error)
{
    try {
        return ReadMenuLines(file, lines_, pump_, error) == ReadOutcome::whole;
    } catch (const std::bad_alloc&) {
        error = kNotEnoughMemory;
        return false;
    }
}

SystemError MenuDocument::Write(const std::string& path)
{
    SafeSave save(files_, path);
    const SystemError error = save.Begin();
    if (error != 0) {
        return error;
    }
    events_.TitleChanged(SplitPath(path, codePage_).fileName);
    try {
        const std::string form = FileForm();
        const SystemError failure = save.Finish(form);
        if (failure == 0) {
            known_ = files_.State(path);
            savedHash_ = std::hash<std::string>()(form);
        }
        return failure;
    } catch (const std::bad_alloc&) {
        return kNotEnoughMemory;
    }
}

std::string MenuDocument::FileForm() const
{
    std::string form;
    const std::string empty = EncodeLine(DecodeLine({}, defaultFont_));
    std::size_t size = 0;
    for (std::size_t index = 0; index < lines_.size(); ++index) {
        size += (lines_[index].empty() ? empty.size() : lines_[index].size()) + 2;
    }
    form.reserve(size);
    for (std::size_t index = 0; index < lines_.size(); ++index) {
        // An entry that was an empty line gets the line that every other entry has.
        AppendFileForm(form, lines_[index].empty() ? std::string_view(empty) : lines_[index]);
        form += "\r\n";
    }
    return form;
}

void MenuDocument::ClearLines()
{
    lines_.Clear();
    unsavedCopy_.clear();
    events_.Cleared();
}

// After a load that stopped half way: with a file the next save would put the lines read so far, or
// none, in the place of a whole menu.
void MenuDocument::BecomeNoDocument()
{
    ClearLines();
    SetFFile({});
    changed_ = false;
    SetUnsaved(false);
}

// As it stands in a message box.
std::string MenuDocument::Shown(const std::string& path) const
{
    return ShortenedForBox(path, codePage_);
}

// message: "Cannot open:" or "Cannot save:".
void MenuDocument::TellFailure(const std::string& message, const std::string& path,
                               SystemError error)
{
    prompts_.Ask(message + "\n\n" + Shown(path) + "\n\n" + files_.Describe(error), PromptIcon::stop,
                 PromptButtons::ok);
}

} // namespace nv
