#include "controls/kel_label.h"

#include "controls/text_layout.h"

#include <algorithm>

namespace nv
{

KelLabel::KelLabel(TextMeasure& measure, const CodePage& codePage, std::string caption,
                   const Font& font, Color color, Twips width)
    : measure_(measure), caption_(std::move(caption)), font_(font), color_(color),
      lines_(WrapText(measure, codePage, font, caption_, width))
{
}

Twips KelLabel::Height() const
{
    return static_cast<Twips>(lines_.size()) * measure_.LineHeight(font_);
}

void KelLabel::Paint(Canvas& canvas, TwipPoint origin, const TwipRect& clip) const
{
    PaintLines(canvas, measure_, lines_, origin, font_, color_, clip);
}

} // namespace nv
