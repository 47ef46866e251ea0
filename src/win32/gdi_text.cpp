#include "win32/gdi_text.h"

#include "win32/screen.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace nv
{

namespace
{

// More than any screen shows at once; the platform allows a process some thousands.
constexpr std::size_t kOpenFonts = 200;
// Whose line heights are remembered: a column of other fonts in each line is still built quickly.
constexpr std::size_t kKnownFonts = 4096;
// The platform measures texts of any length, but its time and its whole numbers do not.
constexpr std::size_t kPiece = 4096;

// A height above zero is that of the line: the room above the letters counts, and only the font
// itself knows how much that is. Zero is the platform's own choice.
double LetterPixels(const LOGFONTA& record)
{
    if (record.lfHeight < 0) {
        return -static_cast<double>(record.lfHeight);
    }
    const FontHandle font(CreateFontIndirectA(&record));
    const MemoryDc dc(CreateCompatibleDC(nullptr));
    const HGDIOBJ oldFont = SelectObject(dc.Get(), font.Get());
    TEXTMETRICA metrics = {};
    GetTextMetricsA(dc.Get(), &metrics);
    SelectObject(dc.Get(), oldFont);
    return metrics.tmHeight - metrics.tmInternalLeading;
}

// Bytes of the characters of text, which is UTF-8, that are whole in so many units of 16 bits.
std::size_t BytesOf(std::string_view text, int units, const CodePage& codePage)
{
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t length = codePage.CharacterLength(text, at);
        units -= length == 4 ? 2 : 1;
        if (units < 0) {
            break;
        }
        at += length;
    }
    return at;
}

} // namespace

std::optional<std::wstring> WideOfUtf8(std::string_view text, const CodePage& codePage)
{
    const auto beyondAscii = [](char ch) { return static_cast<unsigned char>(ch) > 127; };
    if (!codePage.IsUtf8() || std::none_of(text.begin(), text.end(), beyondAscii)) {
        return std::nullopt;
    }
    const auto size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    wide.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), size, wide.data(), size)));
    return wide.empty() ? std::nullopt : std::optional(std::move(wide));
}

LONG RecordHeight(double pixels)
{
    return -RoundHalfEven(std::min(pixels, 2147483647.0));
}

LOGFONTA LogFontOf(const Font& font, const ScreenScale& scale)
{
    LOGFONTA record = {};
    record.lfHeight = RecordHeight(font.size * 20 / scale.twipsPerPixelY);
    record.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
    record.lfItalic = font.italic;
    record.lfUnderline = font.underline;
    record.lfStrikeOut = font.strikethrough;
    record.lfCharSet = static_cast<BYTE>(font.charset);
    const std::string_view name =
        ProcessCodePage().WholeCharacters(font.name, sizeof record.lfFaceName - 1);
    std::copy(name.begin(), name.end(), record.lfFaceName);
    return record;
}

Font FontOf(const LOGFONTA& record, const ScreenScale& scale)
{
    Font font;
    font.name = record.lfFaceName;
    font.size = LetterPixels(record) * scale.twipsPerPixelY / 20;
    font.bold = record.lfWeight >= FW_SEMIBOLD;
    font.italic = record.lfItalic != 0;
    font.underline = record.lfUnderline != 0;
    font.strikethrough = record.lfStrikeOut != 0;
    font.charset = record.lfCharSet;
    return font;
}

std::optional<LOGFONTA> RecordOf(HFONT font)
{
    LOGFONTA record = {};
    if (GetObjectType(font) != OBJ_FONT || GetObjectA(font, sizeof record, &record) == 0) {
        return std::nullopt;
    }
    return record;
}

std::size_t GdiText::Hash::operator()(const Font& font) const
{
    const auto flags = static_cast<std::size_t>(font.bold) |
                       static_cast<std::size_t>(font.italic) << 1 |
                       static_cast<std::size_t>(font.strikethrough) << 2 |
                       static_cast<std::size_t>(font.underline) << 3;
    return std::hash<std::string>()(font.name) ^
           (std::hash<double>()(font.size) * 31 + flags * 131 +
            static_cast<std::size_t>(static_cast<std::uint16_t>(font.charset)) * 8191);
}

GdiText::GdiText(const ScreenScale& scale, const CodePage& codePage)
    : scale_(scale), codePage_(codePage), dc_(CreateCompatibleDC(nullptr))
{
    initialFont_ = GetCurrentObject(dc_.Get(), OBJ_FONT);
}

GdiText::~GdiText()
{
    CloseFonts();
}

