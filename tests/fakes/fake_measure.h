#pragma once

#include "platform/canvas.h"

#include <algorithm>
#include <string>
#include <vector>

namespace nv
{

// Every character is as wide as half the font is high, and a line is as high as the font: 20 twips
// a point. Wide enough for rules, and free of any screen.
class FakeMeasure final : public TextMeasure
{
public:
    Twips LineHeight(const Font& font) override { return static_cast<Twips>(font.size * 20); }
    Twips Width(const Font& font, std::string_view text) override
    {
        ++measured;
        return static_cast<Twips>(text.size()) * LineHeight(font) / 2;
    }
    std::size_t Fit(const Font& font, std::string_view text, Twips width) override
    {
        ++measured;
        const auto fits = static_cast<std::size_t>(std::max(width, 0.f) / (LineHeight(font) / 2));
        return std::min(text.size(), fits);
    }

    int measured = 0; // calls that cost time on a real screen
};

// Writes down what is drawn.
class FakeCanvas final : public Canvas
{
public:
    struct DrawnText {
        TwipPoint at;
        std::string text;
        Color color;
    };
    void Fill(const TwipRect&, Color) override {}
    void Text(TwipPoint at, const Font&, Color color, std::string_view text) override
    {
        texts.push_back({at, std::string(text), color});
    }
    void DrawPicture(const TwipRect&, const Picture& picture, bool) override
    {
        pictures.push_back(picture);
    }
    void HorizontalLine(TwipPoint, Twips, int, Color) override {}
    void Frame(const TwipRect& area, Color, Color) override { frames.push_back(area); }
    void FocusFrame(const TwipRect& area) override { focusFrames.push_back(area); }

    std::vector<DrawnText> texts;
    std::vector<Picture> pictures;
    std::vector<TwipRect> frames;
    std::vector<TwipRect> focusFrames;
};

} // namespace nv
