#pragma once

#include "docs/menu_document.h"
#include "fakes/fake_files.h"
#include "fakes/fake_surroundings.h"
#include "platform/prompts.h"

#include <deque>
#include <gtest/gtest.h>
#include <optional>

namespace nv
{

// Answers message boxes from a script and keeps what they showed. A box beyond the script, or an
// answer that no box asked for, fails the test.
class FakePrompts : public Prompts
{
public:
    struct Shown {
        std::string text;
        PromptIcon icon = PromptIcon::none;
        PromptButtons buttons = PromptButtons::ok;
        bool operator==(const Shown&) const = default;
    };

    std::vector<Shown> shown;
    std::function<void()> whileShown; // runs in every box, as the box's message loop would
    // Instead of the script: what every question gets; mere messages get OK.
    std::optional<Answer> toQuestions;

    ~FakePrompts() override { EXPECT_TRUE(answers_.empty()) << "a box was expected"; }

    void Expect(Answer answer) { answers_.push_back(answer); }
    // The only box since the last call; empty when there was none.
    Shown Take()
    {
        EXPECT_LE(shown.size(), 1u);
        Shown last = shown.empty() ? Shown{} : shown.back();
        shown.clear();
        return last;
    }

    Answer Ask(const std::string& text, PromptIcon icon, PromptButtons buttons) override
    {
        shown.push_back({text, icon, buttons});
        if (whileShown) {
            whileShown();
        }
        if (toQuestions) {
            return buttons == PromptButtons::ok ? Answer::ok : *toQuestions;
        }
        if (answers_.empty()) {
            ADD_FAILURE() << "unexpected box: " << text;
            return Answer::cancel;
        }
        const Answer answer = answers_.front();
        answers_.pop_front();
        return answer;
    }

private:
    std::deque<Answer> answers_;
};

inline void PrintTo(const FakePrompts::Shown& shown, std::ostream* out)
{
    *out << "icon " << static_cast<int>(shown.icon) << ", buttons "
         << static_cast<int>(shown.buttons) << ": " << shown.text;
}

// A document and the fakes about it.
template <typename FilesType = FakeFiles, typename Events = FakeDocumentEvents> struct FakeDesk {
    FilesType files;
    FakePrompts prompts;
    FakeSettings settings;
    FakePump pump;
    Events events;
    CodePage codePage;
    Font font{"Tahoma", 8, false, false, false, false, 238};
    MenuDocument document{files, prompts, settings, pump, events, codePage, font, "C:\\Menus"};

    // The file, what is said of it, and the lines.
    std::string State() const
    {
        std::string state = document.FFile() + (document.MCh() ? " changed" : "") +
                            (document.UnsavedChanges() ? " unsaved" : "") +
                            (document.Loading() ? " loading" : "") + ":";
        for (std::size_t index = 0; index < document.Lines().size(); ++index) {
            state.append(document.Lines()[index]).append("\r\n");
        }
        return state;
    }
};

} // namespace nv
