#include "system/form_fonts.h"

#include "system/locale_settings.h"
#include "win32/screen.h"

namespace nv
{

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
