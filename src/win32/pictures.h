#pragma once

#include "platform/canvas.h"
#include "platform/icons.h"
#include "win32/handles.h"

#include <commctrl.h>

#include <array>

namespace nv
{

// The program's own image list Im1 and the shell's list of small icons. Each own picture is loaded
// when it is first drawn.
class Pictures final : public IconLookup
{
public:
    explicit Pictures(const ScreenScale& scale) : scale_(scale) {}

    std::optional<std::int32_t> SmallIcon(const std::string& path) override;
    // Draws a picture with its top left corner at a point, in pixels; nothing for an empty one.
    void Draw(HDC dc, POINT at, const Picture& picture, bool disabled);

private:
    void DrawOwn(HDC dc, POINT at, std::int32_t number, bool disabled);

    static constexpr std::size_t kOwnPictures = 19;

    ScreenScale scale_;
    std::array<IconHandle, kOwnPictures + 1> own_; // by number, from 1
    HIMAGELIST systemList_ = nullptr;              // the shell's, not ours to release
};

} // namespace nv
