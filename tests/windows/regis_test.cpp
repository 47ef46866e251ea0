#include "system/regis.h"
#include "win32/handles.h"

#include <gtest/gtest.h>

namespace nv
{
namespace
{

// A brand's key of the test's own: tests run side by side on one registry.
class RegisTest : public testing::Test
{
protected:
    ~RegisTest() override
    {
        RegDeleteTreeA(HKEY_CURRENT_USER, Path("").c_str());
        RegDeleteKeyA(HKEY_CURRENT_USER, Path("").c_str());
    }

    std::string Path(const std::string& below) const { return "Software\\" + brand_ + below; }
    bool Exists(const std::string& below) const
    {
        LONG size = 0;
        return RegQueryValueA(HKEY_CURRENT_USER, Path(below).c_str(), nullptr, &size) !=
               ERROR_FILE_NOT_FOUND;
    }
    // The key of the section that these tests use, made where there is none.
    RegistryKey Settings() const
    {
        HKEY key = nullptr;
        EXPECT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, Path("\\Regis\\Settings").c_str(), 0, nullptr,
                                  0, kRegistryAccess, nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        return RegistryKey(key);
    }
    // Puts a value there as another program would.
    void PutRaw(const char* name, DWORD type, const std::string& bytes) const
    {
        EXPECT_EQ(RegSetKeyValueA(Settings().Get(), nullptr, name, type, bytes.data(),
                                  static_cast<DWORD>(bytes.size())),
                  ERROR_SUCCESS);
    }

    const std::string brand_ = "BelquinTest " + std::to_string(GetCurrentProcessId());
    Regis regis{brand_ + "\\Regis"};
    const SettingValue fallback = "default";
};

TEST_F(RegisTest, WritesTextAndNumbers)
{
    const std::string text = "C:\\\xE9.nvm";
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
        DWORD type = REG_NONE;
        char bytes[100] = "";
        DWORD size = sizeof bytes;
        RegQueryValueExA(Settings().Get(), "Value", nullptr, &type, reinterpret_cast<BYTE*>(bytes),
                         &size);
        EXPECT_EQ(type, c.stored);
        EXPECT_EQ(std::string(bytes, size), c.bytes);
        EXPECT_EQ(regis.GetKeyValue("Settings", "Value", fallback), c.read);
    }
    // Neither of these writes anything.
    EXPECT_NE(regis.SetKeyValue("Settings", "Value", "two", SettingType::number), 0);
    EXPECT_EQ(regis.SetKeyValue("Settings", "Value", "x", static_cast<SettingType>(REG_BINARY)), 0);
    EXPECT_EQ(regis.GetKeyValue("Settings", "Value", fallback), SettingValue(-2));
}

TEST_F(RegisTest, ReadsWhatOtherProgramsWroteElseTheDefault)
{
    EXPECT_EQ(regis.GetKeyValue("Settings", "Other", fallback), fallback);
    EXPECT_FALSE(Exists("")); // a look creates nothing
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
        EXPECT_EQ(QueryValueEx(Settings().Get(), "Other", value), c.result) << c.bytes;
    }
    PutRaw("", REG_SZ, std::string("unnamed", 8));
    EXPECT_EQ(regis.GetKeyValue("Settings", "", fallback), fallback);
    EXPECT_EQ(regis.GetKeyValue("Settings", "Last", 1000), SettingValue(1000));
}

TEST_F(RegisTest, DeletesAValueASectionOrAllAndTheBrandWithItsLastProgram)
{
    Regis other(brand_ + "\\Other");
    EXPECT_EQ(other.CreateNewKey("Settings"), 0);
    EXPECT_EQ(other.DeleteSetting("Settings", ""), 0);
    regis.SetKeyValue("Settings", "Last", "x");
    EXPECT_EQ(regis.CreateNewKey("StartSet"), 0);
    EXPECT_EQ(regis.CreateNewKey("StartSet"), 0);
    EXPECT_TRUE(Exists("\\Regis\\StartSet"));

    EXPECT_EQ(regis.DeleteSetting("Settings", "Last"), 0);
    EXPECT_EQ(regis.DeleteSetting("Settings", "Last"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(regis.DeleteSetting("None", "Last"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(regis.GetKeyValue("Settings", "Last", fallback), fallback);

    EXPECT_NE(regis.DeleteSetting("", ""), 0); // sections stand in it
    EXPECT_EQ(regis.DeleteSetting("Settings", ""), 0);
    EXPECT_FALSE(Exists("\\Regis\\Settings"));
    EXPECT_EQ(regis.DeleteSetting("StartSet", ""), 0);
    EXPECT_EQ(regis.DeleteSetting("", ""), 0);
    EXPECT_FALSE(Exists("\\Regis"));
    EXPECT_TRUE(Exists("\\Other"));
    EXPECT_EQ(other.DeleteSetting("", ""), 0);
    EXPECT_FALSE(Exists(""));
}

} // namespace
} // namespace nv
