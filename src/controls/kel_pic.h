#pragma once

#include "platform/ansi_text.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace nv
{

// A caption that types itself out: each tick of its timer shows one character more, the first tick
// none at all, until the whole caption stands.
class KelPic
{
public:
    explicit KelPic(const CodePage& codePage) : codePage_(codePage) {}

    const std::string& Caption() const { return caption_; }
    // Starts the typing from nothing, also when the text is the same.
    void SetCaption(std::string caption);
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
    std::uint32_t ticks_ = 0;
    bool typing_ = false;
};

// Milliseconds between two characters.
inline constexpr unsigned kTypingInterval = 25;

} // namespace nv
