#include "fakes/editor_model.h"
#include "fakes/fake_desk.h"
#include "mainwindow/menu_editor.h"

#include <gtest/gtest.h>
#include <random>
#include <set>

namespace nv
{
namespace
{

const char kMenu[] = "C:\\Menus\\Start.nvm";
using Texts = std::vector<std::string>;

Texts ItemTexts(const Texts& lines)
{
    Texts items;
    for (const std::string& line : lines) {
        const MenuItem item = DecodeLine(line, kDefaultFont);
        items.push_back(ListText(TypeName(item.type), item));
    }
    return items;
}

// A panel that knows the list and the fields only by what it was told, and reports every filling
// as if the user had typed.
struct Panel final : EditorView {
    MenuEditor* editor = nullptr;
    Texts items;
    std::optional<std::size_t> selected;
    MenuItem fields = kNewEntry;
    int linesChanged = 0;
    bool outOfMemory = false;

    void ItemsReplaced() override
    {
        items.resize(editor->Count());
        if (!items.empty()) {
            ItemsChanged(0, items.size() - 1);
        }
        selected = editor->Selected();
    }
    void ItemInserted(std::size_t index) override
    {
        items.insert(items.begin() + static_cast<int>(index), editor->ItemText(index));
    }
    void ItemRemoved(std::size_t index) override
    {
        items.erase(items.begin() + static_cast<int>(index));
    }
    void ItemsChanged(std::size_t first, std::size_t last) override
    {
        for (; first <= last; ++first) {
            items.at(first) = editor->ItemText(first);
        }
    }
    void SelectionChanged() override
    {
        selected = editor->Selected();
        editor->Select(0);
    }
    void FieldsChanged() override
    {
        fields = editor->Fields();
        editor->SetCaption("filled");
        editor->SetType(ItemType::vTitle);
    }
    void LinesChanged() override
    {
        ++linesChanged;
        if (outOfMemory) {
            throw std::bad_alloc();
        }
    }
};

struct EditorEvents final : FakeDocumentEvents {
    MenuEditor* editor = nullptr;
    void Cleared() override { editor->Cleared(); }
};

// A document with its editor and a panel.
struct Desk : FakeDesk<FakeFiles, EditorEvents> {
    Panel panel;
    MenuEditor editor{panel, document};

    explicit Desk(const Texts& fileLines)
    {
        panel.editor = events.editor = &editor;
        events.onRebuilt = [this] { editor.Loaded(); };
        std::string contents;
        for (const std::string& line : fileLines) {
            contents += line + "\r\n";
        }
        files.Put(kMenu, contents);
        EXPECT_TRUE(document.FOpen(kMenu));
    }
    Texts Lines() const
    {
        Texts lines;
        for (std::size_t index = 0; index < document.Lines().size(); ++index) {
            lines.emplace_back(document.Lines()[index]);
        }
        return lines;
    }
    int Selected() const { return editor.Selected() ? static_cast<int>(*editor.Selected()) : -1; }
};

// What the user can do, to an editor or to the model of one.
template <typename Editor, typename Index>
void Do(Editor& editor, char action, Index at, const MenuItem& told, const Texts& paths)
{
    action == 's'   ? editor.Select(at)
    : action == 'c' ? editor.SetCaption(told.caption)
    : action == 'l' ? editor.SetLink(told.link)
    : action == 't' ? editor.SetType(told.type)
    : action == 'f' ? editor.SetFont(told.font, told.fontColor)
    : action == '.' ? editor.EndTyping()
    : action == 'i' ? editor.InsertNew()
    : action == 'r' ? editor.Remove()
    : action == 'u' ? editor.MoveUp()
    : action == 'd' ? editor.MoveDown()
    : action == 'm' ? editor.MoveTo(at)
    : action == 'F' ? editor.InsertFiles(paths, at)
    : action == 'z' ? editor.Undo()
    : action == 'y' ? editor.Redo()
    : action == 'e' ? editor.Enter()
    : action == 'L' ? editor.Leave()
                    : editor.Loaded(); // the column was built again
}

Texts LetterLines(const std::string& letters)
{
    MenuItem item = kNewEntry;
    Texts lines;
    for (const char letter : letters) {
        item.caption = letter;
        lines.push_back(EncodeLine(item));
    }
    return lines;
}

// Does random things to an editor and to its model.
class RandomUser
{
public:
    // most: entries, after which there is more removed than inserted.
    RandomUser(unsigned seed, std::size_t most) : most_(most), random_(seed)
    {
        model_.now.lines = desk_.Lines();
    }

