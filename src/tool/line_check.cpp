#include "tool/line_check.h"

#include "docs/menu_line.h"
#include "tool/tool_text.h"

#include <algorithm>
#include <array>
#include <optional>

namespace nv
{

namespace
{

constexpr auto npos = std::string_view::npos;
constexpr char kOldEndOfFile = '\x1A';

constexpr std::array<std::string_view, 10> kNames = {
    "CAPTION",    "LINK",    "FONTNAME",  "FONTSIZE",  "FONTBOLD",
    "FONTITALIC", "FONTSTR", "FONTUNDER", "FONTCOLOR", "FONTCHAR"};
constexpr std::size_t kFirstOfFont = 2;

// Where a tag stands in a line; positions from 0.
struct Place {
    std::string_view name;
    std::size_t begin = 0; // of the opening mark
    std::size_t value = 0;
    std::size_t valueEnd = 0;
    std::size_t end = 0; // of the closing mark
    bool closed = false;
};

// The tag that GetTag finds; nothing when there is none.
std::optional<Place> FindTag(std::string_view line, std::string_view name)
{
    const std::string open = '<' + std::string(name) + '>';
    const std::string close = "</" + std::string(name) + '>';
    Place place;
    place.name = name;
    place.begin = line.find(open);
    if (place.begin == npos) {
        return std::nullopt;
    }
    place.value = place.begin + open.size();
    place.valueEnd = line.find(close, place.value);
    place.closed = place.valueEnd != npos;
    if (!place.closed) {
        place.valueEnd = line.size();
    }
    place.end = place.closed ? place.valueEnd + close.size() : line.size();
    return place;
}

class LineCheck
{
public:
    LineCheck(std::string_view line, const MenuItem& item, const CodePage& codePage)
        : line_(line), item_(item), codePage_(codePage)
    {
    }

    std::vector<std::string> Run();

private:
    bool Plain() const;
    void FindTags();
    void CheckType();
    void CheckMissing();
    void CheckPlace(const Place& place);
    void CheckFontValues();
    void CheckLost();
    std::string Quote(std::string_view text) const { return Excerpt(text, codePage_); }

    std::string_view line_;
    const MenuItem& item_;
    const CodePage& codePage_;
    bool canonical_ = false;
    std::vector<Place> places_; // of the tags that are there, in their order in the line
    std::vector<std::string> findings_;
};

std::vector<std::string> LineCheck::Run()
{
    canonical_ = EncodeLine(item_) == line_;
    if (Plain()) {
        return {};
    }
    if (line_.empty()) {
        return {"the line is empty: an entry that is not shown"};
    }
    FindTags();
    if (places_.empty()) {
        return {"no entry can be read from " + Quote(line_)};
    }
    CheckType();
    CheckMissing();
    for (const Place& place : places_) {
        CheckPlace(place);
    }
    CheckFontValues();
    CheckLost();
    if (line_.find(kOldEndOfFile) != npos) {
        findings_.emplace_back("the character with code 26 will be saved as a line break");
    }
    if (findings_.empty() && !canonical_) {
        findings_.emplace_back("the tags do not stand in their order, or not one blank apart");
    }
    return std::move(findings_);
}

// Nearly every line, and quickly seen: the program's own form, and no mark beside the twenty.
bool LineCheck::Plain() const
{
    return canonical_ && item_.type <= ItemType::vLine &&
           std::count(line_.begin(), line_.end(), '<') == 2 * std::ssize(kNames) &&
           line_.find(kOldEndOfFile) == npos;
}

void LineCheck::FindTags()
{
    for (const std::string_view name : kNames) {
        if (const auto place = FindTag(line_, name)) {
            places_.push_back(*place);
        }
    }
    std::sort(places_.begin(), places_.end(),
              [](const Place& left, const Place& right) { return left.begin < right.begin; });
}

// What stands before the tags: "3>".
void LineCheck::CheckType()
{
    const std::string_view text = line_.substr(0, places_.front().begin);
    const int type = static_cast<int>(item_.type);
    if (item_.type > ItemType::vLine) {
        findings_.push_back("there is no type " + std::to_string(type) +
                            ": the entry is not shown");
    }
    if (text != std::to_string(type) + '>') {
        findings_.push_back(Quote(text) + " is read as type " + std::to_string(type));
    }
}

void LineCheck::CheckMissing()
{
    std::string missing;
    for (const std::string_view name : kNames) {
        if (std::none_of(places_.begin(), places_.end(),
                         [&](const Place& place) { return place.name == name; })) {
            missing.append(missing.empty() ? "" : ", ").append(name);
        }
    }
    if (!missing.empty()) {
        findings_.push_back("missing: " + missing);
    }
}

void LineCheck::CheckPlace(const Place& place)
{
    const std::string name(place.name);
    if (!place.closed) {
        findings_.push_back(name + " has no </" + name +
                            ">: all the rest of the line is its value");
    }
    for (const Place& other : places_) {
        // One without an end is reported by itself.
        if (other.closed && other.value <= place.begin && place.begin < other.valueEnd) {
            findings_.push_back(name + " is read from within " + std::string(other.name));
            break;
        }
    }
}

void LineCheck::CheckFontValues()
{
    MenuItem font = item_;
    font.caption.clear(); // they may hold tags
    font.link.clear();
    const std::string written = EncodeLine(font);
    for (std::size_t tag = kFirstOfFont; tag < kNames.size(); ++tag) {
        const auto place = FindTag(line_, kNames[tag]);
        if (!place || !place->closed) {
            continue;
        }
        const std::string_view value = GetTag(line_, kNames[tag]);
        const std::string_view becomes = GetTag(written, kNames[tag]);
        if (value != becomes) {
            findings_.push_back(std::string(kNames[tag]) + ' ' + Quote(value) + " is read as " +
                                Quote(becomes));
        }
    }
}

// What belongs to no tag: it is never read, and gone when the entry is changed.
void LineCheck::CheckLost()
{
    std::size_t covered = places_.front().begin;
    const auto check = [&](std::size_t next) {
        if (next > covered) {
            const std::string_view between = Trim(line_.substr(covered, next - covered));
            if (!between.empty()) {
                findings_.push_back("not read: " + Quote(between));
            }
        }
    };
    for (const Place& place : places_) {
        check(place.begin);
        covered = std::max(covered, place.end);
    }
    check(line_.size());
}

} // namespace

std::vector<std::string> LineFindings(std::string_view line, const MenuItem& item,
                                      const CodePage& codePage)
{
    return LineCheck(line, item, codePage).Run();
}

} // namespace nv
