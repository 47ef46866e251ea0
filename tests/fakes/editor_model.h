// The editor of a menu, written once more: for the tests of its rules, and for the robot.
#pragma once

#include "docs/menu_line.h"
#include "platform/system_colors.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace nv
{

inline const Font kDefaultFont{"Tahoma", 8, false, false, false, false, 238};
inline const MenuItem kNewEntry{ItemType::vLink, "", "", kDefaultFont, SystemColor(8)};

// What the editor is to do, told once more over plain texts: every step for undo is the whole list.
struct EditorModel {
    struct State {
        std::vector<std::string> lines;
        int selected = -1;
    };
    using Steps = std::vector<std::pair<State, State>>; // before, after
    State now;
    Steps done, undone;
    int remembered = -1;
    bool marked = false;
    bool editing = false;
    MenuItem fields = kNewEntry;
    char typing = 0; // the field whose typing the last step still takes up

    int Count() const { return static_cast<int>(now.lines.size()); }
    void Select(int index)
    {
        typing = 0;
        now.selected = index < Count() ? index : -1;
        if (now.selected >= 0) {
            fields = DecodeLine(now.lines.at(static_cast<std::size_t>(index)), kDefaultFont);
        }
    }
    void SelectNext() { Select(std::min(now.selected + 1, Count() - 1)); }
    void Change(std::vector<std::string> lines, int selected)
    {
        done.push_back({now, {}});
        undone.clear();
        now.lines = std::move(lines);
        Select(selected);
        done.back().second = now;
        marked = true;
    }
    void Update(char field)
    {
        const bool goesOn = field != 0 && field == typing;
        typing = goesOn ? field : char{0};
        if (now.selected < 0) {
            return;
        }
        marked = true;
        std::string& line = now.lines.at(static_cast<std::size_t>(now.selected));
        if (EncodeLine(fields) == line) {
            return;
        }
        if (!goesOn) {
            done.push_back({now, {}});
            undone.clear();
        }
        line = EncodeLine(fields);
        done.back().second = now;
        typing = field;
        if (done.back().first.lines == now.lines) {
            done.pop_back();
            typing = 0;
        }
    }
    template <typename Value> void Write(char field, Value& place, const Value& value)
    {
        place = value;
        Update(field);
    }
    void SetCaption(const std::string& text) { Write('c', fields.caption, text); }
    void SetLink(const std::string& text) { Write('l', fields.link, text); }
    void SetType(ItemType type) { Write(0, fields.type, type); }
    void SetFont(Font font, Color color)
    {
        font.size = std::min(font.size, 100.0);
        fields.font = font;
        Write(0, fields.fontColor, color);
    }
    void EndTyping() { typing = 0; }
    void Insert(const std::vector<std::string>& inserted, int at)
    {
        std::vector<std::string> lines = now.lines;
        lines.insert(lines.begin() + at, inserted.begin(), inserted.end());
        Change(lines, at + static_cast<int>(inserted.size()) - 1);
    }
    void InsertNew() { Insert({EncodeLine(fields)}, now.selected + 1); }
    void InsertFiles(const std::vector<std::string>& paths, int at)
    {
        std::vector<std::string> lines;
        for (const std::string& path : paths) {
            MenuItem item = kNewEntry;
            item.caption = path == "C:\\Tools\\a b.exe" ? "a b.exe" : path;
            item.link = '"' + path + '"';
            lines.push_back(EncodeLine(item));
        }
        if (!lines.empty()) {
            Insert(lines, at);
        }
    }
    void Remove()
    {
        const int at = now.selected;
        if (at >= 0) {
            std::vector<std::string> lines = now.lines;
            lines.erase(lines.begin() + at);
            Change(lines, at < Count() - 2 ? at : at - 1);
        }
    }
    void MoveTo(int gap)
    {
        const int from = now.selected;
        if (from >= 0 && gap != from && gap != from + 1) {
            const int to = gap > from ? gap - 1 : gap;
            std::vector<std::string> lines = now.lines;
            lines.erase(lines.begin() + from);
            lines.insert(lines.begin() + to, now.lines.at(static_cast<std::size_t>(from)));
            Change(lines, to);
        }
    }
    void MoveUp() { MoveTo(std::max(now.selected - 1, 0)); }
    void MoveDown() { MoveTo(std::min(now.selected + 2, Count())); }
    void Travel(Steps& from, Steps& to, bool back)
    {
        if (!from.empty()) {
            to.push_back(from.back());
            from.pop_back();
            now = back ? to.back().first : to.back().second;
            Select(now.selected);
            marked = true;
        }
    }
    void Undo() { Travel(done, undone, true); }
    void Redo() { Travel(undone, done, false); }
    void Enter()
    {
        editing = true;
        Select(remembered < Count() ? std::max(remembered, 0) : 0);
    }
    void Leave()
    {
        typing = 0;
        editing = false;
        remembered = now.selected;
    }
    void Loaded()
    {
        const int before = std::max(now.selected, 0);
        Select(-1);
        fields = kNewEntry;
        if (editing) {
            Select(before < Count() ? before : 0);
        }
    }
};

} // namespace nv
