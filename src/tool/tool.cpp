#include "tool/tool.h"

#include "docs/menu_line.h"
#include "docs/safe_save.h"
#include "platform/system_error.h"
#include "tool/folder_menu.h"
#include "tool/line_check.h"
#include "tool/link_check.h"
#include "tool/menu_text.h"
#include "tool/tool_text.h"

#include <algorithm>
#include <memory>
#include <optional>

namespace nv
{

namespace
{

enum ExitCode { kGood = 0, kFindings = 1, kFailed = 2 };

constexpr char kUsage[] =
    "nvmtool check [--no-links] FILE...\r\n"
    "    Names every line that Navrix Menu would write differently, every value that is lost\r\n"
    "    or cut when it is read, and every link whose target is not found. Nothing is started.\r\n"
    "    --no-links: does not look for targets.\r\n"
    "nvmtool list FILE...\r\n"
    "    Writes the entries as a table with tabs between its columns.\r\n"
    "nvmtool import FOLDER [-o FILE [--force]]\r\n"
    "    Makes a menu of the files and shortcuts in a folder: to standard output, or to FILE.\r\n"
    "    --force: replaces a FILE that is there already.\r\n"
    "nvmtool --help\r\n"
    "nvmtool --version\r\n"
    "\r\n"
    "FILE may hold the wildcards * and ?. Exit code: 0 all is good, 1 something was found,\r\n"
    "2 wrong use, or a file could not be read or written.\r\n";

constexpr char kListHeader[] = "File\tLine\tType\tCaption\tCommand\tFont\tSize\tBold\tItalic\t"
                               "Strikethrough\tUnderline\tColor\tCharset\r\n";

class Tool
{
public:
    Tool(const ToolRequest& request, const ToolPlatform& platform)
        : request_(request), platform_(platform)
    {
    }

    int Run();

private:
    void Check();
    void CheckFile(const ToolFile& file);
    std::vector<std::string> FindingsOf(const MenuText& text, std::size_t index);
    void List();
    std::string Row(const ToolFile& file, const MenuText& text, std::size_t index) const;
    void Import();
    SystemError WriteNew(const std::string& menu);
    SystemError WriteOver(const std::string& menu);

    // The menu in file; nothing after complaining that it cannot be read.
    std::optional<MenuText> Read(const ToolFile& file);
    void Write(std::string_view text);
    void Fail(const std::string& complaint);
    void Fail(const std::string& what, SystemError error)
    {
        Fail(what + ": " + platform_.files.Describe(error));
    }