    void Act()
    {
        desk_.document.SetMCh(false);
        desk_.panel.linesChanged = 0;
        model_.marked = false;
        const Texts before = model_.now.lines;
        const std::string actions = "sscccccccccclltf.iirudmFzzzyyyeLo";
        char action = actions[Below(actions.size())];
        action = desk_.editor.Count() > most_ && (action == 'i' || action == 'F') ? 'r' : action;
        SCOPED_TRACE(action);
        const std::size_t at = Below(desk_.editor.Count() + 1);
        const Texts paths = {"C:\\Tools\\a b.exe", "D:\\", "C:\\Old\\"};
        const Texts some(paths.begin(), paths.begin() + static_cast<int>(Below(4)));
        const MenuItem told = Tell(action);
        Do(desk_.editor, action, at, told, some);
        Do(model_, action, static_cast<int>(at), told, some);
        EXPECT_EQ(desk_.document.MCh(), model_.marked);
        // Told once; not told of what stayed, but for two equal entries that changed places.
        EXPECT_LE(desk_.panel.linesChanged, model_.marked ? 1 : 0);
        EXPECT_GE(desk_.panel.linesChanged, before != model_.now.lines ? 1 : 0);
        Compare();
    }

private:
    std::size_t Below(std::size_t limit) { return random_() % limit; }

    void Compare() const
    {
        EXPECT_EQ(desk_.Lines(), model_.now.lines);
        EXPECT_EQ(desk_.Selected(), model_.now.selected);
        EXPECT_EQ(desk_.panel.selected, desk_.editor.Selected());
        EXPECT_TRUE(desk_.editor.Fields() == model_.fields);
        EXPECT_TRUE(desk_.panel.fields == model_.fields);
        EXPECT_EQ(desk_.panel.items, ItemTexts(model_.now.lines));
        EXPECT_EQ(desk_.editor.CanUndo(), !model_.done.empty());
        EXPECT_EQ(desk_.editor.CanRedo(), !model_.undone.empty());
    }
    // Changes the panel's field that action reports.
    const MenuItem& Tell(char action)
    {
        MenuItem& told = desk_.panel.fields;
        if (action == 't') {
            told.type = static_cast<ItemType>(Below(6));
        } else if (action == 'f' && Below(2) == 0) { // else the dialog is cancelled
            told.font.size = Below(3) == 0 ? 101 : static_cast<double>(8 + Below(20)) / 2;
            told.fontColor = static_cast<Color>(Below(3));
        } else if (action == 'c' || action == 'l') {
            std::string& text = action == 'c' ? told.caption : told.link;
            const Texts texts = {"", "two\r\nlines", "cut</CAPTION>", std::string("\0x", 2)};
            const bool shorter = !text.empty() && Below(2) == 0;
            text = Below(6) == 0 ? texts[Below(4)] : shorter ? text.substr(1) : "k" + text;
        }
        return told;
    }

