// Drawing and measuring, in twips. Implemented once over GDI; tests use a scripted one.
#pragma once

#include "platform/font.h"
#include "platform/units.h"

#include <cstddef>
#include <string_view>

namespace nv
{

// A picture that a button or link can show.
struct Picture {
    enum class Source : std::uint8_t {
        none,
        own,    // number: position in the program's own image list Im1, from 1
        system, // number: index in the system's list of small icons
    };
    Source source = Source::none;
    std::int32_t number = 0;
    bool operator==(const Picture&) const = default;
};

// Edge of the square in which pictures stand, in twips.
inline constexpr Twips kPictureSize = 270;

class TextMeasure
{
public:
    virtual ~TextMeasure() = default;
    // Height of one line of text.
    virtual Twips LineHeight(const Font& font) = 0;
    // Width of text on one line; line breaks in it are not looked at.
    virtual Twips Width(const Font& font, std::string_view text) = 0;
    // How many bytes of text fit into width, whole characters only.
    virtual std::size_t Fit(const Font& font, std::string_view text, Twips width) = 0;
};

class Canvas
{
public:
    virtual ~Canvas() = default;
    virtual void Fill(const TwipRect& area, Color color) = 0;
    // One line of text; at is its top left corner. Nothing in text has a special meaning.
    virtual void Text(TwipPoint at, const Font& font, Color color, std::string_view text) = 0;
    // disabled: drawn grey.
    virtual void DrawPicture(const TwipRect& area, const Picture& picture, bool disabled) = 0;
    // A horizontal line, one pixel high. below: pixels below y, so that lines stand side by side.
    virtual void HorizontalLine(TwipPoint from, Twips width, int below, Color color) = 0;
    // A frame of one pixel just inside area; leftTop and rightBottom are the colours of its sides.
    virtual void Frame(const TwipRect& area, Color leftTop, Color rightBottom) = 0;
    // The dotted rectangle that shows the keyboard's place.
    virtual void FocusFrame(const TwipRect& area) = 0;
};

} // namespace nv
