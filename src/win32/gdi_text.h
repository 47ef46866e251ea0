#pragma once

#include "platform/ansi_text.h"
#include "platform/canvas.h"
#include "win32/handles.h"

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>

namespace nv
{

// Fonts and text measures over GDI. Fonts are made once and shared; of a menu with thousands of
// fonts only so many are open at a time.
class GdiText final : public TextMeasure
{
public:
    GdiText(const ScreenScale& scale, const CodePage& codePage);
    ~GdiText() override;

    Twips LineHeight(const Font& font) override;
    Twips Width(const Font& font, std::string_view text) override;
    std::size_t Fit(const Font& font, std::string_view text, Twips width) override;

    // What WideOfUtf8 makes of text.
    std::optional<std::wstring> Wide(std::string_view text) const;
    const CodePage& Page() const { return codePage_; }
    // The code page that the bytes of text are of when they are drawn in font, for who needs the
    // characters; never one that the system has not. For letters of a symbol font, which are
    // pictures there, it is the process's.
    UINT PageOf(const Font& font, std::string_view text);

    // The platform's font; stays valid until CloseFonts or until many others were asked for.
    HFONT Handle(const Font& font);
    const ScreenScale& Scale() const { return scale_; }

private:
    struct Entry {
        FontHandle handle; // closed and opened again as needed
        int lineHeight = 0;
    };
    struct Hash {
        std::size_t operator()(const Font& font) const;
    };

    Entry& EntryOf(const Font& font);
    void Open(const Font& font, Entry& entry);
    void CloseFonts();
    // Bytes of text that fit into so many pixels of the selected font.
    std::size_t FitAll(std::string_view text, int pixels) const;

    ScreenScale scale_;
    CodePage codePage_;
    MemoryDc dc_;
    HGDIOBJ initialFont_ = nullptr;
    std::unordered_map<Font, Entry, Hash> entries_;
    std::size_t openFonts_ = 0;
    const Font* lastFont_ = nullptr; // whose font is selected, a key of entries_
    Entry* lastEntry_ = nullptr;
};

// Text for the calls of GDI that take characters; nothing for text that is for those that take
// bytes. To those, bytes are of the code page that belongs to the font's character set, and none
// belongs to UTF-8. Bytes that are no UTF-8, of a menu made on another machine, are still of that
// set.
std::optional<std::wstring> WideOfUtf8(std::string_view text, const CodePage& codePage);

// What a font object says, as the platform's font record. Heights follow the screen's scale.
LOGFONTA LogFontOf(const Font& font, const ScreenScale& scale);
// And back: the size is that of the record's whole pixels, so it comes out at the same height.
Font FontOf(const LOGFONTA& record, const ScreenScale& scale);
// The record of a platform font, which stays the caller's; nothing for what is no font.
std::optional<LOGFONTA> RecordOf(HFONT font);
// A record's height for letters of so many pixels, or the largest that a record can hold.
LONG RecordHeight(double pixels);

} // namespace nv
