#include "support/trouble_ticket.h"

#include <gtest/gtest.h>

namespace nv
{
namespace
{

TEST(TroubleTicket, NamesTheSystems)
{
    TicketFields fields;
    fields.counts[existingWorkstations] = "007";
    fields.workstations.fill(true);
    fields.problem = "Not";
    const std::string hardware =
        "\r\nServers: 0, 0, \r\nWorkstations: 007, 0, 98-Me-2000-NT 4.0-XP-Other\r\nNot\r\n";
    EXPECT_NE(BuildTicket(fields, "", "").find(hardware), std::string::npos);
}

} // namespace
} // namespace nv
