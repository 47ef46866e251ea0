#include "support/trouble_ticket.h"

#include "docs/safe_save.h"

#include <algorithm>
#include <new>

namespace nv
{

namespace
{

constexpr std::size_t kLeastEmail = 3;
constexpr std::size_t kLeastProblem = 20;

// By the digits, not by the number that they make: that may be too large for any type.
bool AboveZero(std::string_view count)
{
    return count.find_first_of("123456789") != std::string_view::npos;
}

template <std::size_t count> bool AnyChecked(const std::array<bool, count>& boxes)
{
    return std::find(boxes.begin(), boxes.end(), true) != boxes.end();
}

template <std::size_t count>
std::string JoinChecked(const std::array<const char*, count>& captions,
                        const std::array<bool, count>& boxes)
{
    std::string list;
    for (std::size_t index = 0; index < count; ++index) {
        if (boxes[index]) {
            list.append(list.empty() ? "" : "-").append(captions[index]);
        }
    }
    return list;
}

std::string HardwareLine(const TicketFields& fields, CountBox existing, CountBox planned,
                         Computers which)
{
    return CountWhenLeft(fields.counts[existing]) + ", " + CountWhenLeft(fields.counts[planned]) +
           ", " + OperatingSystemList(fields, which) + "\r\n";
}

std::string SentText(const std::string& whatHappened, const char* whatToDo,
                     std::string_view supportAddress)
{
    return whatHappened + "\n\nPlease do not change it and leave it as it is.\n\n" + whatToDo +
           " your e-mail message and send it to " + std::string(supportAddress) +
           ".\nThe destination e-mail address is also in the first line of Trouble Ticket.";
}

} // namespace

bool CountBoxTakes(char key)
{
    return (key >= '0' && key <= '9') || key == '\b';
}

std::string CountWhenLeft(std::string_view text)
{
    return std::string(text.empty() ? "0" : text);
}

std::optional<TicketRefusal> CheckTicket(const TicketFields& fields, const CodePage& codePage)
{
    // The code of "@" is also the second half of two-byte characters, so no plain search finds it.
    if (codePage.FindLast(fields.email, '@') == std::string_view::npos ||
        codePage.CountCharacters(fields.email) < kLeastEmail) {
        return TicketRefusal{"Please enter your e-mail where do you want to recive our reply.",
                             TicketField::email};
    }
    const auto& counts = fields.counts;
    const bool hasServers = AboveZero(counts[existingServers]) || AboveZero(counts[plannedServers]);
    const bool hasWorkstations =
        AboveZero(counts[existingWorkstations]) || AboveZero(counts[plannedWorkstations]);
    if (!hasServers && !hasWorkstations) {
        return TicketRefusal{"You have to enter at least one server or workstation.",
                             TicketField::counts};
    }
    const bool lacksServerSystem = hasServers && !AnyChecked(fields.servers);
    if (lacksServerSystem || (hasWorkstations && !AnyChecked(fields.workstations))) {
        return TicketRefusal{"You have to enter at least one operating system.",
                             lacksServerSystem ? TicketField::serverSystems
                                               : TicketField::workstationSystems};
    }
    if (codePage.CountCharacters(fields.problem) < kLeastProblem) {
        return TicketRefusal{"Please describe your problem.", TicketField::problem};
    }
    return std::nullopt;
}

std::string OperatingSystemList(const TicketFields& fields, Computers which)
{
    return which == Computers::servers ? JoinChecked(kServerSystems, fields.servers)
                                       : JoinChecked(kWorkstationSystems, fields.workstations);
}

std::string BuildTicket(const TicketFields& fields, std::string_view supportAddress,
                        std::string_view applicationInformation)
{
    std::string ticket(supportAddress);
    ticket.append("\r\n>> Navrix Trouble Ticket <<\r\n").append(fields.email).append("\r\n");
    ticket.append(applicationInformation).append("\r\nHardware:\r\nServers: ");
    ticket += HardwareLine(fields, existingServers, plannedServers, Computers::servers);
    ticket += "Workstations: ";
    ticket +=
        HardwareLine(fields, existingWorkstations, plannedWorkstations, Computers::workstations);
    ticket.append(fields.problem).append("\r\n<< Navrix Trouble Ticket >>");
    return ticket;
}

std::string IntroductoryLetter()
{
    return "Dear Navrix customer,\r\n\r\n"

           "We are aware of the fact that our product should serve your needs. Building system "
           "that enables you to automatically perform your business functions is complex process, "
           "where we should work together to achieve optimal results. Our Trouble Ticket System "
           "was designed to help you.\r\n\r\n"

           "What we can do for you? You are probably on the other side of the world, living in "
           "environment, where some vendors are helping you to build your information system. By "
           "describing your working environment and needs we can help you to create the shopping "
           "list to buy our products as well as other necessary items. Next we can help you with "
           "advice how to use all system components on the best possible way to resolve your "
           "problems. Please fill in out very short formulary, which describes you hardware "
           "platform and add short description of your environment (technical environment, you are "
           "working with vendors or by yourself etc.) and shortly describe your business goals or "
           "technical problem. Please copy the Trouble Ticket to clipboard and copy the contents "
           "into you mailing system or save your Trouble Ticket into the file and send it by "
           "E-mail to us as attachment. We will try to answer you as soon as possible.\r\n\r\n"

           "Your Navrix Development Team";
}

std::string OnClipboardText(std::string_view supportAddress)
{
    return SentText("Your Trouble Ticket has been sent to clipboard.", "Paste it to",
                    supportAddress);
}

std::string InFileText(std::string_view fileName, std::string_view supportAddress)
{
    return SentText("Your Trouble Ticket has been copied to file: " + std::string(fileName) + ".",
                    "Attach it to", supportAddress);
}

std::string CannotWriteText(std::string_view fileName)
{
    return "Cannot write your Trouble Ticket to file: " + std::string(fileName);
}

bool WriteTicket(Files& files, const std::string& fileName, const std::string& text)
{
    try {
        SafeSave save(files, fileName);
        return save.Begin() == 0 && save.Finish(text + "\r\n") == 0;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

} // namespace nv
