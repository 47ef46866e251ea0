#include "win32/accessible.h"

#include "win32/load_function.h"
#include "win32/process.h"

#include <windows.h>

#include <limits>
#include <new>
#include <ole2.h>
#include <oleacc.h>
#include <type_traits>

namespace nv
{

namespace
{

// Hardly ever does anybody ask.
struct OleFunctions {
    decltype(&LresultFromObject) lresultFromObject = nullptr;
    decltype(&AccessibleObjectFromWindow) objectFromWindow = nullptr;
    decltype(&SysAllocStringLen) allocString = nullptr;

    bool Load();
};

bool OleFunctions::Load()
{
    StartCom();
    return LoadFunction("oleacc.dll", "LresultFromObject", lresultFromObject) &&
           LoadFunction("oleacc.dll", "AccessibleObjectFromWindow", objectFromWindow) &&
           LoadFunction("oleaut32.dll", "SysAllocStringLen", allocString);
}

VARIANT Number(LONG value)
{
    VARIANT variant = {};
    variant.vt = VT_I4;
    variant.lVal = value;
    return variant;
}

} // namespace

bool TakesInput(HWND window)
{
    return IsWindowVisible(window) && IsWindowEnabled(window) &&
           IsWindowEnabled(GetAncestor(window, GA_ROOT));
}

void TellChange(DWORD event, HWND window, LONG part)
{
    NotifyWinEvent(event, window, OBJID_CLIENT, part);
}

// Objects of these interfaces end by Release only: they have no virtual destructor.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// The one IAccessible of the program. Children are told by their numbers and are no objects.
class AccessibleHost::Object final : public IAccessible
{
public:
    // The first reference is the caller's.
    Object(HWND window, AccessibleSource& source, const OleFunctions& ole)
        : window_(window), source_(&source), ole_(ole)
    {
    }
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    void Disconnect() { source_ = nullptr; }
    LRESULT Result(WPARAM wParam)
    {
        return ole_.lresultFromObject(__uuidof(IAccessible), wParam, this);
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        if (object == nullptr) {
            return E_POINTER;
        }
        const bool known = IsEqualIID(id, __uuidof(IUnknown)) ||
                           IsEqualIID(id, __uuidof(IDispatch)) ||
                           IsEqualIID(id, __uuidof(IAccessible));
        *object = known ? this : nullptr;
        if (known) {
            AddRef();
        }
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override
    {
        return static_cast<ULONG>(InterlockedIncrement(&references_));
    }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const LONG left = InterlockedDecrement(&references_);
        if (left == 0) {
            delete this;
        }
        return static_cast<ULONG>(left);
    }

    // Calls by name are for scripts, which do not come here.
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override
    {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override;
    HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) override;
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** object) override;
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override;
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* description) override;
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override;
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override;
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override;
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* children) override;
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) override;
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override;
    HRESULT STDMETHODCALLTYPE accSelect(LONG flags, VARIANT child) override;
    HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                          VARIANT child) override;
    HRESULT STDMETHODCALLTYPE accNavigate(LONG direction, VARIANT start, VARIANT* end) override;
    HRESULT STDMETHODCALLTYPE accHitTest(LONG left, LONG top, VARIANT* child) override;

    // No part has any of these.
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT, BSTR* value) override { return NoText(value); }
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override { return kNoSuchProperty; }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT, BSTR) override { return kNoSuchProperty; }
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT, BSTR* help) override { return NoText(help); }
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT, LONG*) override
    {
        return NoText(file);
    }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT, BSTR* key) override
    {
        return NoText(key);
    }

