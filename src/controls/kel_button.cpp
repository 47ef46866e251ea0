#include "controls/kel_button.h"

#include "controls/text_layout.h"
#include "platform/system_colors.h"

namespace nv
{

namespace
{

constexpr Twips kMargin = 100;      // left of the content, and between picture and caption
constexpr Twips kRightMargin = 500; // wider than the left one: a late picture moves into it

Twips Centred(Twips outer, Twips inner)
{
    return static_cast<Twips>((double{outer} - double{inner}) / 2.0);
}

} // namespace

KelButton::KelButton(TextMeasure& measure) : measure_(measure), fontColor_(kButtonText)
{
    ReCalc();
}

void KelButton::SetCaption(std::string caption)
{
    caption_ = std::move(caption);
    ReCalc();
}

void KelButton::SetFixedSize(bool fixed)
{
    fixedSize_ = fixed;
    ReCalc();
}

void KelButton::SetBImage(const Picture& picture)
{
    picture_ = picture;
    hasPicture_ = true;
    ReCalc();
}

void KelButton::Resize(TwipSize size)
{
    size_ = size;
    ReCalc();
}

void KelButton::ReCalc()
{
    const TwipSize text = AutoSize(measure_, font_, caption_);
    label_ = {kMargin, Centred(size_.height, text.height), text.width, text.height};
    if (hasPicture_) {
        // The picture's top comes from the height before a resize below, and stays.
        image_ = {kMargin, Centred(size_.height, kPictureSize), kPictureSize, kPictureSize};
        label_.left = image_.left + image_.width + kMargin;
    }
    naturalWidth_ = RoundHalfEven(double{label_.left} + double{label_.width} + kRightMargin);
    if (fixedSize_) {
        size_ = {static_cast<Twips>(naturalWidth_), FixedHeight(text.height)};
        label_.top = 100;
    }
}

void KelButton::Press()
{
    if (enabled_ && MouseDown) {
        MouseDown();
    }
}

void KelButton::Release()
{
    if (enabled_ && ButtonClick) {
        ButtonClick();
    }
}

void KelButton::Paint(Canvas& canvas, const TwipRect& area, const TwipRect& clip,
                      const ButtonLook& look) const
{
    if (enabled_ && (look.hover || look.pressed)) {
        canvas.Fill(area, kLight3D);
        canvas.Frame(area, look.pressed ? kButtonShadow : kHighlight3D,
                     look.pressed ? kHighlight3D : kButtonShadow);
    }
    if (hasPicture_ && picture_.source != Picture::Source::none) {
        canvas.DrawPicture(
            {area.left + image_.left, area.top + image_.top, image_.width, image_.height}, picture_,
            !enabled_);
    }
    PaintLines(canvas, measure_, TextLines(caption_),
               {area.left + label_.left, area.top + label_.top}, font_,
               enabled_ ? fontColor_ : kGrayText, clip);
    if (look.focused) {
        canvas.FocusFrame(area);
    }
}

} // namespace nv
