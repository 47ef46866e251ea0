#include "system/regis.h"
#include "win32/handles.h"

#include <gtest/gtest.h>

namespace nv
{
namespace
{

const char kBrand[] = "Software\\BelquinTest";

std::string ProcessKey(const std::string& below)
{
    return "BelquinTest\\Regis " + std::to_string(GetCurrentProcessId()) + below;
}

// A program's key of the test's own: tests run side by side on one registry.
class RegisTest : public testing::Test
{
protected:
    ~RegisTest() override
    {
        RegDeleteTreeA(HKEY_CURRENT_USER, Path("").c_str());
        RegDeleteKeyA(HKEY_CURRENT_USER, Path("").c_str());
        RegDeleteKeyA(HKEY_CURRENT_USER, kBrand); // refused while another test's key is in it
    }

    static std::string Path(const std::string& below) { return "Software\\" + ProcessKey(below); }
    static bool Exists(const std::string& path)
    {
        HKEY key = nullptr;
        const long result = RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &key);
        const RegistryKey owned(key);
        return result == ERROR_SUCCESS;
    }
    static RegistryKey Key(const std::string& section)
    {
        HKEY key = nullptr;
        EXPECT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, Path("\\" + section).c_str(), 0, nullptr, 0,
                                  kRegistryAccess, nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        return RegistryKey(key);
    }
    // Puts a value there as another program would.
    static void PutRaw(const char* name, DWORD type, const std::string& bytes)
    {
        EXPECT_EQ(RegSetKeyValueA(HKEY_CURRENT_USER, Path("\\Settings").c_str(), name, type,
                                  bytes.data(), static_cast<DWORD>(bytes.size())),
                  ERROR_SUCCESS);
    }
    // Type and bytes of a stored value.
    static std::pair<DWORD, std::string> Raw(const char* name)
    {
        DWORD type = REG_NONE;
        std::string bytes(100, '?');
        auto size = static_cast<DWORD>(bytes.size());
        EXPECT_EQ(RegQueryValueExA(Key("Settings").Get(), name, nullptr, &type,
                                   reinterpret_cast<BYTE*>(bytes.data()), &size),
                  ERROR_SUCCESS);
        return {type, bytes.substr(0, size)};
    }

    Regis regis{ProcessKey("")};
    const SettingValue fallback = "default";
};

TEST_F(RegisTest, ReadsTheDefaultOfWhatIsNotThereAndCreatesNothing)
{
    EXPECT_EQ(regis.GetKeyValue("Settings", "Last", fallback), fallback);
    EXPECT_FALSE(Exists(Path("")));
    Key("Settings");
    EXPECT_EQ(regis.GetKeyValue("Settings", "Last", fallback), fallback);
    EXPECT_EQ(regis.GetKeyValue("Settings", "Last", 1000), SettingValue(1000));
    PutRaw("", REG_SZ, std::string("unnamed", 8));
    EXPECT_EQ(regis.GetKeyValue("Settings", "", fallback), fallback);
}

TEST_F(RegisTest, WritesTextAndNumbers)
{
    const std::string text = "C:\\\xE9.nvm";
    const auto binary = static_cast<SettingType>(REG_BINARY);
    struct Case {
        SettingValue value;
        SettingType type;
        DWORD stored;
        std::string bytes;
        SettingValue read;
    };
    const Case cases[] = {
        {1, SettingType::byDefault, REG_SZ, std::string("1", 2), "1"},
        {text, SettingType::byDefault, REG_SZ, text + '\0', text},
        {"", SettingType::byDefault, REG_SZ, std::string(1, '\0'), ""},
        {"-2", SettingType::number, REG_DWORD, "\xFE\xFF\xFF\xFF", -2},
    };
    for (const Case& c : cases) { // the section is made on demand
        EXPECT_EQ(regis.SetKeyValue("Settings", "Value", c.value, c.type), 0);
        EXPECT_EQ(Raw("Value"), (std::pair<DWORD, std::string>(c.stored, c.bytes)));
        EXPECT_EQ(regis.GetKeyValue("Settings", "Value", fallback), c.read);
    }
    // Neither of these writes anything.
    EXPECT_NE(regis.SetKeyValue("Settings", "Value", "two", SettingType::number), 0);
    EXPECT_EQ(regis.SetKeyValue("Settings", "Value", "x", binary), 0);
    EXPECT_EQ(regis.GetKeyValue("Settings", "Value", fallback), SettingValue(-2));
}

TEST_F(RegisTest, ReadsWhatOtherProgramsWrote)
{
    struct Case {
        DWORD type;
        std::string bytes;
        SettingValue read;
        long result;
    };
    const std::string long5000(5000, 'x');
    const Case cases[] = {
        {REG_SZ, "", "", 0},
        {REG_SZ, std::string(1, '\0'), "", 0},
        {REG_SZ, long5000 + '\0', long5000, 0},
        {REG_EXPAND_SZ, std::string("%TEMP%", 7), fallback, -1},
        {REG_BINARY, "abcd", fallback, -1},
        {REG_DWORD, "abcdefgh", fallback, ERROR_MORE_DATA},
    };
    for (const Case& c : cases) {
        PutRaw("Other", c.type, c.bytes);
        EXPECT_EQ(regis.GetKeyValue("Settings", "Other", fallback), c.read) << c.bytes;
        SettingValue value = fallback;
        EXPECT_EQ(QueryValueEx(Key("Settings").Get(), "Other", value), c.result) << c.bytes;
    }
}

TEST_F(RegisTest, DeletesAValueASectionOrAll)
{
    regis.SetKeyValue("Settings", "Last", "x");
    EXPECT_EQ(regis.CreateNewKey("StartSet"), 0);
    EXPECT_EQ(regis.CreateNewKey("StartSet"), 0);
    EXPECT_TRUE(Exists(Path("\\StartSet")));

    EXPECT_EQ(regis.DeleteSetting("Settings", "Last"), 0);
    EXPECT_EQ(regis.DeleteSetting("Settings", "Last"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(regis.DeleteSetting("None", "Last"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(regis.GetKeyValue("Settings", "Last", fallback), fallback);

    EXPECT_NE(regis.DeleteSetting("", ""), 0); // sections stand in it
    EXPECT_EQ(regis.DeleteSetting("Settings", ""), 0);
    EXPECT_FALSE(Exists(Path("\\Settings")));
    EXPECT_EQ(regis.DeleteSetting("StartSet", ""), 0);
    EXPECT_EQ(regis.DeleteSetting("", ""), 0);
    EXPECT_FALSE(Exists(Path("")));
}

TEST_F(RegisTest, LeavesTheKeyOfTheBrandToItsOtherPrograms)
{
    const std::string brand = "BelquinTest " + std::to_string(GetCurrentProcessId());
    Regis first(brand + "\\First");
    Regis second(brand + "\\Second");
    first.CreateNewKey("Settings");
    first.DeleteSetting("Settings", "");
    second.CreateNewKey("Settings");
    second.DeleteSetting("Settings", "");
    EXPECT_EQ(first.DeleteSetting("", ""), 0);
    EXPECT_TRUE(Exists("Software\\" + brand + "\\Second"));
    EXPECT_EQ(second.DeleteSetting("", ""), 0);
    EXPECT_FALSE(Exists("Software\\" + brand));
}

} // namespace
} // namespace nv
