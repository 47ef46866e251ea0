#pragma once

#include "controls/kel_pic_window.h"
#include "mainwindow/command_buttons.h"
#include "mainwindow/item_list.h"
#include "mainwindow/menu_editor.h"
#include "system/com_dial.h"
#include "win32/window_text.h"

#include <windows.h>

#include <shellapi.h>

#include <functional>
#include <string>

namespace nv
{

// The edit panel P3: the item list, the fields of the selected entry and the editor's buttons. What
// they mean is MenuEditor's; the panel shows it and hands on what the user does.
class EditPanel final : public PaintedWindow, private EditorView
{
public:
    // All must outlive the panel. run: called when a button is pressed; may re-enter.
    EditPanel(GdiText& text, Pictures& pictures, MenuDocument& document, ComDial& comDial,
              std::function<void(Command)> run);

    // Creates the panel, hidden, for what the editor holds by then: until it is first shown the
    // panel need not be there.
    bool Create(HWND parent);
    // False for a panel that got only a part of its controls: it cannot be shown.
    bool IsCreated() const { return created_; }
    // Takes over the fonts that its controls were given.
    void FitFonts();
    MenuEditor& Editor() { return editor_; }
    const MenuEditor& Editor() const { return editor_; }
    void SetFacts(const Facts& facts) { buttons_.SetFacts(facts); }

    // Change Font, Browse for the caption box ("Insert Path") and for the command box. Each shows
    // a picker over owner: may re-enter.
    void ChangeFont(HWND owner);
    void InsertPath(HWND owner);
    void Browse(HWND owner);

    // The keyboard goes to what a new entry needs first: its caption, all selected, or its type.
    void FocusNewEntry();

    // The panel is shown now; the keyboard goes to its item list.
    void Show();
    void Hide();
    HWND ItemListWindow() const { return list_.Handle(); }
    // Keys that the caption box would take for itself though the window has a use for them: Tab
    // leaves it, Ctrl+A selects all. True: message was used up.
    bool OnCaptionKey(const MSG& message) const;

    // Other fields are in use than before; the lines are no longer those of the column.
    std::function<void()> UseChanged;
    std::function<void()> LinesEdited;
    // Whether entries may be dropped just now: not into a menu that loads, nor below a picker.
    std::function<bool()> MayEdit;

    // The controls, for who finds them by their number.
    enum Control { kItemList = 301, kTypeBox, kCaptionBox, kCommandBox };

protected:
    std::optional<LRESULT> RouteInput(UINT message, WPARAM wParam, LPARAM lParam) override;
    void Paint(Canvas& canvas, const TwipRect& clip) override;

private:
    bool CreateControls();
    HWND AddControl(const char* windowClass, const char* text, DWORD style, int id = 0);
    bool AddButton(std::size_t index);
    void OnSize();
    void LayFields(TwipRect area);
    void LayButtons(const TwipRect& client, Twips listTop);
    void MoveTo(HWND window, const TwipRect& area) const;
    LRESULT OnCommand(int control, int notification);
    LRESULT OnCaptionColor(HDC dc);
    LRESULT OnDropFiles(HDROP drop);
    void ShowCount();
    void FillFields();
    void ShowTitle(const std::string& title);
    bool FillBox(HWND box, const std::string& text, std::size_t longest);
    static bool MayInsertInto(HWND box);
    void ShowUse();
    void ShowCaptionFont();
    void InsertIntoBox(HWND box, const std::string& text);
    void InsertIntoCommand(const std::string& path);
    void LeaveCommandBox(const std::string& before);

    void ItemsReplaced() override;
    void ItemInserted(std::size_t index) override;
    void ItemRemoved(std::size_t index) override;
    void ItemsChanged(std::size_t first, std::size_t last) override;
    void SelectionChanged() override;
    void FieldsChanged() override;
    void LinesChanged() override;

    CodePage codePage_;
    MenuEditor editor_;
    ComDial& comDial_;
    CommandButtons buttons_;
    KelPicWindow title_; // KelPic1
    ItemList list_;
    // Owned by the panel's window.
    HWND typeLabel_ = nullptr;
    HWND typeBox_ = nullptr;
    HWND captionLabel_ = nullptr;
    HWND captionBox_ = nullptr;
    HWND commandLabel_ = nullptr;
    HWND commandBox_ = nullptr;
    FontHandle designFont_; // of the controls until they are given the window's
    FontHandle captionFont_;
    TwipRect titleArea_;
    // How the panel itself last left the command box, and what of it the next pick replaces.
    struct LeftBox {
        std::string text;
        BoxSelection selection;
        BoxSelection replaced;
    };
    LeftBox left_ = {};
    FieldUse shownUse_;
    bool created_ = false; // and has its controls
    bool filling_ = false; // the boxes are being filled: what they report is not the user's
};

} // namespace nv
