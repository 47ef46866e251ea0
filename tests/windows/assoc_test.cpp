#include "system/assoc.h"
#include "win32/handles.h"

#include <shlobj.h>

#include <array>
#include <gtest/gtest.h>
#include <sddl.h>

namespace nv
{
namespace
{

constexpr UINT kTold = WM_APP;

using Four = std::array<std::string, 4>;

const Four kNone = {"(none)", "(none)", "(none)", "(none)"};

Four FileTypeOf(const std::string& program)
{
    return {"Navrix Menu", "Navrix Menu", "\"" + program + "\" %1", program + ",0"};
}

// A registry of the test's own: HKEY_CLASSES_ROOT and HKEY_CURRENT_USER lead into it, as tests run
// side by side on one registry.
class AssocTest : public testing::Test
{
protected:
    AssocTest()
        : brand_("Software\\BelquinTest Assoc " + std::to_string(GetCurrentProcessId())),
          root_(Made(brand_ + "\\Root")), user_(Made(brand_ + "\\User"))
    {
        EXPECT_EQ(RegOverridePredefKey(HKEY_CLASSES_ROOT, root_.Get()), ERROR_SUCCESS);
        EXPECT_EQ(RegOverridePredefKey(HKEY_CURRENT_USER, user_.Get()), ERROR_SUCCESS);
        SetWindowLongPtrA(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&CountTold));
        const SHChangeNotifyEntry all = {nullptr, TRUE};
        listener_ =
            SHChangeNotifyRegister(window_, SHCNRF_ShellLevel, SHCNE_ASSOCCHANGED, kTold, 1, &all);
        EXPECT_NE(listener_, 0u);
    }
    ~AssocTest() override
    {
        SHChangeNotifyDeregister(listener_);
        DestroyWindow(window_);
        RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
        EXPECT_EQ(RegDeleteTreeA(HKEY_CURRENT_USER, brand_.c_str()), ERROR_SUCCESS);
    }

    static RegistryKey Made(const std::string& path, DWORD options = REG_OPTION_NON_VOLATILE)
    {
        HKEY key = nullptr;
        EXPECT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, options,
                                  KEY_ALL_ACCESS, nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        return RegistryKey(key);
    }
    // Makes a key of the classes root one that may be read and deleted, but not written.
    static void Refuse(const std::string& path)
    {
        PSECURITY_DESCRIPTOR readOnly = nullptr;
        ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorA(
            "D:P(A;;KRSD;;;WD)", SDDL_REVISION_1, &readOnly, nullptr));
        HKEY key = nullptr;
        RegOpenKeyExA(HKEY_CLASSES_ROOT, path.c_str(), 0, WRITE_DAC, &key);
        const RegistryKey owned(key);
        EXPECT_EQ(RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, readOnly), ERROR_SUCCESS);
        LocalFree(readOnly);
    }
    static Four Stored(HKEY root, const std::string& classes = "")
    {
        const auto text = [&](const char* path) -> std::string {
            char found[1000] = "(none)";
            DWORD size = sizeof found;
            RegGetValueA(root, (classes + path).c_str(), "", RRF_RT_REG_SZ, nullptr, found, &size);
            return found;
        };
        return {text("Navrix Menu"), text(".NVM"), text("Navrix Menu\\shell\\open\\command"),
                text("Navrix Menu\\DefaultIcon")};
    }
    static Four OfRoot() { return Stored(HKEY_CLASSES_ROOT); }
    static Four OfUser() { return Stored(HKEY_CURRENT_USER, "Software\\Classes\\"); }
    // How often the shell was told since the last call.
    LONG_PTR TimesTold() { return SetWindowLongPtrA(window_, GWLP_USERDATA, 0); }

    static LRESULT CALLBACK CountTold(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message == kTold) {
            SetWindowLongPtrA(window, GWLP_USERDATA, GetWindowLongPtrA(window, GWLP_USERDATA) + 1);
        }
        return DefWindowProcA(window, message, wParam, lParam);
    }

    std::string brand_;
    RegistryKey root_;
    RegistryKey user_;
    HWND window_ =
        CreateWindowExA(0, "STATIC", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    ULONG listener_ = 0;
};

TEST_F(AssocTest, BindsMenuFilesToTheProgramOverWhateverWasThere)
{
    const struct {
        const char* folder;
        const char* program;
        int told;
    } cases[] = {
        {"C:\\My Programs", "C:\\My Programs\\NVMenu.exe", 1}, // in classes that know no menus
        {"C:\\My Programs", "C:\\My Programs\\NVMenu.exe", 0},
        {"C:\\", "C:\\NVMenu.exe", 1},
        {"C:\\\x95\\", "C:\\\x95\\\\NVMenu.exe", 1}, // a Japanese name that ends in a byte like "\"
    };
    for (const auto& each : cases) {
        EXPECT_TRUE(RegisterMenuFileType(each.folder));
        EXPECT_EQ(OfRoot(), FileTypeOf(each.program));
        EXPECT_EQ(TimesTold(), each.told) << each.folder;
    }
    char name[10] = "";
    RegEnumKeyA(HKEY_CLASSES_ROOT, 0, name, sizeof name);
    EXPECT_STREQ(name, ".NVM");

    const DWORD number = 1; // and a value that is no text
    RegSetKeyValueA(HKEY_CLASSES_ROOT, ".NVM", "", REG_DWORD, &number, sizeof number);
    EXPECT_TRUE(RegisterMenuFileType("C:\\"));
    EXPECT_EQ(OfRoot(), FileTypeOf("C:\\NVMenu.exe"));
    EXPECT_EQ(TimesTold(), 1);
    EXPECT_EQ(OfUser(), kNone);
}

TEST_F(AssocTest, BindsThemForTheUserWhereTheClassesRootIsNotToBeWritten)
{
    // In this one nothing can be made: its keys would have to be volatile.
    root_ = Made("Closed", REG_OPTION_VOLATILE);
    EXPECT_EQ(RegOverridePredefKey(HKEY_CLASSES_ROOT, root_.Get()), ERROR_SUCCESS);
    for (const int told : {1, 0}) {
        EXPECT_TRUE(RegisterMenuFileType("C:\\My Programs"));
        EXPECT_EQ(OfRoot(), kNone);
        EXPECT_EQ(OfUser(), FileTypeOf("C:\\My Programs\\NVMenu.exe"));
        EXPECT_EQ(TimesTold(), told);
    }
}

TEST_F(AssocTest, OneRefusedWriteDoesNotStopTheOthers)
{
    const Four before = FileTypeOf("C:\\Old\\NVMenu.exe");
    const Four after = FileTypeOf("C:\\New\\NVMenu.exe");
    RegisterMenuFileType("C:\\Old");
    Refuse("Navrix Menu");
    Refuse("Navrix Menu\\shell\\open\\command");
    EXPECT_TRUE(RegisterMenuFileType("C:\\New"));
    EXPECT_EQ(OfRoot(), (Four{after[0], after[1], before[2], after[3]}));
    EXPECT_EQ(OfUser(), after);
    EXPECT_EQ(TimesTold(), 2);
}

} // namespace
} // namespace nv
