// What a document needs about it beside files and boxes, in memory.
#pragma once

#include "docs/menu_document.h"
#include "platform/event_pump.h"
#include "platform/settings.h"

#include <functional>
#include <map>
#include <string>
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
    bool isAsking = false;
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
    void UnsavedChanged() override {}
    void AskingToSave(bool asking) override { isAsking = asking; }
    void HomeChanged(const std::string& path) override { log.push_back("home " + path); }
};

// Counts the calls, and ends the work at one of them.
class FakePump : public EventPump
{
public:
    int calls = 0;
    int endAt = 0;                   // the call that answers "no longer wanted"; 0: none
    std::function<void()> whileThen; // runs in every call, as waiting events would

    bool LetEventsThrough() override
    {
        ++calls;
        if (whileThen) {
            whileThen();
        }
        return calls != endAt;
    }
};

// Settings in memory. Like the real ones they hold text unless the type says number.
class FakeSettings : public Settings
{
public:
    std::map<std::pair<std::string, std::string>, SettingValue> values;
    int writes = 0;

    SettingValue GetKeyValue(const std::string& section, const std::string& name,
                             const SettingValue& byDefault) override
    {
        const auto found = values.find({section, name});
        return found == values.end() || name.empty() ? byDefault : found->second;
    }

    long SetKeyValue(const std::string& section, const std::string& name, const SettingValue& value,
                     SettingType type = SettingType::byDefault) override
    {
        ++writes;
        values[{section, name}] =
            type == SettingType::number ? value : SettingValue(SettingText(value));
        return 0;
    }

    std::string Text(const std::string& section, const std::string& name)
    {
        return SettingText(GetKeyValue(section, name, "(none)"));
    }
};

} // namespace nv
