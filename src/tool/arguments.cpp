#include "tool/arguments.h"

#include "docs/paths.h"
#include "tool/tool_text.h"

#include <algorithm>
#include <cstdint>

namespace nv
{

namespace
{

// The files of a folder are listed by short names, too: "*.nvm" then finds "a.nvm~".
void KeepExtension(std::vector<std::string>& names, const std::string& extension)
{
    if (!extension.empty() && extension.find_first_of("*?") == std::string::npos) {
        std::erase_if(names,
                      [&](const std::string& name) { return FileExtension(name) != extension; });
    }
}

class Reader
{
public:
    Reader(Files& files, const CodePage& codePage) : files_(files), codePage_(codePage) {}

    ToolRequest Read(const std::vector<std::string>& arguments);

private:
    void TakeCommand(const std::string& name);
    void TakeOption(const std::string& option);
    void TakeFile(const std::string& name);
    void TakePattern(const std::string& pattern);
    void Check();

    Files& files_;
    const CodePage& codePage_;
    ToolRequest request_;
    bool outputNext_ = false; // "-o" was the last argument
    bool named_ = false;      // the command was
};

ToolRequest Reader::Read(const std::vector<std::string>& arguments)
{
    bool options = true;
    for (const std::string& argument : arguments) {
        if (!request_.error.empty()) {
            break;
        }
        if (outputNext_) {
            outputNext_ = false;
            if (argument.empty() || (options && argument.starts_with('-'))) {
                request_.error = "no file is named to write to";
            } else {
                request_.output = files_.FullPath(argument);
            }
        } else if (options && argument == "--") {
            options = false;
        } else if (options && (argument.starts_with('-') || argument == "/?")) {
            TakeOption(argument);
        } else if (!named_) {
            TakeCommand(argument);
        } else {
            TakeFile(argument);
        }
    }
    const bool asked = named_ && (request_.command == ToolCommand::help ||
                                  request_.command == ToolCommand::version);
    if (request_.error.empty() && !asked) {
        Check();
    }
    return request_;
}

void Reader::TakeCommand(const std::string& name)
{
    named_ = true;
    if (name == "check") {
        request_.command = ToolCommand::check;
    } else if (name == "list") {
        request_.command = ToolCommand::list;
    } else if (name == "import") {
        request_.command = ToolCommand::import;
    } else {
        request_.error = "there is no command " + Excerpt(name, codePage_);
    }
}

void Reader::TakeOption(const std::string& option)
{
    if (option == "--help" || option == "-h" || option == "/?") {
        request_.command = ToolCommand::help;
        named_ = true;
    } else if (option == "--version") {
        request_.command = ToolCommand::version;
        named_ = true;
    } else if (option == "--no-links" && request_.command == ToolCommand::check) {
        request_.links = false;
    } else if (option == "-o" && request_.command == ToolCommand::import) {
        outputNext_ = true;
    } else if (option == "--force" && request_.command == ToolCommand::import) {
        request_.force = true;
    } else {
        request_.error = "the option " + Excerpt(option, codePage_) + " does not belong here";
    }
}

void Reader::TakeFile(const std::string& name)
{
    if (name.empty()) {
        request_.error = "the name of a file is empty";
    } else if (request_.command != ToolCommand::import &&
               name.find_first_of("*?") != std::string::npos) {
        TakePattern(name);
    } else {
        request_.files.push_back({name, files_.FullPath(name)});
    }
}

void Reader::TakePattern(const std::string& pattern)
{
    std::vector<std::string> names = files_.List(pattern, SIZE_MAX);
    KeepExtension(names, FileExtension(pattern));
    std::sort(names.begin(), names.end(), NameBefore);
    if (names.empty()) {
        names.push_back(pattern); // opening it tells what is wrong
    } else {
        // "C:*.nvm" has a folder without a backslash.
        auto last = codePage_.FindLast(pattern, '\\');
        last = last == std::string::npos ? codePage_.FindLast(pattern, ':') : last;
        const std::string folder = pattern.substr(0, last == std::string::npos ? 0 : last + 1);
        for (std::string& name : names) {
            name.insert(0, folder);
        }
    }
    for (const std::string& name : names) {
        request_.files.push_back({name, files_.FullPath(name)});
    }
}

void Reader::Check()
{
    if (!named_) {
        request_.error = "no command is given";
    } else if (outputNext_ || (request_.force && request_.output.empty())) {
        request_.error = "no file is given to write to";
    } else if (request_.files.empty()) {
        request_.error =
            request_.command == ToolCommand::import ? "no folder is given" : "no file is given";
    } else if (request_.command == ToolCommand::import && request_.files.size() > 1) {
        request_.error = "more than one folder is given";
    }
}

} // namespace

std::vector<std::string> SplitArguments(std::string_view text)
{
    std::vector<std::string> arguments;
    bool within = false;
    bool quoted = false;
    for (const char ch : text) {
        if (!quoted && (ch == ' ' || ch == '\t')) {
            within = false;
            continue;
        }
        if (!within) {
            within = true;
            arguments.emplace_back();
        }
        if (ch == '"') {
            quoted = !quoted;
        } else {
            arguments.back() += ch;
        }
    }
    return arguments;
}

ToolRequest ReadArguments(const std::vector<std::string>& arguments, Files& files,
                          const CodePage& codePage)
{
    return Reader(files, codePage).Read(arguments);
}

} // namespace nv
