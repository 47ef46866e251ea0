// The object that a screen reader holds: it may be held longer than its window lives, and be asked
// when memory is short.
#include "win32/accessible.h"
#include "win32/window.h"

#include <windows.h>

#include <gtest/gtest.h>
#include <new>
#include <oleacc.h>

namespace nv
{
namespace
{

// A window of two parts.
class TwoParts final : public Window, private AccessibleSource
{
public:
    TwoParts()
    {
        Create({"NavrixTwoParts", WS_OVERLAPPEDWINDOW}, nullptr);
        // However the test was started: ShowWindow does as the starter says.
        SetWindowPos(Handle(), nullptr, 0, 0, 100, 100, SWP_SHOWWINDOW | SWP_NOZORDER);
    }

    AccessibleHost host;
    bool memoryIsShort = false;

protected:
    std::optional<LRESULT> Route(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        return message == WM_GETOBJECT ? host.OnGetObject(Handle(), *this, wParam, lParam)
                                       : std::nullopt;
    }

private:
    LONG ChildCount() const override { return 2; }
    LONG Role(LONG) const override { return ROLE_SYSTEM_LINK; }
    LONG State(LONG) const override { return STATE_SYSTEM_FOCUSABLE; }
    std::string Name(LONG part) const override
    {
        return memoryIsShort ? throw std::bad_alloc() : std::string(part == 2 ? "second" : "");
    }
    std::string DefaultAction(LONG part) const override { return part == 2 ? "Act" : ""; }
    void DoDefaultAction(LONG) override {}
};

VARIANT Part(LONG number, VARTYPE type = VT_I4)
{
    VARIANT part = {};
    part.vt = type;
    part.lVal = number;
    return part;
}

IAccessible* ObjectOf(HWND window)
{
    CoInitialize(nullptr);
    IAccessible* object = nullptr;
    AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                               reinterpret_cast<void**>(&object));
    return object;
}

TEST(Accessible, AnswersOnlyForWhatIsThere)
{
    TwoParts window;
    IAccessible* object = ObjectOf(window.Handle());
    ASSERT_NE(object, nullptr);
    BSTR text = nullptr;
    EXPECT_EQ(object->get_accName(Part(1), &text), S_FALSE);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(object->get_accName(Part(2), nullptr), E_POINTER);
    for (const VARIANT& part : {Part(3), Part(-1), Part(2, VT_BSTR)}) {
        VARIANT value = {};
        IDispatch* child = nullptr;
        LONG pixels[4] = {};
        EXPECT_EQ(object->get_accName(part, &text), E_INVALIDARG);
        EXPECT_EQ(object->get_accRole(part, &value), E_INVALIDARG);
        EXPECT_EQ(object->get_accState(part, &value), E_INVALIDARG);
        EXPECT_EQ(object->get_accChild(part, &child), E_INVALIDARG);
        EXPECT_EQ(object->accDoDefaultAction(part), E_INVALIDARG);
        EXPECT_EQ(object->accLocation(pixels, pixels + 1, pixels + 2, pixels + 3, part),
                  E_INVALIDARG);
    }
    EXPECT_EQ(object->accDoDefaultAction(Part(1)), DISP_E_MEMBERNOTFOUND);
    window.memoryIsShort = true;
    EXPECT_EQ(object->get_accName(Part(2), &text), E_OUTOFMEMORY);
    object->Release();
}

TEST(Accessible, OutlivesItsWindowForAsLongAsItIsHeld)
{
    IAccessible* object = nullptr;
    {
        TwoParts window;
        object = ObjectOf(window.Handle());
        ASSERT_NE(object, nullptr);
        IAccessible* again = ObjectOf(window.Handle());
        EXPECT_EQ(again, object) << "one for each window";
        again->Release();
    }
    LONG count = 0;
    BSTR text = nullptr;
    VARIANT value = {};
    IDispatch* parent = nullptr;
    EXPECT_EQ(object->get_accChildCount(&count), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object->get_accName(Part(2), &text), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object->get_accFocus(&value), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object->get_accParent(&parent), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object->accHitTest(0, 0, &value), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object->accDoDefaultAction(Part(2)), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object->Release(), 0u) << "somebody else still holds it";
}

} // namespace
} // namespace nv
