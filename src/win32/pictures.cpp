#include "win32/pictures.h"

#include "resource.h"
#include "win32/process.h"

#include <windows.h>

#include <shellapi.h>

namespace nv
{

namespace
{

constexpr Twips kIconSize = 240; // 16 pixels at 96 dots per inch
constexpr std::size_t kLongestPath = 259;

} // namespace

std::optional<std::int32_t> Pictures::SmallIcon(const std::string& path)
{
    // The shell's own buffers end there; and for no path it answers with that of its own folder.
    if (path.empty() || path.size() > kLongestPath) {
        return std::nullopt;
    }
    StartCom();
    constexpr UINT kFlags = SHGFI_SYSICONINDEX | SHGFI_SMALLICON | SHGFI_SHELLICONSIZE |
                            SHGFI_DISPLAYNAME | SHGFI_TYPENAME;
    SHFILEINFOA info = {};
    auto list = SHGetFileInfoA(path.c_str(), 0, &info, sizeof info, kFlags | SHGFI_EXETYPE);
    if (list == 0) {
        // Some shells answer nothing when the executable type is asked along with the rest.
        list = SHGetFileInfoA(path.c_str(), 0, &info, sizeof info, kFlags);
    }
    if (list == 0) {
        return std::nullopt;
    }
    systemList_ = reinterpret_cast<HIMAGELIST>(list);
    return info.iIcon;
}

void Pictures::Draw(HDC dc, POINT at, const Picture& picture, bool disabled)
{
    if (picture.source == Picture::Source::own) {
        DrawOwn(dc, at, picture.number, disabled);
    } else if (picture.source == Picture::Source::system && systemList_ != nullptr) {
        ImageList_Draw(systemList_, picture.number, dc, at.x, at.y, ILD_TRANSPARENT);
    }
}

void Pictures::DrawOwn(HDC dc, POINT at, std::int32_t number, bool disabled)
{
    if (number < 1 || number > static_cast<std::int32_t>(kOwnPictures)) {
        return;
    }
    const int size = scale_.PixelsX(kIconSize);
    IconHandle& icon = own_[static_cast<std::size_t>(number)];
    if (!icon) {
        icon.Reset(static_cast<HICON>(LoadImageA(GetModuleHandleA(nullptr),
                                                 MAKEINTRESOURCEA(IDI_PICTURES + number),
                                                 IMAGE_ICON, size, size, LR_DEFAULTCOLOR)));
    }
    // The icon stands in the middle of the picture's square.
    const int inset = (scale_.PixelsX(kPictureSize) - size) / 2;
    const UINT flags = DST_ICON | (disabled ? DSS_DISABLED : DSS_NORMAL);
    DrawStateA(dc, nullptr, nullptr, reinterpret_cast<LPARAM>(icon.Get()), 0, at.x + inset,
               at.y + inset, size, size, flags);
}

} // namespace nv
