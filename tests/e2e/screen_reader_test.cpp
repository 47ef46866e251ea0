// What a screen reader finds: another process that asks for names, roles, states and the focus, and
// acts without mouse and keys.
#include "e2e/stage.h"

#include <windows.h>

#include <cstring>
#include <oleacc.h>

namespace nv::e2e
{

namespace
{

VARIANT Part(LONG number)
{
    VARIANT part = {};
    part.vt = VT_I4;
    part.lVal = number;
    return part;
}

// A window's IAccessible.
class Reader
{
public:
    explicit Reader(HWND window)
    {
        EXPECT_EQ(AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT),
                                             __uuidof(IAccessible),
                                             reinterpret_cast<void**>(&object_)),
                  S_OK);
    }
    ~Reader() { object_->Release(); }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    IAccessible* operator->() const { return object_; }
    LONG Count() const
    {
        LONG count = -1;
        object_->get_accChildCount(&count);
        return count;
    }
    std::wstring Name(LONG part = 0) const { return Text(&IAccessible::get_accName, part); }
    std::wstring Action(LONG part = 0) const
    {
        return Text(&IAccessible::get_accDefaultAction, part);
    }
    std::wstring Description(LONG part = 0) const
    {
        return Text(&IAccessible::get_accDescription, part);
    }
    LONG Role(LONG part = 0) const { return Number(&IAccessible::get_accRole, part); }
    LONG State(LONG part = 0) const { return Number(&IAccessible::get_accState, part); }
    bool Has(LONG state, LONG part = 0) const { return (State(part) & state) == state; }
    // -1: nothing in the window has the keyboard.
    LONG Focus() const
    {
        VARIANT focus = {};
        object_->get_accFocus(&focus);
        return focus.vt == VT_I4 ? focus.lVal : -1;
    }
    // Of the part's middle, as the window finds it again.
    LONG Found(LONG part) const
    {
        LONG left = 0;
        LONG top = 0;
        LONG width = 0;
        LONG height = 0;
        VARIANT found = {};
        object_->accLocation(&left, &top, &width, &height, Part(part));
        object_->accHitTest(left + width / 2, top + height / 2, &found);
        return found.vt == VT_I4 ? found.lVal : -1;
    }
    HRESULT Act(LONG part = 0) const { return object_->accDoDefaultAction(Part(part)); }

private:
    std::wstring Text(HRESULT (STDMETHODCALLTYPE IAccessible::*get)(VARIANT, BSTR*),
                      LONG part) const
    {
        BSTR text = nullptr;
        (object_->*get)(Part(part), &text);
        const std::wstring result(text != nullptr ? text : L"");
        SysFreeString(text);
        return result;
    }
    LONG Number(HRESULT (STDMETHODCALLTYPE IAccessible::*get)(VARIANT, VARIANT*), LONG part) const
    {
        VARIANT value = {};
        (object_->*get)(Part(part), &value);
        return value.vt == VT_I4 ? value.lVal : -1;
    }

    IAccessible* object_ = nullptr;
};

} // namespace

class ScreenReader : public Stage
{
protected:
    void SetUp() override
    {
        CoInitialize(nullptr);
        Stage::SetUp();
    }
    void TearDown() override
    {
        Stage::TearDown();
        CoUninitialize();
    }
};