private:
    static constexpr HRESULT kNoSuchProperty = DISP_E_MEMBERNOTFOUND;

    ~Object() = default; // Release does it

    static HRESULT NoText(BSTR* text)
    {
        if (text != nullptr) {
            *text = nullptr;
        }
        return kNoSuchProperty;
    }

    // Runs body with the source and lets no exception out. result: where body's results go, which
    // is empty when it fails; this: it has none.
    template <class Result, class Body> HRESULT Call(Result* result, Body body) const
    {
        if (result == nullptr) {
            return E_POINTER;
        }
        if constexpr (!std::is_same_v<std::remove_const_t<Result>, Object>) {
            *result = {};
        }
        if (source_ == nullptr) {
            return CO_E_OBJNOTCONNECTED;
        }
        try {
            return body(*source_);
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        } catch (...) {
            return E_UNEXPECTED;
        }
    }
    // ... with the source and the part that child tells.
    template <class Result, class Body>
    HRESULT CallFor(const VARIANT& child, Result* result, Body body) const
    {
        return Call(result, [&](AccessibleSource& source) {
            const bool there =
                child.vt == VT_I4 && child.lVal >= 0 && child.lVal <= source.ChildCount();
            return there ? body(source, child.lVal) : E_INVALIDARG;
        });
    }
    HRESULT GiveText(const std::string& text, BSTR* result, UINT codePage = CP_ACP) const;
    LONG StateOf(const AccessibleSource& source, LONG part) const;
    bool HasFocus(const AccessibleSource& source, LONG part) const
    {
        return GetFocus() == window_ && source.FocusedChild().value_or(CHILDID_SELF) == part;
    }

    LONG references_ = 1;
    HWND window_;
    AccessibleSource* source_; // null when the window has ended
    OleFunctions ole_;
};

#pragma GCC diagnostic pop

// S_FALSE: there is none.
HRESULT AccessibleHost::Object::GiveText(const std::string& text, BSTR* result, UINT codePage) const
{
    *result = nullptr;
    if (text.empty()) {
        return S_FALSE;
    }
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
        return E_OUTOFMEMORY;
    }
    const int bytes = static_cast<int>(text.size());
    const int length = MultiByteToWideChar(codePage, 0, text.data(), bytes, nullptr, 0);
    *result = ole_.allocString(nullptr, static_cast<UINT>(length));
    if (*result == nullptr) {
        return E_OUTOFMEMORY;
    }
    MultiByteToWideChar(codePage, 0, text.data(), bytes, *result, length);
    return S_OK;
}

HRESULT AccessibleHost::Object::get_accParent(IDispatch** parent)
{
    return Call(parent, [&](AccessibleSource&) {
        *parent = nullptr;
        // The platform knows the window that the client area belongs to, and its parents.
        return ole_.objectFromWindow(window_, static_cast<DWORD>(OBJID_WINDOW), __uuidof(IDispatch),
                                     reinterpret_cast<void**>(parent));
    });
}

HRESULT AccessibleHost::Object::get_accChildCount(LONG* count)
{
    return Call(count, [&](AccessibleSource& source) {
        *count = source.ChildCount();
        return S_OK;
    });
}

HRESULT AccessibleHost::Object::get_accChild(VARIANT child, IDispatch** object)
{
    return CallFor(child, object, [&](AccessibleSource&, LONG) {
        *object = nullptr;
        return S_FALSE; // it has a number only
    });
}

HRESULT AccessibleHost::Object::get_accName(VARIANT child, BSTR* name)
{
    return CallFor(child, name, [&](const AccessibleSource& source, LONG part) {
        const std::string text = source.Name(part);
        return GiveText(text, name, source.PageOfName(part, text));
    });
}

HRESULT AccessibleHost::Object::get_accDescription(VARIANT child, BSTR* description)
{
    return CallFor(child, description, [&](const AccessibleSource& source, LONG part) {
        return GiveText(source.Description(part), description);
    });
}

HRESULT AccessibleHost::Object::get_accRole(VARIANT child, VARIANT* role)
{
    return CallFor(child, role, [&](const AccessibleSource& source, LONG part) {
        *role = Number(source.Role(part));
        return S_OK;
    });
}

LONG AccessibleHost::Object::StateOf(const AccessibleSource& source, LONG part) const
{
    LONG state = source.State(part);
    if (!IsWindowVisible(window_)) {
        state |= STATE_SYSTEM_INVISIBLE;
    }
    if (!IsWindowEnabled(window_)) {
        state |= STATE_SYSTEM_UNAVAILABLE;
        state &= ~STATE_SYSTEM_FOCUSABLE;
    }
    return HasFocus(source, part) ? state | STATE_SYSTEM_FOCUSED : state;
}

HRESULT AccessibleHost::Object::get_accState(VARIANT child, VARIANT* state)
{
    return CallFor(child, state, [&](const AccessibleSource& source, LONG part) {
        *state = Number(StateOf(source, part));
        return S_OK;
    });
}

HRESULT AccessibleHost::Object::get_accFocus(VARIANT* child)
{
    return Call(child, [&](const AccessibleSource& source) {
        *child = {};
        if (GetFocus() != window_) {
            return S_FALSE;
        }
        *child = Number(source.FocusedChild().value_or(CHILDID_SELF));
        return S_OK;
    });
}