    const ToolRequest& request_;
    const ToolPlatform& platform_;
    std::optional<LinkCheck> links_;
    bool outputFailed_ = false; // and that was told: the rest is lost as well
    int code_ = kGood;
};

int Tool::Run()
{
    if (!request_.error.empty()) {
        Fail(request_.error + "; see nvmtool --help");
        return code_;
    }
    switch (request_.command) {
    case ToolCommand::check:
        Check();
        break;
    case ToolCommand::list:
        List();
        break;
    case ToolCommand::import:
        Import();
        break;
    case ToolCommand::help:
        Write(kUsage);
        break;
    case ToolCommand::version:
        Write("nvmtool " + platform_.version + "\r\n");
        break;
    }
    return code_;
}

void Tool::Check()
{
    if (request_.links) {
        links_.emplace(platform_.files, platform_.shell, platform_.programFolder,
                       platform_.codePage, platform_.expandVariables);
    }
    for (const ToolFile& file : request_.files) {
        CheckFile(file);
    }
}

void Tool::CheckFile(const ToolFile& file)
{
    const std::optional<MenuText> text = Read(file);
    if (!text) {
        return;
    }
    std::string report;
    const auto add = [&](std::size_t line, const std::string& finding) {
        report.append(file.shown).append(":").append(std::to_string(line));
        report.append(": ").append(finding).append("\r\n");
        code_ = std::max<int>(code_, kFindings);
    };
    if (text->byteOrderMark) {
        add(1, "the file begins with a byte-order mark, which is not read and not saved");
    }
    for (std::size_t index = 0; index < text->lines.size(); ++index) {
        for (const std::string& finding : FindingsOf(*text, index)) {
            add(index + 1, finding);
        }
    }
    Write(report);
}

std::vector<std::string> Tool::FindingsOf(const MenuText& text, std::size_t index)
{
    const std::string_view line = text.lines[index];
    const MenuItem item = DecodeLine(line, platform_.defaultFont);
    std::vector<std::string> findings = LineFindings(line, item, platform_.codePage);
    switch (text.ends[index]) {
    case LineEnd::crLf:
        break;
    case LineEnd::cr:
        findings.emplace_back("the line ends with CR alone, without LF");
        break;
    case LineEnd::lf:
        findings.emplace_back("the line ends with LF alone, without CR");
        break;
    case LineEnd::none:
        findings.emplace_back("the line ends without CR LF");
        break;
    }
    if (links_ && item.type == ItemType::vLink) {
        if (std::string finding = links_->Finding(item.link); !finding.empty()) {
            findings.push_back(std::move(finding));
        }
    }
    return findings;
}

void Tool::List()
{
    Write(kListHeader);
    for (const ToolFile& file : request_.files) {
        if (const std::optional<MenuText> text = Read(file)) {
            std::string rows;
            for (std::size_t index = 0; index < text->lines.size(); ++index) {
                rows += Row(file, *text, index);
            }
            Write(rows);
        }
    }
}

std::string Tool::Row(const ToolFile& file, const MenuText& text, std::size_t index) const
{
    const MenuItem item = DecodeLine(text.lines[index], platform_.defaultFont);
    const auto number = [](auto value) { return std::to_string(static_cast<long>(value)); };
    const auto flag = [](bool set) { return std::string(set ? "True" : "False"); };
    const std::string_view type = TypeName(item.type);
    const std::string cells[] = {
        file.shown,
        std::to_string(index + 1),
        type.empty() ? number(item.type) : std::string(type),
        item.caption,
        item.link,
        item.font.name,
        number(item.font.size),
        flag(item.font.bold),
        flag(item.font.italic),
        flag(item.font.strikethrough),
        flag(item.font.underline),
        number(item.fontColor),
        number(item.font.charset),
    };
    std::string row;
    for (const std::string& cell : cells) {
        row.append(row.empty() ? "" : "\t").append(Escaped(cell, platform_.codePage));
    }
    return row + "\r\n";
}

void Tool::Import()
{
    const ToolFile& folder = request_.files.front();
    if (!platform_.files.Attributes(folder.path).folder) {
        Fail("there is no folder " + folder.shown);
        return;
    }
    const FolderMenu menu = MenuOfFolder(platform_.files, folder.path, request_.output,
                                         platform_.defaultFont, platform_.codePage);
    for (const std::string& name : menu.leftOut) {
        platform_.output.Complain("nvmtool: left out, as no menu can name it: " +
                                  Escaped(name, platform_.codePage) + "\r\n");
        code_ = kFindings;
    }
    if (request_.output.empty()) {
        Write(menu.text);
        return;
    }
    const SystemError error = request_.force ? WriteOver(menu.text) : WriteNew(menu.text);
    if (error == kFileExists || error == kAlreadyExists) {
        Fail(request_.output + " is there already; --force replaces it");
    } else if (error != 0) {
        Fail("cannot write " + request_.output, error);
    }
}

// Never touches a file that is there, even one that has only just come to be.
SystemError Tool::WriteNew(const std::string& menu)
{
    SystemError error = 0;
    const std::unique_ptr<File> file =
        platform_.files.Open(request_.output, OpenMode::createNew, error);
    if (file == nullptr) {
        return error;
    }
    error = file->Write(menu.data(), menu.size());
    const SystemError closeError = file->Close();
    error = error != 0 ? error : closeError;
    if (error != 0) {
        // Ignored: the first error is the one to tell.
        static_cast<void>(platform_.files.Remove(request_.output));
    }
    return error;
}

SystemError Tool::WriteOver(const std::string& menu)
{
    SafeSave save(platform_.files, request_.output);
    const SystemError error = save.Begin();
    return error != 0 ? error : save.Finish(menu);
}

std::optional<MenuText> Tool::Read(const ToolFile& file)
{
    std::optional<MenuText> text(std::in_place);
    const SystemError error = ReadMenuText(platform_.files, file.path, *text);
    if (error == 0) {
        return text;
    }
    if (file.shown.find_first_of("*?") != std::string::npos) {
        const bool there = !platform_.files.List(file.path, 1).empty();
        Fail(there ? "cannot read " + file.shown + ": its name is not in the ANSI code page"
                   : "no file matches " + file.shown);
    } else if (platform_.files.Attributes(file.path).folder) {
        Fail("cannot read " + file.shown + ": it is a folder");
    } else {
        Fail("cannot read " + file.shown, error);
    }
    return std::nullopt;
}

void Tool::Write(std::string_view text)
{
    if (text.empty() || outputFailed_) {
        return;
    }
    if (const SystemError error = platform_.output.Write(text); error != 0) {
        outputFailed_ = true;
        Fail("cannot write the output", error);
    }
}

void Tool::Fail(const std::string& complaint)
{
    platform_.output.Complain("nvmtool: " + complaint + "\r\n");
    code_ = kFailed;
}

} // namespace

int RunTool(const ToolRequest& request, const ToolPlatform& platform)
{
    return Tool(request, platform).Run();
}

} // namespace nv