    Desk desk_{{"", "7><CAPTION>of old</CAPTION>", "3><CAPTION>two\x01lines", "1>", "nothing",
                "4><FONTSIZE>200</FONTSIZE><LINK>unseen</LINK>"}};
    EditorModel model_;
    std::size_t most_;
    std::mt19937 random_;
};

TEST(MenuEditor, DoesWhatItsModelDoesWhateverTheUserDoes)
{
    for (unsigned seed = 1; seed <= 10; ++seed) {
        RandomUser user(seed, seed % 5 * 3); // few entries, too: every rule about the last ones
        for (int count = 0; count < 1000 && !testing::Test::HasFailure(); ++count) {
            SCOPED_TRACE("seed " + std::to_string(seed) + ", count " + std::to_string(count));
            user.Act();
        }
    }
}

TEST(MenuEditor, FieldsInUseFollowTheType)
{
    Desk desk({"0>", "1>", "2>", "3>", "4>", "5>", "6>", "9>"});
    const FieldUse all, text{true, false, true, false}, none{false, false, false, false};
    const FieldUse expected[] = {all, text, text, all, none, none, all, all};
    for (std::size_t index = 0; index < desk.editor.Count(); ++index) {
        desk.editor.Select(index);
        EXPECT_EQ(desk.editor.Use(), expected[index]) << index;
    }
}

TEST(MenuEditor, DoesNothingWhileNoMenuIsLoaded)
{
    Desk desk({"3><CAPTION>a"});
    desk.editor.Select(0);
    desk.editor.InsertNew();
    desk.editor.MoveUp();
    desk.editor.Undo();
    const Texts lines = desk.Lines();
    desk.document.SetMCh(false);
    desk.editor.Cleared();
    for (const char action : std::string("scltf.irudmFzyeL")) {
        Do(desk.editor, action, std::size_t{0}, MenuItem(), {"C:\\a.exe"});
    }
    EXPECT_EQ(desk.panel.items, Texts());
    EXPECT_EQ(desk.Selected(), -1);
    EXPECT_TRUE(desk.editor.Fields() == kNewEntry);
    EXPECT_EQ(desk.Lines(), lines);
    EXPECT_FALSE(desk.document.MCh());
    desk.editor.Loaded();
    EXPECT_FALSE(desk.editor.CanUndo() || desk.editor.CanRedo()); // of the menu before
}

TEST(MenuEditor, SelectsAnEntryOfAMenuThatComesWhileItIsShown)
{
    Desk desk(LetterLines("abcd"));
    desk.editor.Enter();
    desk.editor.Select(2);
    const std::pair<const char*, int> cases[] = {
        {"3>\r\n3>\r\n3>\r\n", 2}, {"3>\r\n", 0}, {"", -1}, {"3>\r\n3>\r\n", 0}};
    for (const auto& [menu, selected] : cases) {
        desk.files.Put(kMenu, menu);
        EXPECT_TRUE(desk.document.FOpen(kMenu));
        EXPECT_EQ(desk.Selected(), selected) << menu;
        EXPECT_EQ(desk.panel.selected, desk.editor.Selected());
    }
    desk.editor.Leave();
    EXPECT_TRUE(desk.document.FOpen(kMenu));
    EXPECT_EQ(desk.Selected(), -1);
}

TEST(MenuEditor, APanelOutOfMemoryLeavesStepsThatCanBeUndone)
{
    for (const char action : std::string("curiF")) {
        Desk desk(LetterLines("abc"));
        desk.editor.Select(1);
        desk.panel.outOfMemory = true;
        EXPECT_THROW(Do(desk.editor, action, std::size_t{0}, kNewEntry, {"D:\\", "E:\\"}),
                     std::bad_alloc);
        desk.panel.outOfMemory = false;
        const Texts changed = desk.Lines();
        desk.editor.SetLink("typed"); // into the changed entry or none, not into another
        EXPECT_EQ(desk.Lines() == changed, action != 'c');
        while (desk.editor.CanUndo()) {
            desk.editor.Undo();
        }
        EXPECT_EQ(desk.Lines(), LetterLines("abc")) << action;
    }
}

TEST(MenuEditor, TypingUsesTheSameMemoryAgain)
{
    for (const std::size_t length : {20u, 12000u, 100000u}) {
        MenuItem item = kNewEntry;
        item.caption.assign(length, 'a');
        const std::string original = EncodeLine(item);
        Desk desk({original});
        desk.editor.Select(0);
        std::set<const char*> places;
        const auto type = [&](std::size_t size) {
            desk.editor.SetCaption(std::string(size, 'a'));
            places.insert(desk.document.Lines()[0].data());
        };
        for (std::size_t key = 1; key <= 400; ++key) {
            type(length + key - key % 4);
        }
        // A freed block of its own may come back anywhere.
        for (int round = 0; length < 16000 && round < 100; ++round) {
            desk.editor.Undo(); // and what could be done again is dropped by the next key
            type(length + 400);
        }
        EXPECT_LE(places.size(), 3u) << length;
        type(length); // typed away: nothing to undo
        EXPECT_FALSE(desk.editor.CanUndo());
        desk.editor.InsertNew(); // a text that goes on where the typing ended
        EXPECT_EQ(desk.Lines(), Texts(2, original));
    }
}

} // namespace
} // namespace nv
