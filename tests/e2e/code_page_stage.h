// A machine of some code page: what the tests of one start from. They run once for each language,
// see NAVRIX_LOCALE in tools/wine-run, and where all other tests run.
#pragma once

#include "e2e/stage.h"

#include <algorithm>
#include <string_view>

namespace nv::e2e
{

// Letters of a language in its code page. The second byte of the Japanese ones is "\". The system
// has no other code page than UTF-8 for Hindi: a letter of two bytes, and those of three and four.
struct Language {
    const char* locale;
    UINT codePage;
    BYTE charset;
    std::string one;
    std::string two;
    std::string broken; // bytes that are no letter, if there are any
};

inline const Language& LanguageOfThisRun()
{
    static const Language kLanguages[] = {
        {"pl_PL.UTF-8", 1250, EASTEUROPE_CHARSET, "\xB3", "\xB9", ""},
        {"ru_RU.UTF-8", 1251, RUSSIAN_CHARSET, "\xFF", "\xC6", ""},
        {"el_GR.UTF-8", 1253, GREEK_CHARSET, "\xD9", "\xF8", ""},
        {"ja_JP.UTF-8", 932, SHIFTJIS_CHARSET, "\x83\x5C", "\x95\x5C", "\x83"},
        {"hi_IN.UTF-8", CP_UTF8, ANSI_CHARSET, "\xD0\xAF", "\xE2\x82\xAC\xF0\x9D\x94\xB8",
         "\xE3\x82!"},
        {"", 1252, ANSI_CHARSET, "\xE4", "\xDF", ""},
    };
    char locale[1024] = "";
    GetEnvironmentVariableA("NAVRIX_LOCALE", locale, sizeof locale);
    return *std::find_if(std::begin(kLanguages), std::end(kLanguages) - 1,
                         [&locale](const Language& language) {
                             return std::string_view(locale).ends_with(language.locale);
                         });
}

// The program's folder has a name in the language.
class CodePage : public Stage
{
protected:
    CodePage() : Stage("the " + LanguageOfThisRun().two) {}

    void SetUp() override
    {
        ASSERT_EQ(GetACP(), language_.codePage);
        Stage::SetUp();
    }

    // The text as it must stand on the screen.
    Picture Drawn(const std::string& text, int points, COLORREF color) const
    {
        const auto size = static_cast<int>(text.size());
        std::wstring wide(text.size(), L'\0');
        wide.resize(static_cast<std::size_t>(
            MultiByteToWideChar(language_.codePage, 0, text.data(), size, wide.data(), size)));
        return Picture(wide, points, language_.charset, color);
    }

    static bool Shows(HWND window, const Picture& part)
    {
        return Until([&] { return Picture(window).Contains(part); }, 5000);
    }

    // How many files and folders a folder holds.
    static int CountIn(const std::string& folder)
    {
        int count = -2; // "." and ".."
        WIN32_FIND_DATAA found = {};
        const HANDLE search = FindFirstFileA((folder + "\\*").c_str(), &found);
        for (BOOL more = search != INVALID_HANDLE_VALUE; more;
             more = FindNextFileA(search, &found)) {
            ++count;
        }
        FindClose(search);
        return count;
    }

    HWND Header() { return FindWindowExA(Running().Window(), nullptr, "NavrixKelPic", nullptr); }

    // A link or label in the language.
    Entry In(EntryType type, const std::string& caption, const std::string& command, int mark) const
    {
        Entry entry = {type, caption, command, static_cast<long>(Mark(mark))};
        entry.charset = language_.charset;
        return entry;
    }

    const Language& language_ = LanguageOfThisRun();
    const std::string& one_ = language_.one;
    const std::string& two_ = language_.two;
};

} // namespace nv::e2e