TEST_F(ScreenReader, ListsTheEntries)
{
    std::vector<Entry> entries = {
        {kTitle, "F\xFCr alle", ""},
        {kLabel, "Za\xBF\xF3\xB3\xE6\x01second", "", 0, "16", "Tahoma", EASTEUROPE_CHARSET},
        {kLine, "", ""},
        {kLink, "A & B", "prog.exe -x"},
        {kSpace, "", ""},
        {kLink, "", "C:\\tools\\edit.exe"},
        {kLink, "", "plain.exe"}};
    entries.resize(107, {kLink, "Last", "x"});
    Program& program = Open(WriteMenu("Start.nvm", entries));
    const Reader view(program.View());
    const struct {
        LONG role;
        const wchar_t* name;
        const wchar_t* description;
        const wchar_t* action;
    } expected[] = {
        {ROLE_SYSTEM_LIST, L"Start.nvm", L"", L""},
        {ROLE_SYSTEM_STATICTEXT, L"F\u00FCr alle", L"", L""},
        {ROLE_SYSTEM_STATICTEXT, L"Za\u017C\u00F3\u0142\u0107 second", L"", L""},
        {ROLE_SYSTEM_SEPARATOR, L"Line", L"", L""},
        {ROLE_SYSTEM_LINK, L"A & B", L"prog.exe -x", L"Open"},
        {ROLE_SYSTEM_LINK, L"edit.exe", L"C:\\tools\\edit.exe", L"Open"},
        {ROLE_SYSTEM_LINK, L"plain.exe", L"plain.exe", L"Open"},
        {ROLE_SYSTEM_LINK, L"Last", L"x", L"Open"},
    };
    EXPECT_EQ(view.Count(), 106); // a gap is no entry
    LONG part = 0;
    for (const auto& each : expected) {
        SCOPED_TRACE(part);
        EXPECT_EQ(view.Role(part), each.role);
        EXPECT_EQ(view.Name(part), each.name);
        EXPECT_EQ(view.Description(part), each.description);
        EXPECT_EQ(view.Action(part), each.action);
        EXPECT_FALSE(view.Has(STATE_SYSTEM_OFFSCREEN, part));
        EXPECT_EQ(part == 0 ? 0 : view.Found(part), part);
        ++part;
    }
    EXPECT_TRUE(view.Has(STATE_SYSTEM_OFFSCREEN | STATE_SYSTEM_FOCUSABLE, 106));
    VARIANT end = {};
    EXPECT_EQ(view->accNavigate(NAVDIR_NEXT, Part(105), &end), S_OK);
    EXPECT_EQ(end.lVal, 106);
    EXPECT_EQ(view->accNavigate(NAVDIR_NEXT, Part(106), &end), S_FALSE);
    const Reader header(FindWindowExA(program.Window(), nullptr, "NavrixKelPic", nullptr));
    EXPECT_EQ(header.Name(), L"Start.nvm");
    EXPECT_EQ(header.Role(), ROLE_SYSTEM_STATICTEXT);
}

TEST_F(ScreenReader, FindsTheFocus)
{
    std::vector<Entry> entries(40, {kLink, "Link", "x"});
    entries.front().type = kTitle;
    Program& program = Open(WriteMenu("Start.nvm", entries));
    const Reader view(program.View());
    std::vector<LONG> told; // by events, which come through this thread's queue
    static std::vector<LONG>* events = nullptr;
    events = &told;
    const HWINEVENTHOOK hook = SetWinEventHook(
        EVENT_OBJECT_FOCUS, EVENT_OBJECT_FOCUS, nullptr,
        [](HWINEVENTHOOK, DWORD, HWND window, LONG object, LONG part, DWORD, DWORD) {
            if (object == OBJID_CLIENT && ClassOf(window) == "NavrixMenuView") {
                events->push_back(part);
            }
        },
        0, 0, WINEVENT_OUTOFCONTEXT);
    const auto focusIs = [&](LONG part) {
        return Until([&] { return view.Focus() == part; }) &&
               view.Has(STATE_SYSTEM_FOCUSED | STATE_SYSTEM_FOCUSABLE, part) &&
               !view.Has(STATE_SYSTEM_FOCUSED, part - 1) && Until([&] {
                   MSG message = {};
                   while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
                       DispatchMessageA(&message);
                   }
                   return !told.empty() && told.back() == part;
               });
    };
    EXPECT_TRUE(Until([&] { return view.Focus() == 2; }));
    PressKey(VK_DOWN);
    EXPECT_TRUE(focusIs(3));
    PressKey(VK_TAB);
    EXPECT_TRUE(focusIs(4));
    PressKey(VK_END);
    EXPECT_TRUE(focusIs(40));
    EXPECT_FALSE(view.Has(STATE_SYSTEM_OFFSCREEN, 40));
    EXPECT_EQ(view->accSelect(SELFLAG_TAKEFOCUS, Part(2)), S_OK);
    EXPECT_TRUE(focusIs(2));
    EXPECT_EQ(view->accSelect(SELFLAG_TAKEFOCUS, Part(1)), E_INVALIDARG); // a title takes none
    PressKey(VK_TAB, {VK_SHIFT});
    EXPECT_TRUE(Until([&] { return view.Focus() == -1; }));
    const Reader button(program.Button(program.Focus()));
    EXPECT_EQ(button.Focus(), 0);
    EXPECT_TRUE(button.Has(STATE_SYSTEM_FOCUSED));
    UnhookWinEvent(hook);
}

