#include "mainwindow/menu_editor.h"

#include "docs/menu_line.h"
#include "docs/paths.h"
#include "platform/mark.h"
#include "platform/system_colors.h"

#include <algorithm>
#include <utility>

namespace nv
{

namespace
{

constexpr double kLargestSize = 100; // points

MenuItem NewEntry(const Font& font)
{
    MenuItem item;
    item.type = ItemType::vLink;
    item.font = font;
    item.fontColor = kWindowText;
    return item;
}

} // namespace

MenuEditor::MenuEditor(EditorView& view, MenuDocument& document)
    : view_(view), document_(document), fields_(NewEntry(document.DefaultFont()))
{
}

// The item list and its selection

std::size_t MenuEditor::Count() const
{
    return loaded_ ? document_.Lines().size() : 0;
}

MenuItem MenuEditor::EntryOf(std::size_t index) const
{
    return DecodeLine(document_.Lines()[index], document_.DefaultFont());
}

std::string MenuEditor::ItemText(std::size_t index) const
{
    const MenuItem item = EntryOf(index);
    return ListText(TypeName(item.type), item);
}

void MenuEditor::Select(std::optional<std::size_t> index)
{
    if (telling_) {
        return;
    }
    EndTyping();
    if (!index || *index >= Count()) {
        selected_.reset();
        const Mark telling(telling_);
        view_.SelectionChanged();
        return; // the fields keep what they hold
    }
    fields_ = EntryOf(*index);
    selected_ = index;
    {
        const Mark telling(telling_);
        view_.SelectionChanged();
    }
    TellFields();
}

void MenuEditor::Enter()
{
    editing_ = true;
    Select(remembered_ && *remembered_ < Count() ? remembered_ : 0);
}

void MenuEditor::Leave()
{
    EndTyping();
    editing_ = false;
    remembered_ = selected_;
}

void MenuEditor::Cleared()
{
    journal_.clear(); // its texts are gone with the lines
    done_ = 0;
    cleared_ = selected_ ? selected_ : cleared_;
    Reset(false);
}

void MenuEditor::Loaded()
{
    const auto before = selected_ ? selected_ : std::exchange(cleared_, std::nullopt);
    Reset(true);
    if (editing_) {
        Select(before && *before < Count() ? before : 0);
    }
}

void MenuEditor::Reset(bool loaded)
{
    EndTyping();
    loaded_ = loaded;
    selected_.reset();
    fields_ = NewEntry(document_.DefaultFont());
    {
        const Mark telling(telling_);
        view_.ItemsReplaced();
    }
    TellFields();
}

// The fields

FieldUse MenuEditor::Use() const
{
    switch (fields_.type) {
    case ItemType::vTitle:
    case ItemType::vLabel:
        return {.caption = true, .command = false, .changeFont = true, .browse = false};
    case ItemType::vSpace:
    case ItemType::vLine:
        return {.caption = false, .command = false, .changeFont = false, .browse = false};
    default:
        return {};
    }
}

void MenuEditor::SetType(ItemType type)
{
    if (MayChange()) {
        fields_.type = type;
        UpdateCurrentItem(Typing::none);
    }
}

void MenuEditor::SetCaption(std::string caption)
{
    if (MayChange()) {
        fields_.caption = std::move(caption);
        UpdateCurrentItem(Typing::caption);
    }
}

void MenuEditor::SetLink(std::string link)
{
    if (MayChange()) {
        fields_.link = std::move(link);
        UpdateCurrentItem(Typing::link);
    }
}

void MenuEditor::SetFont(const Font& font, Color color)
{
    if (!MayChange()) {
        return;
    }
    fields_.font = font;
    fields_.fontColor = color;
    if (font.size > kLargestSize) {
        fields_.font.size = kLargestSize;
        TellFields();
    }
    UpdateCurrentItem(Typing::none);
}

void MenuEditor::EndTyping()
{
    typing_ = Typing::none;
}

// Writes the fields into the selected entry. typing: the field that was typed into.
void MenuEditor::UpdateCurrentItem(Typing typing)
{
    if (typing != typing_) {
        EndTyping();
    }
    if (!selected_) {
        return;
    }
    document_.SetMCh(true);
    const std::string line = EncodeLine(fields_);
    MenuLines& lines = document_.Lines();
    const std::string_view before = lines[*selected_];
    if (line == before) {
        return;
    }
    if (typing_ != Typing::none) {
        Retype(line);
    } else {
        BeginChange(1);
        Record({.kind = StepKind::set,
                .index = *selected_,
                .before = before,
                .after = lines.Keep(line)});
        typing_ = typing;
    }
    TellRewritten();
}

// Another key of the typing that the last step holds: its own text is the only one to change.
void MenuEditor::Retype(const std::string& line)
{
    MenuLines& lines = document_.Lines();
    Step& step = journal_.back();
    if (line != step.before) {
        lines.Rewrite(step.index, line);
        step.after = lines[step.index];
        return;
    }
    // Typed away again: there is nothing to undo.
    lines.SetKept(step.index, step.before);
    lines.GiveBack(step.after);
    journal_.pop_back();
    done_ = journal_.size();
    EndTyping();
}

// The commands

void MenuEditor::InsertNew()
{
    if (MayChange()) {
        BeginChange(1);
        Insert(selected_ ? *selected_ + 1 : 0, {document_.Lines().Keep(EncodeLine(fields_))});
    }
}

void MenuEditor::InsertFiles(const std::vector<std::string>& paths, std::size_t gap)
{
    if (!MayChange() || paths.empty()) {
        return;
    }
    BeginChange(paths.size());
    std::vector<std::string_view> texts;
    texts.reserve(paths.size());
    MenuItem item = NewEntry(document_.DefaultFont());
    for (const std::string& path : paths) {
        item.caption = SplitPath(path, document_.Page()).fileName;
        if (item.caption.empty()) {
            item.caption = path; // a folder with its backslash, or a drive
        }
        item.link = "\"" + path + "\"";
        texts.push_back(document_.Lines().Keep(EncodeLine(item)));
    }
    Insert(std::min(gap, Count()), texts);
}

// Inserts texts, which stand among the document's, before entry index. One step for Undo.
void MenuEditor::Insert(std::size_t index, const std::vector<std::string_view>& texts)
{
    document_.Lines().MakeRoom(texts.size());
    const std::size_t first = done_;
    for (const std::string_view text : texts) {
        Record({.kind = StepKind::insert,
                .index = index + (done_ - first),
                .after = text,
                .selectedBefore = selected_,
                .joined = done_ != first});
    }
    TellSteps(first, done_, true);
}

void MenuEditor::Remove()
{
    if (!MayChange() || !selected_) {
        return;
    }
    BeginChange(1);
    Record(
        {.kind = StepKind::remove, .index = *selected_, .before = document_.Lines()[*selected_]});
    TellSteps(done_ - 1, done_, true);
}

void MenuEditor::MoveUp()
{
    if (selected_ && *selected_ > 0) {
        MoveTo(*selected_ - 1);
    }
}

void MenuEditor::MoveDown()
{
    if (selected_) {
        MoveTo(*selected_ + 2);
    }
}

void MenuEditor::MoveTo(std::size_t gap)
{
    if (!MayChange() || !selected_) {
        return;
    }
    const std::size_t from = *selected_;
    gap = std::min(gap, Count());
    const std::size_t to = gap > from ? gap - 1 : gap;
    if (to == from) {
        return;
    }
    BeginChange(1);
    Record({.kind = StepKind::move, .index = from, .to = to});
    TellSteps(done_ - 1, done_, true);
}

// Undo and redo

bool MenuEditor::CanUndo() const
{
    return done_ > 0;
}

bool MenuEditor::CanRedo() const
{
    return done_ < journal_.size();
}

void MenuEditor::Undo()
{
    if (!MayChange() || !CanUndo()) {
        return;
    }
    EndTyping();
    document_.SetMCh(true);
    const std::size_t end = done_;
    do {
        Apply(journal_[--done_], false);
    } while (journal_[done_].joined);
    TellSteps(done_, end, false);
}

void MenuEditor::Redo()
{
    if (!MayChange() || !CanRedo()) {
        return;
    }
    EndTyping();
    document_.SetMCh(true);
    const std::size_t first = done_;
    do {
        Apply(journal_[done_++], true);
    } while (CanRedo() && journal_[done_].joined);
    TellSteps(first, done_, true);
}

// Marks the document, forgets what could have been done again, and makes room for steps: recording
// them cannot fail then.
void MenuEditor::BeginChange(std::size_t steps)
{
    document_.SetMCh(true);
    EndTyping();
    while (CanRedo()) {
        // Made by this step, so nothing but later steps, which are gone, had a view of it. Nothing
        // was made by removals and moves.
        document_.Lines().GiveBack(journal_.back().after);
        journal_.pop_back();
    }
    if (journal_.capacity() - journal_.size() < steps) {
        journal_.reserve(std::max(journal_.size() + steps, journal_.capacity() * 2));
    }
}

void MenuEditor::Record(const Step& step)
{
    Apply(step, true);
    journal_.push_back(step);
    ++done_;
}

// Does a step or takes it back. Never fails where the lines have room; they have it for every step
// that was done before.
void MenuEditor::Apply(const Step& step, bool forward)
{
    MenuLines& lines = document_.Lines();
    switch (step.kind) {
    case StepKind::insert:
        forward ? lines.InsertKept(step.index, step.after) : lines.Remove(step.index);
        break;
    case StepKind::remove:
        forward ? lines.Remove(step.index) : lines.InsertKept(step.index, step.before);
        break;
    case StepKind::move:
        forward ? lines.Move(step.index, step.to) : lines.Move(step.to, step.index);
        break;
    case StepKind::set:
        lines.SetKept(step.index, forward ? step.after : step.before);
        break;
    }
}

// Telling the view

// Tells of the steps first to end (not included), which were done in this order or, not forward,
// taken back in the opposite one; then selects what they leave selected.
void MenuEditor::TellSteps(std::size_t first, std::size_t end, bool forward)
{
    // Should memory run out before the fields are filled again, they are no other entry's.
    selected_.reset();
    {
        const Mark telling(telling_);
        view_.LinesChanged();
        for (std::size_t told = 0; told < end - first; ++told) {
            TellStep(journal_[forward ? first + told : end - 1 - told], forward);
        }
    }
    Select(SelectionAfter(journal_[forward ? end - 1 : first], forward));
}

void MenuEditor::TellStep(const Step& step, bool forward)
{
    if (step.kind == StepKind::move) {
        view_.ItemsChanged(std::min(step.index, step.to), std::max(step.index, step.to));
    } else if (step.kind == StepKind::set) {
        view_.ItemsChanged(step.index, step.index);
    } else if ((step.kind == StepKind::insert) == forward) {
        view_.ItemInserted(step.index);
    } else {
        view_.ItemRemoved(step.index);
    }
}

std::optional<std::size_t> MenuEditor::SelectionAfter(const Step& step, bool forward) const
{
    switch (step.kind) {
    case StepKind::insert:
        return forward ? step.index : step.selectedBefore;
    case StepKind::remove:
        if (!forward || step.index + 1 < Count()) {
            return step.index;
        }
        // The entry above, even when one moved into the gap; none above the first.
        return step.index > 0 ? std::optional(step.index - 1) : std::nullopt;
    case StepKind::move:
        return forward ? step.to : step.index;
    case StepKind::set:
        break;
    }
    return step.index;
}

// The selected entry's line is another one.
void MenuEditor::TellRewritten()
{
    const Mark telling(telling_);
    view_.LinesChanged();
    view_.ItemsChanged(*selected_, *selected_);
}

void MenuEditor::TellFields()
{
    const Mark telling(telling_);
    view_.FieldsChanged();
}

} // namespace nv
