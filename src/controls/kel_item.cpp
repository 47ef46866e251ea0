#include "controls/kel_item.h"

namespace nv
{

KelItem::KelItem(TextMeasure& measure, const CodePage& codePage) : codePage_(codePage), l1_(measure)
{
    l1_.SetFixedSize(true);
}

std::string_view KelItem::ShownText(std::string_view caption, std::string_view command,
                                    const CodePage& codePage)
{
    if (!caption.empty()) {
        return caption;
    }
    const auto slash = codePage.FindLast(command, '\\');
    return slash == std::string_view::npos ? std::string_view() : command.substr(slash + 1);
}

void KelItem::SetCaption(const std::string& caption)
{
    const bool hasText =
        !caption.empty() || codePage_.FindLast(Command, '\\') != std::string_view::npos;
    if (hasText) {
        l1_.SetCaption(std::string(ShownText(caption, Command, codePage_)));
    }
    l1_.SetToolT(Command);
    LayOut();
}

void KelItem::LayOut()
{
    if (!l1_.FixedSize()) {
        l1_.Resize({l1_.Size().width, size_.height});
    }
    l1_.ReCalc();
    // A picture that comes later widens the button, not the entry: it moves the caption into the
    // button's wide right margin.
    size_ = l1_.Size();
}

void KelItem::Paint(Canvas& canvas, TwipPoint origin, const TwipRect& clip,
                    const ButtonLook& look) const
{
    l1_.Paint(canvas, {origin.x, origin.y, size_.width, size_.height}, clip, look);
}

} // namespace nv
