#include "controls/kel_pic.h"

namespace nv
{

void KelPic::SetCaption(std::string caption)
{
    caption_ = std::move(caption);
    ticks_ = 0;
    typing_ = true;
}

void KelPic::Tick()
{
    if (!typing_) {
        return;
    }
    ++ticks_;
    if (ticks_ >= TicksFor(caption_, codePage_)) {
        typing_ = false;
        if (TypingDone) {
            TypingDone();
        }
    }
}

std::string_view KelPic::Shown() const
{
    return ShownAfter(caption_, ticks_, codePage_);
}

std::string_view KelPic::ShownAfter(std::string_view caption, std::uint32_t ticks,
                                    const CodePage& codePage)
{
    return ticks == 0 ? std::string_view() : codePage.FirstCharacters(caption, ticks - 1);
}

std::uint32_t KelPic::TicksFor(std::string_view caption, const CodePage& codePage)
{
    return static_cast<std::uint32_t>(codePage.CountCharacters(caption)) + 1;
}

} // namespace nv