HRESULT AccessibleHost::Object::get_accSelection(VARIANT* children)
{
    return Call(children, [&](const AccessibleSource& source) {
        *children = {};
        const auto selected = source.SelectedChild();
        if (!selected) {
            return S_FALSE;
        }
        *children = Number(*selected);
        return S_OK;
    });
}

HRESULT AccessibleHost::Object::get_accDefaultAction(VARIANT child, BSTR* action)
{
    return CallFor(child, action, [&](const AccessibleSource& source, LONG part) {
        return GiveText(source.DefaultAction(part), action);
    });
}

HRESULT AccessibleHost::Object::accDoDefaultAction(VARIANT child)
{
    return CallFor(child, this, [&](AccessibleSource& source, LONG part) {
        if (source.DefaultAction(part).empty()) {
            return kNoSuchProperty;
        }
        if (!TakesInput(window_)) {
            return E_ACCESSDENIED;
        }
        source.DoDefaultAction(part);
        return S_OK;
    });
}

HRESULT AccessibleHost::Object::accSelect(LONG flags, VARIANT child)
{
    return CallFor(child, this, [&](AccessibleSource& source, LONG part) {
        constexpr LONG kKnown = SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION;
        if (!TakesInput(window_)) {
            return E_ACCESSDENIED;
        }
        if ((flags & kKnown) == 0 || (flags & ~kKnown) != 0 ||
            (StateOf(source, part) & STATE_SYSTEM_FOCUSABLE) == 0 ||
            (part != CHILDID_SELF && !source.FocusChild(part))) {
            return E_INVALIDARG;
        }
        if ((flags & SELFLAG_TAKEFOCUS) != 0) {
            SetFocus(window_);
        }
        return S_OK;
    });
}

HRESULT AccessibleHost::Object::accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                            VARIANT child)
{
    const bool wanted = top != nullptr && width != nullptr && height != nullptr;
    return CallFor(child, wanted ? left : nullptr, [&](AccessibleSource& source, LONG part) {
        RECT area = {};
        if (part == CHILDID_SELF) {
            GetClientRect(window_, &area);
        } else {
            area = source.Area(part);
        }
        POINT corner = {area.left, area.top};
        ClientToScreen(window_, &corner);
        *left = corner.x;
        *top = corner.y;
        *width = area.right - area.left;
        *height = area.bottom - area.top;
        return S_OK;
    });
}

// S_FALSE: there is nothing in that direction. What stands beside the window is its parent's.
HRESULT AccessibleHost::Object::accNavigate(LONG direction, VARIANT start, VARIANT* end)
{
    return CallFor(start, end, [&](const AccessibleSource& source, LONG part) {
        *end = {};
        const LONG count = source.ChildCount();
        LONG found = 0;
        if (part == CHILDID_SELF) {
            found = direction == NAVDIR_FIRSTCHILD ? 1 : direction == NAVDIR_LASTCHILD ? count : 0;
        } else if (direction == NAVDIR_NEXT || direction == NAVDIR_DOWN) {
            found = part + 1;
        } else if (direction == NAVDIR_PREVIOUS || direction == NAVDIR_UP) {
            found = part - 1;
        }
        if (found < 1 || found > count) {
            return S_FALSE;
        }
        *end = Number(found);
        return S_OK;
    });
}

HRESULT AccessibleHost::Object::accHitTest(LONG left, LONG top, VARIANT* child)
{
    return Call(child, [&](AccessibleSource& source) {
        *child = {};
        POINT at = {left, top};
        ScreenToClient(window_, &at);
        RECT client = {};
        GetClientRect(window_, &client);
        if (!PtInRect(&client, at)) {
            return S_FALSE;
        }
        *child = Number(source.ChildAt(at));
        return S_OK;
    });
}

std::optional<LRESULT> AccessibleHost::OnGetObject(HWND window, AccessibleSource& source,
                                                   WPARAM wParam, LPARAM lParam)
{
    if (static_cast<LONG>(lParam) != OBJID_CLIENT) {
        return std::nullopt;
    }
    if (object_ == nullptr) {
        OleFunctions ole;
        if (!ole.Load()) {
            return std::nullopt;
        }
        object_ = new Object(window, source, ole);
    }
    return object_->Result(wParam);
}

void AccessibleHost::Disconnect()
{
    if (object_ != nullptr) {
        object_->Disconnect();
        object_->Release();
        object_ = nullptr;
    }
}

} // namespace nv
