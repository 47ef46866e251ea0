#pragma once

#include "docs/menu_item.h"
#include "docs/menu_lines.h"
#include "platform/ansi_text.h"
#include "platform/canvas.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace nv
{

// The kinds of entry that stand in the column; a space is a gap without a row.
enum class RowKind : std::uint8_t { title, label, line, link };

// One row of the column. What it shows is decoded from its line when it is painted, so that a menu
// of 100,000 entries holds 20 bytes for each.
struct Row {
    Twips top = 0; // on the content panel P1
    Twips height = 0;
    std::uint32_t entry = 0;    // index of its line in the document
    std::uint32_t bornTick = 0; // titles: the typing tick at which it was made
    RowKind kind = RowKind::line;
};

// Where each entry of a menu stands on the content panel P1.
class MenuColumn
{
public:
    // measure must outlive the column.
    MenuColumn(TextMeasure& measure, const CodePage& codePage);

    // Empties the column: the column position is that of the first entry, and P1 as high.
    void FClear();
    // Width of P1. Labels that were added for another width need a Rewrap.
    void SetWidth(Twips width) { width_ = width; }
    Twips Width() const { return width_; }

    // Adds entry index below the others, by its type. Its font must already be capped. Entries that
    // are not shown add nothing. tick: the typing clock, for titles.
    void Add(std::uint32_t index, const MenuItem& item, std::uint32_t tick);
    // Lays out the rows of the labels again, and moves everything below them, after a new width.
    void Rewrap(const MenuLines& lines, const Font& defaultFont);

    // Height of P1.
    Twips Height() const { return height_; }
    const std::vector<Row>& Rows() const { return rows_; }
    // Rows of the links, top to bottom: member k of the KelItem1 array is Links()[k - 1].
    const std::vector<std::uint32_t>& Links() const { return links_; }
    // The first row whose bottom lies below y; Rows().size() when there is none.
    std::size_t FirstRowBelow(Twips y) const;
    bool HasLabels() const { return hasLabels_; }

    static Twips Left(RowKind kind);
    Twips LabelWidth() const { return width_ - 480; }
    Twips LineWidth() const { return width_ - 240; }

private:
    void LoadTIT(std::uint32_t index, const MenuItem& item, std::uint32_t tick);
    void LoadLAB(std::uint32_t index, const MenuItem& item);
    void LoadLN(std::uint32_t index);
    void LoadLink(std::uint32_t index, const MenuItem& item);
    // Adds a row with gaps above and below it, and makes P1 as high as the new column position.
    void AddRow(Row row, Twips above, Twips below);
    Twips LabelHeight(const MenuItem& item) const;

    static constexpr Twips kFirstPosition = 100;

    TextMeasure& measure_;
    CodePage codePage_;
    Twips width_ = 0;
    Twips position_ = kFirstPosition; // top of the next free row
    Twips height_ = kFirstPosition;
    std::vector<Row> rows_;
    std::vector<std::uint32_t> links_;
    bool hasLabels_ = false;
};

// The entry that a document line holds, as it is shown: fonts above 100 points are cut to 100.
MenuItem ShownItem(std::string_view line, const Font& defaultFont);

} // namespace nv
