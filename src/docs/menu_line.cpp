#include "docs/menu_line.h"

#include "platform/ansi_text.h"
#include "platform/byte_scan.h"
#include "platform/units.h"

#include <algorithm>
#include <array>
#include <optional>

namespace nv
{

namespace
{

// The tags in the order in which EncodeLine writes them.
enum Tag : std::size_t {
    kCaption,
    kLink,
    kFontName,
    kFontSize,
    kFontBold,
    kFontItalic,
    kFontStrikethrough,
    kFontUnderline,
    kFontColor,
    kFontCharset,
    kTagCount
};

// "<LINK>" or "</LINK>". Comparing two words, the first and the last eight bytes, takes half the
// time of a call to memcmp, and a line has twenty marks.
class Mark
{
public:
    constexpr Mark(const char* text)
        : text_(text), tailAt_(text_.size() < 8 ? 0 : text_.size() - 8),
          mask_(text_.size() < 8 ? (1ull << 8 * text_.size()) - 1 : ~0ull),
          head_(Word(text_.substr(0, 8))), tail_(Word(text_.substr(tailAt_)))
    {
    }

    constexpr std::string_view Text() const { return text_; }
    std::size_t Size() const { return text_.size(); }
    bool StandsAt(const char* at, const char* end) const
    {
        const auto rest = static_cast<std::size_t>(end - at);
        if (rest < std::max<std::size_t>(text_.size(), 8)) {
            return std::string_view(at, rest).substr(0, text_.size()) == text_;
        }
        return (byte_scan::Load(at) & mask_) == head_ &&
               (byte_scan::Load(at + tailAt_) & mask_) == tail_;
    }

private:
    static constexpr std::uint64_t Word(std::string_view bytes)
    {
        std::uint64_t word = 0;
        for (std::size_t index = 0; index < bytes.size(); ++index) {
            word |= std::uint64_t{static_cast<unsigned char>(bytes[index])} << 8 * index;
        }
        return word;
    }

    std::string_view text_;
    std::size_t tailAt_;
    std::uint64_t mask_; // of the bytes of a mark that is shorter than a word
    std::uint64_t head_;
    std::uint64_t tail_;
};

struct TagText {
    Mark open;
    Mark close;
};

constexpr std::array<TagText, kTagCount> kTags = {{
    {"<CAPTION>", "</CAPTION>"},
    {"<LINK>", "</LINK>"},
    {"<FONTNAME>", "</FONTNAME>"},
    {"<FONTSIZE>", "</FONTSIZE>"},
    {"<FONTBOLD>", "</FONTBOLD>"},
    {"<FONTITALIC>", "</FONTITALIC>"},
    {"<FONTSTR>", "</FONTSTR>"},
    {"<FONTUNDER>", "</FONTUNDER>"},
    {"<FONTCOLOR>", "</FONTCOLOR>"},
    {"<FONTCHAR>", "</FONTCHAR>"},
}};

// The values of all ten tags from one pass over the line: for each what GetTag gives. That works
// because no mark ("<LINK>", "</LINK>", ...) begins another one and none holds a second "<": at
// one "<" stands one mark at most, and marks do not overlap.
class TagValues
{
public:
    explicit TagValues(std::string_view line);
    std::string_view operator[](Tag tag) const { return values_[tag]; }

private:
    // Takes the mark that begins at at; the position after it, or nullptr when none begins there.
    const char* Take(const char* at, const char* end);
    const char* TakeOpen(Tag tag, const char* at, const char* end);
    const char* TakeClose(Tag tag, const char* at, const char* end);

