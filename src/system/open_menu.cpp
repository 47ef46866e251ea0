#include "system/open_menu.h"

#include "docs/paths.h"

namespace nv
{

namespace
{

constexpr char kExtension[] = "NVM";

bool OpenExisting(OpenMenuFields& fields, MenuDocument& document, Files& files, Prompts& prompts,
                  const std::string& path)
{
    if (FileExtension(path) != kExtension) {
        prompts.Ask("Please select a \"NVM\" file.", PromptIcon::exclamation, PromptButtons::ok);
        fields.FocusText1();
        return false;
    }
    if (FileExists(files, document.FullPath(path))) {
        const bool opened = document.FOpen(path); // it tells the user itself what goes wrong
        if (!opened) {
            fields.FocusText1();
        }
        return opened;
    }
    const Answer answer = prompts.Ask("File " + ShortenedForBox(path, document.Page()) +
                                          " does not exist.\n\n"
                                          "Would you like to create a new menu?",
                                      PromptIcon::exclamation, PromptButtons::yesNo);
    bool done = false;
    if (answer == Answer::yes) {
        fields.SetMNew(true);
        done = ConfirmOpenMenu(fields, document, files, prompts);
    }
    fields.FocusText1();
    return done;
}

bool CreateNew(OpenMenuFields& fields, MenuDocument& document, Prompts& prompts, std::string path)
{
    const PathParts parts = SplitPath(path, document.Page());
    if (parts.folder.empty() || parts.fileName.empty()) {
        prompts.Ask("This is not a valid path.", PromptIcon::none, PromptButtons::ok);
        return false;
    }
    if (parts.fileName.find('.') == std::string::npos) {
        path += ".nvm";
    } else if (FileExtension(parts.fileName) != kExtension) {
        prompts.Ask("This is not a valid file extension.\n\nPlease enter a \"NVM\" extension.",
                    PromptIcon::none, PromptButtons::ok);
        return false;
    }
    fields.SetText1(path);
    if (!document.CreateNewMenuFile(path)) {
        fields.FocusText1();
        return false;
    }
    document.FOpen(path);
    return true; // also when it is not shown: the menu has been created
}

} // namespace

bool ConfirmOpenMenu(OpenMenuFields& fields, MenuDocument& document, Files& files, Prompts& prompts)
{
    const std::string path = fields.Text1();
    if (path.empty()) {
        prompts.Ask("Please enter as file path.", PromptIcon::none, PromptButtons::ok);
        return false;
    }
    return fields.MNew() ? CreateNew(fields, document, prompts, path)
                         : OpenExisting(fields, document, files, prompts, path);
}

} // namespace nv
