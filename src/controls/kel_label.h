#pragma once

#include "platform/ansi_text.h"
#include "platform/canvas.h"

#include <string>
#include <string_view>
#include <vector>

namespace nv
{

// A label entry: plain text broken into lines within the width it was given; its height follows.
class KelLabel
{
public:
    // measure must outlive the label.
    KelLabel(TextMeasure& measure, const CodePage& codePage, std::string caption, const Font& font,
             Color color, Twips width);
    KelLabel(const KelLabel&) = delete; // its lines are views into its caption
    KelLabel& operator=(const KelLabel&) = delete;

    Twips Height() const;
    // Draws the lines that touch clip, the first line of all at origin.
    void Paint(Canvas& canvas, TwipPoint origin, const TwipRect& clip) const;

private:
    TextMeasure& measure_;
    std::string caption_;
    Font font_;
    Color color_;
    std::vector<std::string_view> lines_;
};

} // namespace nv
