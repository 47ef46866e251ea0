#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace nv
{

// LHis: the paths of the menus left, oldest first. A step back that opens no menu stays in it.
class History
{
public:
    void Append(const std::string& path) { paths_.push_back(path); }
    bool Empty() const { return paths_.empty(); }
    // Takes the last path out, to open it; nothing when there is none. Each step is followed by
    // Settle.
    std::optional<std::string> StepBack()
    {
        if (paths_.empty()) {
            return std::nullopt;
        }
        step_ = std::move(paths_.back());
        paths_.pop_back();
        return step_;
    }
    // A menu was read whole.
    void Opened(const std::string& path)
    {
        if (step_ == path) {
            step_.reset();
        }
    }
    // A request is over. owed: the menu whose load was ended and begins again; empty: none. The
    // step, unless it was opened or still may be, is put back.
    void Settle(const std::string& owed)
    {
        if (step_ && *step_ != owed) {
            Append(*std::exchange(step_, std::nullopt));
        }
    }

private:
    std::vector<std::string> paths_;
    std::optional<std::string> step_; // under way
};

} // namespace nv
