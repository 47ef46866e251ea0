#pragma once

#include "docs/menu_document.h"

#include <functional>
#include <utility>
#include <vector>

namespace nv
{

// Keeps what the document reported, in order.
class FakeDocumentEvents : public DocumentEvents
{
public:
    using Log = std::vector<std::string>;

    Log log;
    bool showToTheEnd = true;        // what LinesRebuilt answers
    std::function<void()> onRebuilt; // runs in LinesRebuilt, as waiting events would

    // What was reported since the last call.
    Log Take() { return std::exchange(log, {}); }

    void Leaving(const std::string& path) override { log.push_back("leaving " + path); }
    void Cleared() override { log.push_back("cleared"); }
    void TitleChanged(const std::string& name) override { log.push_back("title " + name); }
    void Opened(const std::string& path) override { log.push_back("opened " + path); }
    bool LinesRebuilt() override
    {
        log.push_back("lines");
        if (onRebuilt) {
            onRebuilt();
        }
        return showToTheEnd;
    }
    void FileChanged(const std::string& path) override { log.push_back("file " + path); }
    void HomeChanged(const std::string& path) override { log.push_back("home " + path); }
};

} // namespace nv
