#include "support/trouble_ticket.h"

#include <gtest/gtest.h>

namespace nv
{
namespace
{

using Counts = std::array<std::string, kCountBoxes>;

TicketFields Fields(const std::string& email, const Counts& counts, bool serverSystem,
                    bool workstationSystem, const std::string& problem)
{
    TicketFields fields{email, counts, {}, {}, problem};
    fields.servers[4] = serverSystem; // the last ones: the whole array has to be searched
    fields.workstations[5] = workstationSystem;
    return fields;
}

TEST(TroubleTicket, IsRefusedForTheFirstThingThatIsMissing)
{
    const std::string email = "Please enter your e-mail where do you want to recive our reply.";
    const std::string count = "You have to enter at least one server or workstation.";
    const std::string system = "You have to enter at least one operating system.";
    const std::string problem = "Please describe your problem.";
    const Counts each = {"1", "1", "1", "1"};
    const std::string text(20, 'x');
    struct Case {
        const char* name;
        TicketFields fields;
        std::string message; // empty: accepted
        TicketField field = TicketField::email;
        unsigned codePage = 1252;
    };
    const Case cases[] = {
        {"the least of all", Fields("a@b", each, true, true, text), ""},
        {"nothing", {}, email},
        {"no @", Fields("ann.office", each, true, true, text), email},
        {"2 characters", Fields("a@", each, true, true, text), email},
        {"2 Japanese ones", Fields("\x83\x5C@", each, true, true, text), email, TicketField::email,
         932},
        {"half of one is @", Fields("a\x81@bc", each, true, true, text), email, TicketField::email,
         932},
        {"the same in French", Fields("a\x81@bc", each, true, true, text), ""},
        {"no counts", Fields("a@b", {}, false, false, ""), count, TicketField::counts},
        {"zeros", Fields("a@b", {"0", "00", "", std::string(99, '0')}, true, true, text), count,
         TicketField::counts},
        {"beyond integers",
         Fields("a@b", {"", "", "4294967296000000000000", ""}, false, true, text), ""},
        {"no system", Fields("a@b", each, false, false, ""), system, TicketField::serverSystems},
        {"planned servers", Fields("a@b", {"0", "10", "", ""}, false, true, text), system,
         TicketField::serverSystems},
        {"planned workstations", Fields("a@b", {"", "", "0", "2"}, true, false, text), system,
         TicketField::workstationSystems},
        {"servers alone", Fields("a@b", {"3", "", "", ""}, true, false, text), ""},
        {"19 characters", Fields("a@b", each, true, true, text.substr(1)), problem,
         TicketField::problem},
        {"19 in 20 bytes", Fields("a@b", each, true, true, "\x83\x5C" + text.substr(2)), problem,
         TicketField::problem, 932},
    };
    for (const Case& c : cases) {
        const auto refusal = CheckTicket(c.fields, CodePage(c.codePage));
        EXPECT_EQ(refusal ? refusal->message : "", c.message) << c.name;
        EXPECT_EQ(refusal ? refusal->field : c.field, c.field) << c.name;
    }
}

TEST(TroubleTicket, NamesTheSystems)
{
    TicketFields fields = Fields("a@b", {"", "", "007", ""}, false, false, "Not");
    fields.workstations.fill(true);
    const std::string hardware =
        "\r\nServers: 0, 0, \r\nWorkstations: 007, 0, 98-Me-2000-NT 4.0-XP-Other\r\nNot\r\n";
    EXPECT_NE(BuildTicket(fields, "", "").find(hardware), std::string::npos);
}

} // namespace
} // namespace nv