TEST_F(ScreenReader, OpensLinksByTheirDefaultAction)
{
    const std::string other = WriteMenu("Other.nvm", {{kLabel, "Only this", ""}});
    Program& program = Open(WriteMenu("Start.nvm", {{kTitle, "Title", ""},
                                                    {kLink, "Run", Recorder("name")},
                                                    {kLink, "Gone", Path("Gone.nvm")},
                                                    {kLink, "Other", other}}));
    const Reader view(program.View());
    EXPECT_EQ(view.Act(2), S_OK);
    EXPECT_EQ(WaitForRecordedWord(), "name");
    // The call does not wait for the box that the start brings, and none goes past the box.
    EXPECT_EQ(view.Act(3), S_OK);
    const auto box = program.WaitForBox();
    ASSERT_TRUE(box);
    EXPECT_EQ(view.Act(2), E_ACCESSDENIED);
    EXPECT_TRUE(program.Answer(*box, "No"));
    EXPECT_EQ(view.Act(4), S_OK);
    ASSERT_TRUE(WaitUntilLoaded(other));
    EXPECT_FALSE(HasRecord());
    // What was held stands for the menu that is open now.
    EXPECT_EQ(view.Count(), 1);
    EXPECT_EQ(view.Name(), L"Other.nvm");
    EXPECT_EQ(view.Name(1), L"Only this");
    EXPECT_EQ(view.Act(2), E_INVALIDARG);
}

TEST_F(ScreenReader, KnowsButtonsAndFieldsOfBothModes)
{
    Program& program = Open(WriteMenu("Start.nvm", {{kLink, "One", "1.exe"}, {kLabel, "Two", ""}}));
    const auto switchBy = [&](const char* button, const char* focus) {
        EXPECT_EQ(Reader(program.Button(button)).Act(), S_OK);
        return program.WaitForFocus(focus);
    };
    ASSERT_TRUE(switchBy("Edit", "ListBox"));
    for (const char* caption : {"Home", "Edit", "Insert New"}) {
        SCOPED_TRACE(caption);
        const Reader button(program.Button(caption));
        EXPECT_EQ(button.Name(), std::wstring(caption, caption + std::strlen(caption)));
        EXPECT_EQ(button.Role(), ROLE_SYSTEM_PUSHBUTTON);
        EXPECT_EQ(button.Action(), L"Press");
        const bool enabled = IsWindowEnabled(program.Button(caption)) != 0;
        EXPECT_EQ(button.Has(STATE_SYSTEM_FOCUSABLE), enabled);
        EXPECT_EQ(button.Has(STATE_SYSTEM_UNAVAILABLE), !enabled);
    }
    const Reader insert(program.Button("Insert New"));
    const Reader list(program.Control(kList));
    ASSERT_TRUE(switchBy("Normal", "NavrixMenuView"));
    EXPECT_EQ(insert.Act(), E_ACCESSDENIED);
    EXPECT_TRUE(list.Has(STATE_SYSTEM_INVISIBLE));
    ASSERT_TRUE(switchBy("Edit", "ListBox"));
    EXPECT_TRUE(insert.Has(STATE_SYSTEM_FOCUSABLE));
    EXPECT_EQ(list.Name(), L"Entries");
    EXPECT_EQ(list.Role(), ROLE_SYSTEM_LIST);
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(list.Name(2), L"Type = vLabel, Caption = Two");
    EXPECT_EQ(list.Role(2), ROLE_SYSTEM_LISTITEM);
    EXPECT_EQ(list.Found(2), 2);
    EXPECT_EQ(list.Act(2), S_OK);
    EXPECT_TRUE(WaitForText(program.Control(kCaption), "Two"));
    EXPECT_TRUE(list.Has(STATE_SYSTEM_SELECTED | STATE_SYSTEM_FOCUSED, 2));
    EXPECT_FALSE(list.Has(STATE_SYSTEM_SELECTED, 1));
    // The platform takes the name of a field from the text before it.
    const std::pair<int, const char*> fields[] = {
        {kType, "Type:"}, {kCaption, "Caption:"}, {kCommand, "Command:"}};
    for (const auto& [field, name] : fields) {
        EXPECT_EQ(TextOf(GetWindow(program.Control(field), GW_HWNDPREV)), name);
    }
    EXPECT_EQ(Reader(program.Control(kCaption)).Name(), L"Caption:");
}

} // namespace nv::e2e
