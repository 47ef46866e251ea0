#pragma once

#include "controls/kel_button.h"
#include "platform/ansi_text.h"

#include <string>
#include <string_view>

namespace nv
{

// One link entry of a menu: a button L1 that sizes itself, and the entry's command.
class KelItem
{
public:
    // measure must outlive the item.
    KelItem(TextMeasure& measure, const CodePage& codePage);

    // The entry's command; set it before the caption.
    std::string Command;

    const std::string& Caption() const { return l1_.Caption(); }
    // An empty caption gives way to the command's file name, if the command has a "\".
    void SetCaption(const std::string& caption);
    void SetBImage(const Picture& picture) { l1_.SetBImage(picture); }
    void SetFont(const nv::Font& font) { l1_.SetFont(font); }
    void SetFontColor(Color color) { l1_.SetFontColor(color); }

    TwipSize Size() const { return size_; }
    const KelButton& L1() const { return l1_; }

    // The text that stands for an entry: its caption, or for an empty one the command's file name;
    // empty when there is neither. A view into one of the two.
    static std::string_view ShownText(std::string_view caption, std::string_view command,
                                      const CodePage& codePage);

    // Draws the entry with its top left corner at origin, as far as it touches clip.
    void Paint(Canvas& canvas, TwipPoint origin, const TwipRect& clip,
               const ButtonLook& look) const;

private:
    void LayOut();

    CodePage codePage_;
    KelButton l1_;
    TwipSize size_;
};

} // namespace nv
