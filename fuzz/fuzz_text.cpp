// The small texts of the program. Input: a letter that says which, then the text, or several of
// them parted by code 30; see kChecks at the end.
#include "docs/paths.h"
#include "fakes/fake_files.h"
#include "fuzz_input.h"
#include "mainwindow/command_line.h"
#include "platform/settings.h"
#include "support/trouble_ticket.h"
#include "system/locale_settings.h"
#include "tool/arguments.h"
#include "tool/tool_text.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numeric>
#include <string>

namespace nv
{
namespace
{

using Texts = std::vector<std::string>;

// The bytes of a character in UTF-8.
std::string Utf8Of(char32_t code)
{
    const auto low = [code](int shift) {
        return static_cast<char>(0x80 | ((code >> shift) & 0x3F));
    };
    if (code < 0x80) {
        return {static_cast<char>(code)};
    }
    if (code < 0x800) {
        return {static_cast<char>(0xC0 | (code >> 6)), low(0)};
    }
    if (code < 0x10000) {
        return {static_cast<char>(0xE0 | (code >> 12)), low(6), low(0)};
    }
    return {static_cast<char>(0xF0 | (code >> 18)), low(12), low(6), low(0)};
}

// The character that text begins with: the one that is written like that, or else a byte.
std::string FirstOfUtf8(std::string_view text)
{
    const auto code = [text](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    for (std::size_t length = 2; length <= std::min<std::size_t>(text.size(), 4); ++length) {
        char32_t value = code(0) & (0x7FU >> length);
        for (std::size_t at = 1; at < length; ++at) {
            value = value << 6 | (code(at) & 0x3FU);
        }
        const bool half = value >= 0xD800 && value < 0xE000;
        if (!half && value <= 0x10FFFF && Utf8Of(value) == text.substr(0, length)) {
            return std::string(text.substr(0, length));
        }
    }
    return std::string(text.substr(0, 1));
}

// Texts of one character each.
Texts CharactersOf(std::string_view text, const CodePage& codePage)
{
    Texts characters;
    while (!text.empty()) {
        const bool two = text.size() > 1 && codePage.IsLeadByte(text.front());
        characters.push_back(codePage.Number() == 65001 ? FirstOfUtf8(text)
                                                        : std::string(text.substr(0, two ? 2 : 1)));
        text.remove_prefix(characters.back().size());
    }
    return characters;
}

std::string Join(const Texts& texts, std::size_t first, std::size_t end)
{
    return std::accumulate(texts.begin() + static_cast<std::ptrdiff_t>(first),
                           texts.begin() + static_cast<std::ptrdiff_t>(end), std::string());
}

void CheckCodePage(std::string_view text, const CodePage& codePage)
{
    const Texts characters = CharactersOf(text, codePage);
    CHECK(codePage.CountCharacters(text) == characters.size());
    const std::size_t count = characters.size() / 2;
    CHECK(codePage.FirstCharacters(text, count) == Join(characters, 0, count));
    CHECK(codePage.FirstCharacters(text, characters.size() + 1) == text);
    const std::size_t bytes = text.size() / 2;
    const std::string_view whole = codePage.WholeCharacters(text, bytes);
    const std::size_t fit = codePage.CountCharacters(whole);
    CHECK(whole == Join(characters, 0, fit));
    CHECK(fit == characters.size() || whole.size() + characters[fit].size() > bytes);
    for (const char ch : {'\\', '@', '.'}) {
        const auto found = std::find(characters.rbegin(), characters.rend(), std::string(1, ch));
        const auto at = codePage.FindLast(text, ch);
        CHECK((at == std::string_view::npos) == (found == characters.rend()));
        CHECK(at == std::string_view::npos ||
              Join(characters, 0, static_cast<std::size_t>(characters.rend() - found) - 1).size() ==
                  at);
    }
}

void CheckSplitPath(std::string_view path, const CodePage& codePage)
{
    const Texts characters = CharactersOf(path, codePage);
    std::size_t p = characters.size();
    while (p > 0 && characters[p - 1] != "\\") {
        --p;
    }
    const PathParts parts = SplitPath(path, codePage);
    CHECK(parts.fileName == Join(characters, p, characters.size()));
    CHECK(parts.folder == Join(characters, 0, p >= 4 ? p - 1 : p));
}

void CheckMakeFolders(std::string_view folder, const CodePage& codePage)
{
    Texts characters = CharactersOf(folder, codePage);
    if (characters.empty() || characters.back() != "\\") {
        // Half a character at the end takes the backslash with it.
        characters = CharactersOf(std::string(folder) + '\\', codePage);
    }
    Texts expected;
    for (std::size_t at = 3; at < characters.size() && expected.size() < 21; ++at) {
        if (characters[at] == "\\") {
            expected.push_back(Join(characters, 0, at));
        }
    }
    FakeFiles files;
    MakeFolders(files, folder, codePage);
    CHECK(files.madeFolders == expected);
}

void CheckPath(std::string_view path)
{
    for (const CodePage& codePage : kCodePages) {
        CheckCodePage(path, codePage);
        CheckSplitPath(path, codePage);
        CheckMakeFolders(path, codePage);
    }
    const std::string extension = FileExtension(path);
    CHECK(extension.find('.') == std::string::npos && UpperCase(extension) == extension);
    CHECK(EqualIgnoringCase(extension, path.substr(path.size() - extension.size())));
    CHECK(extension.size() == path.size() || path[path.size() - extension.size() - 1] == '.' ||
          (extension.empty() && path.find('.') == std::string_view::npos));
}

void CheckCommandLine(std::string_view text)
{
    // "/L" makes it locked, and takes the character before it along.
    const auto at = UpperCase(text).find("/L");
    for (const CodePage& codePage : kCodePages) {
        const CommandLine line = ParseCommandLine(text, codePage);
        CHECK(line.locked == (at != std::string::npos));
        Texts characters = CharactersOf(text.substr(0, at), codePage);
        if (line.locked && !characters.empty()) {
            characters.pop_back();
        }
        CHECK(line.filePart == Join(characters, 0, characters.size()));
    }

    const std::string_view arguments = ArgumentsOf(text);
    CHECK(text.ends_with(arguments));
    CHECK(arguments.find_first_not_of(" \t") == 0 || arguments.empty());

    std::string stripped(text);
    if (text.size() >= 3) {
        stripped.erase(0, text.starts_with('"') ? 1 : 0);
        stripped.erase(stripped.size() - (text.ends_with('"') ? 1 : 0));
    }
    CHECK(StripQuotes(text) == stripped);
}

// A number by hand: blanks, a sign, digits, perhaps a "." or "," among them.
std::optional<double> PlainNumber(std::string text)
{
    text.erase(0, text.find_first_not_of(' '));
    text.erase(text.find_last_not_of(' ') + 1);
    std::replace(text.begin(), text.end(), ',', '.');
    const std::string digits = text.substr(text.find_first_of("+-") == 0 ? 1 : 0);
    if (digits.find_first_not_of("0123456789.") != std::string::npos ||
        digits.find_first_of("0123456789") == std::string::npos ||
        std::count(digits.begin(), digits.end(), '.') > 1) {
        return std::nullopt;
    }
    return std::strtod(text.c_str(), nullptr);
}

void CheckNumber(std::string_view text)
{
    const auto number = ParseInteger(text);
    const auto plain = PlainNumber(std::string(text));
    const double rounded = plain ? std::nearbyint(*plain) : 0;
    const bool fits = plain && rounded >= INT32_MIN && rounded <= INT32_MAX;
    CHECK(number.has_value() == fits);
    CHECK(!number || *number == rounded);
    CHECK(SettingNumber(std::string(text), 12345) == number.value_or(12345));
    CHECK(SettingText(std::string(text)) == text);
    CHECK(!number || SettingNumber(SettingText(*number), *number - 1) == *number);
    // Bytes as a number, which no text gets to.
    std::int32_t any = 0;
    std::memcpy(&any, text.data(), std::min(text.size(), sizeof any));
    CHECK(ParseInteger(SettingText(any)) == any);
    static_cast<void>(CodePageToCharset(text));
}

// What Escaped made, turned back.
std::string Unescaped(std::string_view escaped, const CodePage& codePage)
{
    const Texts characters = CharactersOf(escaped, codePage);
    std::string text;
    for (std::size_t at = 0; at < characters.size(); ++at) {
        if (characters[at] != "^") {
            text += characters[at];
            continue;
        }
        CHECK(++at < characters.size());
        if (characters[at] == "x") {
            CHECK(at + 2 < characters.size());
            text +=
                static_cast<char>(std::stoi(characters[at + 1] + characters[at + 2], nullptr, 16));
            at += 2;
        } else {
            text += characters[at] == "n" ? "\r\n" : characters[at] == "t" ? "\t" : "^";
        }
    }
    return text;
}

bool HasControls(std::string_view text)
{
    return std::any_of(text.begin(), text.end(), [](char ch) { return ch >= 0 && ch < 32; });
}

void CheckShown(std::string_view text)
{
    const std::string line = OneLine(text);
    CHECK(!HasControls(line) && line.size() <= text.size());
    CHECK(OneLine(line) == line);
    for (const CodePage& codePage : kCodePages) {
        const std::string escaped = Escaped(text, codePage);
        CHECK(!HasControls(escaped));
        CHECK(Unescaped(escaped, codePage) == text);
        CHECK(Excerpt(text, codePage).size() <= 2 * 4 * 100 + 5);
    }
}

void CheckArguments(std::string_view text)
{
    const Texts arguments = SplitArguments(text);
    std::string quoted;
    for (const std::string& argument : arguments) {
        CHECK(argument.find('"') == std::string::npos);
        quoted += " \t\"" + argument + '"';
    }
    CHECK(SplitArguments(quoted) == arguments);

    FakeFiles files;
    for (const char* name : {"C:\\M\\b.nvm", "C:\\M\\a.nvm", "C:\\M\\a.txt", "x.nvm"}) {
        files.Put(name, "");
    }
    for (const CodePage& codePage : kCodePages) {
        const ToolRequest request = ReadArguments(arguments, files, codePage);
        CHECK(!HasControls(request.error));
        const bool asks =
            request.command == ToolCommand::help || request.command == ToolCommand::version;
        CHECK(asks || !request.error.empty() || !request.files.empty());
        for (const ToolFile& file : request.files) {
            CHECK(!file.shown.empty());
            CHECK(file.path.find(':') != std::string::npos || file.path.starts_with("\\\\"));
        }
    }
}

// Texts: "0" or "1" for each check box, four counts, an e-mail address, a problem.
TicketFields TicketOf(std::string_view input)
{
    const auto texts = Fields(input, 7);
    TicketFields fields;
    std::string checks(texts[0]);
    checks.resize(fields.servers.size() + fields.workstations.size());
    for (std::size_t box = 0; box < fields.servers.size(); ++box) {
        fields.servers[box] = checks[box] == '1';
    }
    for (std::size_t box = 0; box < fields.workstations.size(); ++box) {
        fields.workstations[box] = checks[fields.servers.size() + box] == '1';
    }
    for (std::size_t box = 0; box < kCountBoxes; ++box) {
        fields.counts[box] = texts[1 + box];
        // Only what the keyboard can get into the box.
        std::erase_if(fields.counts[box], [](char ch) { return !CountBoxTakes(ch) || ch == '\b'; });
    }
    fields.email = texts[5];
    fields.problem = texts[6];
    return fields;
}

bool IsAboveZero(const std::string& count)
{
    return std::any_of(count.begin(), count.end(), [](char ch) { return ch != '0'; });
}

void CheckRefusal(const TicketFields& fields, const CodePage& codePage)
{
    const Texts email = CharactersOf(fields.email, codePage);
    const auto& counts = fields.counts;
    const bool emailMissing = std::count(email.begin(), email.end(), "@") == 0 || email.size() < 3;
    const bool servers = IsAboveZero(counts[0]) || IsAboveZero(counts[1]);
    const bool workstations = IsAboveZero(counts[2]) || IsAboveZero(counts[3]);
    const bool noServerSystem = OperatingSystemList(fields, Computers::servers).empty();
    const bool noWorkstationSystem = OperatingSystemList(fields, Computers::workstations).empty();
    std::optional<TicketField> expected;
    if (emailMissing) {
        expected = TicketField::email;
    } else if (!servers && !workstations) {
        expected = TicketField::counts;
    } else if (servers && noServerSystem) {
        expected = TicketField::serverSystems;
    } else if (workstations && noWorkstationSystem) {
        expected = TicketField::workstationSystems;
    } else if (CharactersOf(fields.problem, codePage).size() < 20) {
        expected = TicketField::problem;
    }
    const auto refusal = CheckTicket(fields, codePage);
    CHECK(refusal.has_value() == expected.has_value());
    CHECK(!refusal || (refusal->field == *expected && std::strlen(refusal->message) > 0));
}

void CheckSupport(std::string_view input)
{
    const TicketFields fields = TicketOf(input);
    for (const CodePage& codePage : kCodePages) {
        CheckRefusal(fields, codePage);
    }
    const std::string ticket = BuildTicket(fields, "desk@x", "Menu 1");
    const auto count = [&](CountBox box) { return CountWhenLeft(fields.counts[box]); };
    CHECK(ticket == "desk@x\r\n>> Navrix Trouble Ticket <<\r\n" + fields.email +
                        "\r\nMenu 1\r\nHardware:\r\nServers: " + count(existingServers) + ", " +
                        count(plannedServers) + ", " +
                        OperatingSystemList(fields, Computers::servers) + "\r\nWorkstations: " +
                        count(existingWorkstations) + ", " + count(plannedWorkstations) + ", " +
                        OperatingSystemList(fields, Computers::workstations) + "\r\n" +
                        fields.problem + "\r\n<< Navrix Trouble Ticket >>");
    FakeFiles files;
    CHECK(WriteTicket(files, "C:\\ticket.txt", ticket));
    CHECK(files.Contents("C:\\ticket.txt") == ticket + "\r\n");
}

struct Check {
    char letter;
    void (*run)(std::string_view);
};

constexpr Check kChecks[] = {
    {'a', CheckArguments}, {'c', CheckCommandLine}, {'n', CheckNumber},
    {'p', CheckPath},      {'s', CheckShown},       {'t', CheckSupport},
};

} // namespace
} // namespace nv

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view input = nv::InputText(data, size);
    for (const nv::Check& check : nv::kChecks) {
        if (input.starts_with(check.letter)) {
            check.run(input.substr(1));
            return 0;
        }
    }
    return -1; // none that is worth keeping
}