    std::array<std::string_view, kTagCount> values_;
    std::array<bool, kTagCount> opened_{};
    std::array<bool, kTagCount> closed_{};
    std::size_t closedCount_ = 0;
    std::size_t expected_ = 0; // the tag that follows in a line that a program wrote
};

TagValues::TagValues(std::string_view line)
{
    const char* end = line.data() + line.size();
    const char* at = FindByte(line.data(), end, '<');
    while (at != end && closedCount_ < kTagCount) {
        const char* after = Take(at, end);
        at = FindByte(after != nullptr ? after : at + 1, end, '<');
    }
}

const char* TagValues::Take(const char* at, const char* end)
{
    const bool closing = end - at > 1 && at[1] == '/';
    const auto take = [=, this](std::size_t tag) {
        return closing ? TakeClose(static_cast<Tag>(tag), at, end)
                       : TakeOpen(static_cast<Tag>(tag), at, end);
    };
    // Nearly every line has its tags in the one order: a single comparison finds the mark.
    if (const char* after = take(expected_)) {
        expected_ = (expected_ + (closing ? 1 : 0)) % kTagCount;
        return after;
    }
    for (std::size_t tag = 0; tag < kTagCount; ++tag) {
        if (const char* after = take(tag)) {
            return after;
        }
    }
    return nullptr;
}

const char* TagValues::TakeOpen(Tag tag, const char* at, const char* end)
{
    const Mark& mark = kTags[tag].open;
    if (!mark.StandsAt(at, end)) {
        return nullptr;
    }
    const char* after = at + mark.Size();
    if (!opened_[tag]) {
        opened_[tag] = true;
        values_[tag] = std::string_view(after, static_cast<std::size_t>(end - after));
    }
    return after;
}

const char* TagValues::TakeClose(Tag tag, const char* at, const char* end)
{
    const Mark& mark = kTags[tag].close;
    if (!mark.StandsAt(at, end)) {
        return nullptr;
    }
    if (opened_[tag] && !closed_[tag]) {
        closed_[tag] = true;
        ++closedCount_;
        values_[tag] = values_[tag].substr(0, static_cast<std::size_t>(at - values_[tag].data()));
    }
    return at + mark.Size();
}

// Sets flag when text is a truth value.
void AssignFlag(bool& flag, std::string_view text)
{
    if (EqualIgnoringCase(text, "True")) {
        flag = true;
    } else if (EqualIgnoringCase(text, "False")) {
        flag = false;
    }
}

void AssignFont(Font& font, const TagValues& values)
{
    if (!values[kFontName].empty()) {
        font.name = values[kFontName];
    }
    if (const auto size = ParseInteger(values[kFontSize]); size && *size >= 1) {
        font.size = *size;
    }
    AssignFlag(font.bold, values[kFontBold]);
    AssignFlag(font.italic, values[kFontItalic]);
    AssignFlag(font.strikethrough, values[kFontStrikethrough]);
    AssignFlag(font.underline, values[kFontUnderline]);
    const auto charset = ParseInteger(values[kFontCharset]);
    if (charset && *charset >= INT16_MIN && *charset <= INT16_MAX) {
        font.charset = static_cast<std::int16_t>(*charset);
    }
}

} // namespace

std::string EncodeLine(const MenuItem& item)
{
    const auto flag = [](bool set) { return std::string(set ? "True" : "False"); };
    const std::array<std::string, kTagCount> values = {
        item.caption,
        item.link,
        item.font.name,
        std::to_string(RoundHalfEven(item.font.size)),
        flag(item.font.bold),
        flag(item.font.italic),
        flag(item.font.strikethrough),
        flag(item.font.underline),
        std::to_string(item.fontColor),
        std::to_string(item.font.charset),
    };
    std::string line = std::to_string(static_cast<int>(item.type));
    line += '>';
    for (std::size_t tag = 0; tag < kTagCount; ++tag) {
        line.append(tag == 0 ? "" : " ");
        line.append(kTags[tag].open.Text()).append(values[tag]).append(kTags[tag].close.Text());
    }
    return line;
}

std::string_view GetTag(std::string_view line, std::string_view tagName)
{
    const std::string open = std::string("<").append(tagName).append(">");
    const std::string close = std::string("</").append(tagName).append(">");
    const auto at = line.find(open);
    if (at == std::string_view::npos) {
        return {};
    }
    const std::string_view rest = line.substr(at + open.size());
    return rest.substr(0, rest.find(close));
}

MenuItem DecodeLine(std::string_view line, const Font& defaultFont)
{
    MenuItem item;
    item.font = defaultFont;
    if (!line.empty() && line.front() >= '0' && line.front() <= '9') {
        item.type = static_cast<ItemType>(line.front() - '0');
    }
    const TagValues values(line);
    item.caption = values[kCaption];
    item.link = values[kLink];
    AssignFont(item.font, values);
    item.fontColor = ParseInteger(values[kFontColor]).value_or(0);
    return item;
}

} // namespace nv
