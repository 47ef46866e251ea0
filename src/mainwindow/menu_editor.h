#pragma once

#include "docs/menu_document.h"
#include "docs/menu_item.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace nv
{

// What the editor asks of the panel that shows it. Nothing here may call back into the editor's
// changing functions: they do nothing meanwhile, so that a box which reports that it was filled
// writes nothing back. All lines that a command changes are changed when the first of these is
// raised; Selected() follows with SelectionChanged.
class EditorView
{
public:
    virtual ~EditorView() = default;
    // The item list is another one: Count(), all texts and Selected() are new.
    virtual void ItemsReplaced() = 0;
    // The item list has a new entry at index; it lost the one at index. What is selected is told
    // by SelectionChanged, which follows.
    virtual void ItemInserted(std::size_t index) = 0;
    virtual void ItemRemoved(std::size_t index) = 0;
    // The texts of the items first to last (included) are others.
    virtual void ItemsChanged(std::size_t first, std::size_t last) = 0;
    virtual void SelectionChanged() = 0;
    // Fields() or Use() changed other than by what the panel just reported.
    virtual void FieldsChanged() = 0;
    // The document's lines are no longer those that the column was built from.
    virtual void LinesChanged() = 0;
};

// Which of the panel's fields and buttons the chosen type leaves in use.
struct FieldUse {
    bool caption = true; // label and box
    bool command = true; // label and box
    bool changeFont = true;
    bool browse = true; // both buttons
    bool operator==(const FieldUse&) const = default;
};

// The menu editor without its windows: the item list (List3) with its selection, the fields of the
// edit panel, which always describe one entry, and the commands that change the document's lines.
// The item list has no texts of its own: item k is derived from line k, so that the two cannot
// differ. Every change is written at once into the lines and marks the document changed.
class MenuEditor
{
public:
    // Both must outlive the editor.
    MenuEditor(EditorView& view, MenuDocument& document);

    // The item list. Empty from Cleared() to Loaded(): nothing can be edited then.
    std::size_t Count() const;
    // The text of item index (which must exist), of one line or more as its caption has.
    std::string ItemText(std::size_t index) const;
    std::optional<std::size_t> Selected() const { return selected_; }
    // Selects an item and fills the fields from its line, or selects none; then they keep what they
    // hold. An index that does not exist selects none.
    void Select(std::optional<std::size_t> index);

    // What the fields hold. The texts are those of the entry until the user types others.
    const MenuItem& Fields() const { return fields_; }
    FieldUse Use() const;
    // The type box's choice changed (Use() may have, too); the caption box's text; the command
    // box's text. Each is written into the selected entry (UpdateCurrentItem). Without a selection
    // they change the fields only.
    void SetType(ItemType type);
    void SetCaption(std::string caption);
    void SetLink(std::string link);
    // After the font dialog, confirmed or not: what the caption box has now. A size above 100
    // points is cut to 100.
    void SetFont(const Font& font, Color color);
    // Typing that follows is another step for Undo.
    void EndTyping();

    void InsertNew();
    void Remove();
    void MoveUp();
    void MoveDown();
    // Moves the selected entry to stand before the entry that is at gap now (Count(): to the end),
    // and keeps it selected.
    void MoveTo(std::size_t gap);
    // Inserts a link for each path before the entry that is at gap now; the path is quoted, the
    // caption is the file's name. One step for Undo; the last one is selected.
    void InsertFiles(const std::vector<std::string>& paths, std::size_t gap);

    // Take back the last step, and do it again. A change marks the document as any other does.
    bool CanUndo() const;
    bool CanRedo() const;
    void Undo();
    void Redo();

    // Edit mode begins: selects the item that was selected when it was left last, or the first.
    void Enter();
    // Edit mode ends: remembers the selected item.
    void Leave();
    // The document's lines are gone, and with them the steps for Undo.
    void Cleared();
    // The lines are whole and shown. In edit mode the item that was selected before is selected, or
    // the first; else nothing is. Steps for Undo stay.
    void Loaded();

private:
    enum class StepKind { insert, remove, move, set };
    // One change of the lines. The texts stand among the document's.
    struct Step {
        StepKind kind = StepKind::set;
        std::size_t index = 0;        // of the entry; move: where it was
        std::size_t to = 0;           // move: where it went
        std::string_view before = {}; // remove, set
        std::string_view after = {};  // insert, set
        std::optional<std::size_t> selectedBefore = std::nullopt; // insert
        bool joined = false; // done and taken back together with the step before it
    };
    enum class Typing { none, caption, link };

    bool MayChange() const { return loaded_ && !telling_; }
    MenuItem EntryOf(std::size_t index) const;
    void Reset(bool loaded);
    void UpdateCurrentItem(Typing typing);
    void Retype(const std::string& line);
    void Insert(std::size_t index, const std::vector<std::string_view>& texts);
    void BeginChange(std::size_t steps);
    void Record(const Step& step);
    void Apply(const Step& step, bool forward);
    void TellSteps(std::size_t first, std::size_t end, bool forward);
    void TellStep(const Step& step, bool forward);
    void TellRewritten();
    void TellFields();
    std::optional<std::size_t> SelectionAfter(const Step& step, bool forward) const;

    EditorView& view_;
    MenuDocument& document_;
    MenuItem fields_;
    std::optional<std::size_t> selected_;
    std::optional<std::size_t> remembered_; // what was selected when edit mode was left
    std::optional<std::size_t> cleared_;    // ... when the lines went
    bool editing_ = false;                  // from Enter() to Leave()
    std::vector<Step> journal_;
    std::size_t done_ = 0;         // steps that were not taken back; the others can be done again
    Typing typing_ = Typing::none; // the field whose typing the last step still takes up
    bool loaded_ = false;
    bool telling_ = false; // the view is being told
};

} // namespace nv
