#pragma once

#include <optional>
#include <string>
#include <vector>

namespace nv
{

// LHis: the paths of the menus left, oldest first.
class History
{
public:
    void Append(const std::string& path) { paths_.push_back(path); }
    // Removes and returns the last path; nothing when there is none.
    std::optional<std::string> TakeLast()
    {
        if (paths_.empty()) {
            return std::nullopt;
        }
        std::string last = std::move(paths_.back());
        paths_.pop_back();
        return last;
    }

private:
    std::vector<std::string> paths_;
};

} // namespace nv
