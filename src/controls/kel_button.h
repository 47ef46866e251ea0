#pragma once

#include "platform/canvas.h"

#include <cstdint>
#include <functional>
#include <string>

namespace nv
{

// How a button's face looks at the moment.
struct ButtonLook {
    bool hover = false;
    bool pressed = false;
    bool focused = false;
};

// The push button of the whole program: a face with a picture at the left and a caption beside it.
// It lays itself out, and with FixedSize set also sizes itself to its content. What hosts it, a
// window of its own or a row of a menu's column, passes on the mouse and paints through it. All
// lengths are twips.
class KelButton
{
public:
    // measure must outlive the button.
    explicit KelButton(TextMeasure& measure);

    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption);
    // Set: the button takes the size of its content. Clear: it keeps the size it was given.
    bool FixedSize() const { return fixedSize_; }
    void SetFixedSize(bool fixed);
    // Shows a picture; from then on its place is kept even if a later picture is empty.
    void SetBImage(const Picture& picture);
    const Picture& BImage() const { return picture_; }
    // Lays the button out again.
    void ReCalc();
    // The container gives the button its size; the layout runs.
    void Resize(TwipSize size);
    TwipSize Size() const { return size_; }

    // A button starts with the pointer of something to click; this gives it the default one.
    void DisablePointer() { handPointer_ = false; }
    bool HandPointer() const { return handPointer_; }

    bool EnabledM() const { return enabled_; }
    void SetEnabledM(bool enabled) { enabled_ = enabled; }
    void SetToolT(std::string text) { toolTip_ = std::move(text); }
    const std::string& ToolT() const { return toolTip_; }

    const nv::Font& Font() const { return font_; }
    // Runs no layout: call ReCalc afterwards.
    void SetFont(const nv::Font& font) { font_ = font; }
    Color FontColor() const { return fontColor_; }
    void SetFontColor(Color color) { fontColor_ = color; }

    // Raised on the release of any mouse button over the button, wherever it was pressed.
    std::function<void()> ButtonClick;
    std::function<void()> MouseDown;
    // The host reports the mouse; a disabled button takes none of it. May re-enter.
    void Press();
    void Release();

    // Where the last layout put the parts.
    TwipRect ImageArea() const { return image_; }
    TwipRect LabelArea() const { return label_; }
    std::int32_t NaturalWidth() const { return naturalWidth_; }
    // Height of a FixedSize button whose caption has that height.
    static Twips FixedHeight(Twips labelHeight) { return labelHeight + 200; }

    // Draws the button into area, which may be smaller than its size. Of a caption of many lines
    // only those that touch clip are drawn.
    void Paint(Canvas& canvas, const TwipRect& area, const TwipRect& clip,
               const ButtonLook& look) const;

private:
    TextMeasure& measure_;
    std::string caption_;
    std::string toolTip_;
    nv::Font font_;
    Color fontColor_;
    Picture picture_;
    TwipSize size_;
    TwipRect image_;
    TwipRect label_;
    std::int32_t naturalWidth_ = 0;
    bool fixedSize_ = false;
    bool hasPicture_ = false;
    bool enabled_ = true;
    bool handPointer_ = true;
};

} // namespace nv
