#include "system/form_fonts.h"

#include "system/locale_settings.h"
#include "win32/gdi_text.h"
#include "win32/screen.h"

#include <algorithm>
#include <cstring>

namespace nv
{

namespace
{

BOOL CALLBACK AddControl(HWND control, LPARAM controls)
{
    reinterpret_cast<std::vector<HWND>*>(controls)->push_back(control);
    return TRUE;
}

} // namespace

std::string GetLocaleText(LCTYPE code)
{
    char buffer[255] = {};
    const int length = GetLocaleInfoA(GetUserDefaultLangID(), code, buffer, sizeof buffer);
    return length > 0 ? std::string(buffer, static_cast<std::size_t>(length) - 1) : std::string();
}

std::int16_t UserCharset()
{
    return CodePageToCharset(GetLocaleText(LOCALE_IDEFAULTANSICODEPAGE));
}

Font FormFont()
{
    Font font;
    font.charset = UserCharset();
    return font;
}

void FormFonts::SetFormFonts(HWND window)
{
    const Font formFont = FormFont();
    std::vector<HWND> controls;
    EnumChildWindows(window, AddControl, reinterpret_cast<LPARAM>(&controls));
    for (const HWND control : controls) {
        const auto font = reinterpret_cast<HFONT>(SendMessageA(control, WM_GETFONT, 0, 0));
        if (auto record = RecordOf(font)) {
            // All of the field, so that equal fonts are equal byte for byte.
            std::memset(record->lfFaceName, 0, sizeof record->lfFaceName);
            formFont.name.copy(record->lfFaceName, sizeof record->lfFaceName - 1);
            record->lfCharSet = static_cast<BYTE>(formFont.charset);
            SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(Handle(*record)), TRUE);
        }
    }
}

HFONT FormFonts::Handle(const LOGFONTA& record)
{
    const auto same = [&](const Entry& entry) {
        return std::memcmp(&entry.record, &record, sizeof record) == 0;
    };
    auto entry = std::find_if(entries_.begin(), entries_.end(), same);
    if (entry == entries_.end()) {
        entries_.push_back({record, FontHandle(CreateFontIndirectA(&record))});
        entry = entries_.end() - 1;
    }
    return entry->font.Get();
}

std::int32_t TrueWindowSize(HWND window, bool vertical)
{
    RECT outer = {};
    RECT client = {};
    if (!GetWindowRect(window, &outer) || !GetClientRect(window, &client)) {
        return 0;
    }
    const ScreenScale scale = PrimaryScreenScale();
    return vertical
               ? RoundHalfEven((outer.bottom - outer.top - client.bottom) * scale.twipsPerPixelY)
               : RoundHalfEven((outer.right - outer.left - client.right) * scale.twipsPerPixelX);
}

} // namespace nv