void GdiText::CloseFonts()
{
    SelectObject(dc_.Get(), initialFont_);
    for (auto& [font, entry] : entries_) {
        entry.handle.Reset();
    }
    openFonts_ = 0;
    lastFont_ = nullptr;
}

void GdiText::Open(const Font& font, Entry& entry)
{
    if (openFonts_ >= kOpenFonts) {
        CloseFonts();
    }
    const LOGFONTA record = LogFontOf(font, scale_);
    entry.handle.Reset(CreateFontIndirectA(&record));
    ++openFonts_;
}

std::optional<std::wstring> GdiText::Wide(std::string_view text) const
{
    return WideOfUtf8(text, codePage_);
}

UINT GdiText::PageOf(const Font& font, std::string_view text)
{
    if (Wide(text)) {
        return CP_UTF8;
    }
    EntryOf(font); // selects it
    // Of the font that was found, which may lack the character set that was asked for.
    const auto charset = static_cast<DWORD_PTR>(GetTextCharset(dc_.Get()));
    CHARSETINFO info = {};
    const bool known =
        TranslateCharsetInfo(reinterpret_cast<DWORD*>(charset), &info, TCI_SRCCHARSET) != FALSE &&
        charset != SYMBOL_CHARSET && IsValidCodePage(info.ciACP) != FALSE;
    return known ? info.ciACP : CP_ACP;
}

GdiText::Entry& GdiText::EntryOf(const Font& font)
{
    if (lastFont_ != nullptr && *lastFont_ == font) {
        return *lastEntry_;
    }
    if (entries_.size() >= kKnownFonts && !entries_.contains(font)) {
        CloseFonts();
        entries_.clear();
    }
    const auto place = entries_.try_emplace(font).first;
    Entry& entry = place->second;
    if (!entry.handle) {
        Open(font, entry);
    }
    SelectObject(dc_.Get(), entry.handle.Get());
    if (entry.lineHeight == 0) {
        TEXTMETRICA metrics = {};
        GetTextMetricsA(dc_.Get(), &metrics);
        entry.lineHeight = std::max<int>(metrics.tmHeight, 1);
    }
    lastFont_ = &place->first;
    lastEntry_ = &entry;
    return entry;
}

HFONT GdiText::Handle(const Font& font)
{
    return EntryOf(font).handle.Get();
}

Twips GdiText::LineHeight(const Font& font)
{
    return scale_.TwipsY(EntryOf(font).lineHeight);
}

Twips GdiText::Width(const Font& font, std::string_view text)
{
    EntryOf(font); // selects it
    double pixels = 0;
    while (!text.empty()) {
        const std::string_view piece = codePage_.FirstCharacters(text, kPiece);
        SIZE size = {};
        if (const auto wide = Wide(piece)) {
            GetTextExtentPoint32W(dc_.Get(), wide->data(), static_cast<int>(wide->size()), &size);
        } else {
            GetTextExtentPoint32A(dc_.Get(), piece.data(), static_cast<int>(piece.size()), &size);
        }
        pixels += size.cx;
        text.remove_prefix(piece.size());
    }
    return scale_.TwipsX(pixels);
}

std::size_t GdiText::Fit(const Font& font, std::string_view text, Twips width)
{
    EntryOf(font); // selects it
    const int pixels = std::max(scale_.PixelsX(width), 0);
    // Measuring costs time for each character, and a row of a long text is a small part of it: most
    // letters are wider than four pixels, and hardly any narrower than one.
    const auto most = static_cast<std::size_t>(pixels) * 2 + 64;
    for (auto count = static_cast<std::size_t>(pixels) / 4 + 16;;
         count = std::min(count * 2, most)) {
        const std::string_view part = codePage_.FirstCharacters(text, count);
        const std::size_t fits = FitAll(part, pixels);
        if (fits < part.size() || part.size() == text.size() || count == most) {
            return fits;
        }
    }
}

std::size_t GdiText::FitAll(std::string_view text, int pixels) const
{
    int fits = 0;
    SIZE size = {};
    if (const auto wide = Wide(text)) {
        GetTextExtentExPointW(dc_.Get(), wide->data(), static_cast<int>(wide->size()), pixels,
                              &fits, nullptr, &size);
        return BytesOf(text, fits, codePage_);
    }
    GetTextExtentExPointA(dc_.Get(), text.data(), static_cast<int>(text.size()), pixels, &fits,
                          nullptr, &size);
    return codePage_.WholeCharacters(text, static_cast<std::size_t>(fits)).size();
}

} // namespace nv
