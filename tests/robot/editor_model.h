#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace nv::robot
{

// What a user expects of the editor: a list, a selection, and whole states to go back to. What
// works on the selected entry may only be called when there is one.
class EditorModel
{
public:
    // lines: of the Menu file, without line ends.
    explicit EditorModel(const std::vector<std::string>& lines) : now_{lines, std::nullopt} {}

    std::size_t Count() const { return now_.lines.size(); }
    std::optional<std::size_t> Selected() const { return now_.selected; }
    std::string File() const
    {
        std::string content;
        for (const std::string& line : now_.lines) {
            content += line + "\r\n";
        }
        return content;
    }
    void Select(std::size_t index) { Show({now_.lines, index}); }
    // A copy of what the fields show, below the selected entry.
    void InsertNew()
    {
        State after = now_;
        after.selected = now_.selected ? *now_.selected + 1 : 0;
        after.lines.insert(At(after, *after.selected), fields_);
        Record(after);
    }
    void Remove()
    {
        State after = now_;
        const std::size_t at = *now_.selected;
        after.lines.erase(At(after, at));
        if (at + 1 >= after.lines.size()) { // the last one or the one before it
            after.selected = at > 0 ? std::optional(at - 1) : std::nullopt;
        }
        Record(after);
    }
    // To before the entry that is at gap now; a gap past the end is the end.
    void MoveTo(std::size_t gap)
    {
        const std::size_t from = *now_.selected;
        if (gap == from || gap == from + 1 || (gap > Count() && from + 1 == Count())) {
            return;
        }
        State after = now_;
        after.selected = gap < from ? gap : gap - 1;
        after.lines.erase(At(after, from));
        after.lines.insert(At(after, *after.selected), now_.lines[from]);
        Record(after);
    }
    // The selected entry's command gets text at its end, in one piece.
    void TypeCommand(const std::string& text)
    {
        State after = now_;
        std::string& line = after.lines[*now_.selected];
        line.insert(line.find("</LINK>"), text);
        Record(after);
    }
    // Both select what was selected right before or after the change, not what is since.
    void Undo()
    {
        if (done_ > 0) {
            Show(steps_[--done_].first);
        }
    }
    void Redo()
    {
        if (done_ < steps_.size()) {
            Show(steps_[done_++].second);
        }
    }

private:
    struct State {
        std::vector<std::string> lines;
        std::optional<std::size_t> selected;
    };

    static std::vector<std::string>::iterator At(State& state, std::size_t index)
    {
        return state.lines.begin() + static_cast<std::ptrdiff_t>(index);
    }
    void Record(const State& after)
    {
        steps_.resize(done_++);
        steps_.emplace_back(now_, after);
        Show(after);
    }
    // Without a selection the fields keep what they hold.
    void Show(const State& state)
    {
        now_ = state;
        fields_ = now_.selected ? now_.lines[*now_.selected] : fields_;
    }

    State now_;
    std::string fields_;
    std::vector<std::pair<State, State>> steps_;
    std::size_t done_ = 0;
};

} // namespace nv::robot
