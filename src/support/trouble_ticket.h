// The trouble ticket: plain text for the support desk, which the user mails himself.
//
//   support@navrix.example
//   >> Navrix Trouble Ticket <<
//   ann@office.example
//   Navrix Menu 1.0.0
//   Hardware:
//   Servers: 1, 0, 2000-XP
//   Workstations: 12, 3, 98-Other
//   Since Monday no link starts.
//   << Navrix Trouble Ticket >>
//
// Functions that return text throw std::bad_alloc when memory runs out: while the fields are read,
// the ticket is built or its copy for the clipboard is made, kTicketFault is then what the user is
// told.
#pragma once

#include "platform/ansi_text.h"
#include "platform/files.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace nv
{

// Captions of the check boxes, in index order, which is the order of the lists in the ticket.
inline constexpr std::array kServerSystems = {"2000", "2003", "NT 4.0", "XP", "Other"};
inline constexpr std::array kWorkstationSystems = {"98", "Me", "2000", "NT 4.0", "XP", "Other"};

enum CountBox { existingServers, plannedServers, existingWorkstations, plannedWorkstations };
inline constexpr std::size_t kCountBoxes = 4;

// What stands in the window, every text as it was typed.
struct TicketFields {
    std::string email;
    std::array<std::string, kCountBoxes> counts; // by CountBox; of any length, perhaps empty
    std::array<bool, kServerSystems.size()> servers{};
    std::array<bool, kWorkstationSystems.size()> workstations{};
    std::string problem; // its lines parted by CR LF
};

// Where the focus goes when a ticket is refused: of counts the first box, of check boxes the first
// of those that lack a check.
enum class TicketField { email, counts, serverSystems, workstationSystems, problem };

struct TicketRefusal {
    const char* message;
    TicketField field;
};

enum class Computers { servers = 1, workstations = 2 };

inline constexpr char kTicketFault[] = "There was an error creating Trouble Ticket.";
inline constexpr char kClipboardBusy[] =
    "Your Trouble Ticket could not be put on the clipboard.\n\n"
    "Another program is using it. Please try again, or copy it to a file.";

// May this key, as the character that it types, go into a count box?
bool CountBoxTakes(char key);
// What a count box holds once it is left.
std::string CountWhenLeft(std::string_view text);

// The first thing that keeps fields from being a ticket; nothing: BuildTicket can follow. Lengths
// are characters of the code page, a line end in the problem two of them. A count is above zero
// when any digit of it is.
std::optional<TicketRefusal> CheckTicket(const TicketFields& fields, const CodePage& codePage);

// The captions of the checked boxes, joined by "-"; empty when none is checked.
std::string OperatingSystemList(const TicketFields& fields, Computers which);

// The ticket, without a line end behind its last line. applicationInformation: one line that names
// the program and its version. A count that was left empty is "0".
std::string BuildTicket(const TicketFields& fields, std::string_view supportAddress,
                        std::string_view applicationInformation);

// The letter at the top of the window; its lines are parted by CR LF.
std::string IntroductoryLetter();

// What the user is told when the ticket is on the clipboard or in a file, or was not written.
std::string OnClipboardText(std::string_view supportAddress);
std::string InFileText(std::string_view fileName, std::string_view supportAddress);
std::string CannotWriteText(std::string_view fileName);

// Makes text and a CR LF all that the file of that name holds, and creates it if need be. False on
// any error; a file that was there then stands as it was.
bool WriteTicket(Files& files, const std::string& fileName, const std::string& text);

} // namespace nv
