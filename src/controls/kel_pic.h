#pragma once

#include "platform/ansi_text.h"
#include "platform/font.h"
#include "platform/system_colors.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace nv
{

// Milliseconds between two characters, unless a container wants another pace.
inline constexpr std::int16_t kTypingInterval = 25;

// A caption that types itself out: each tick of its timer shows one character more, the first tick
// none at all, until the whole caption stands.
class KelPic
{
public:
    explicit KelPic(const CodePage& codePage) : codePage_(codePage) {}

    const std::string& Caption() const { return caption_; }
    // Starts the typing from nothing, also when the text is the same.
    void SetCaption(std::string caption);
    // The timer's interval in milliseconds; a new one counts from the next tick on.
    std::int16_t Inter() const { return interval_; }
    void SetInter(std::int16_t milliseconds) { interval_ = milliseconds; }
    const nv::Font& Font() const { return font_; }
    void SetFont(const nv::Font& font) { font_ = font; }
    Color FontColor() const { return fontColor_; }
    void SetFontColor(Color color) { fontColor_ = color; }
    // Whether the timer is to run.
    bool Typing() const { return typing_; }
    // One tick of the timer.
    void Tick();
    // What the last tick drew.
    std::string_view Shown() const;
    // Raised once per caption, at the tick that draws all of it.
    std::function<void()> TypingDone;

    // What the tick number ticks (from 1) after the assignment of caption draws; 0 draws nothing.
    static std::string_view ShownAfter(std::string_view caption, std::uint32_t ticks,
                                       const CodePage& codePage);
    // How many ticks the typing of caption takes.
    static std::uint32_t TicksFor(std::string_view caption, const CodePage& codePage);

private:
    CodePage codePage_;
    std::string caption_;
    nv::Font font_;
    Color fontColor_ = kButtonText;
    std::int16_t interval_ = kTypingInterval;
    std::uint32_t ticks_ = 0;
    bool typing_ = false;
};

} // namespace nv
