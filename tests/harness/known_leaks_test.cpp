#include "harness/known_leaks.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace kelmora_harness::known_leaks_test {

namespace {

using kelmora_host::Decoded;

const Decoded accepted{1, {}};

Decoded rejected(const std::string &field) { return {0, {{field, "field not found", "json"}}}; }

/// The cells of a row of a Markdown table, without the blanks around them; none of another line.
std::vector<std::string> cells_of(const std::string &line)
{
    std::vector<std::string> cells;
    if (!line.starts_with('|'))
        return cells;
    std::istringstream row(line.substr(1));
    for (std::string cell; std::getline(row, cell, '|');) {
        const std::size_t first = cell.find_first_not_of(' ');
        if (first != std::string::npos)
            cells.push_back(cell.substr(first, cell.find_last_not_of(' ') - first + 1));
    }
    return cells;
}

using Row = std::pair<std::string, std::string>; ///< a resource, and when its document is leaked

/// The rows under "| Resource | ... the document when |", each of one or more resources, of the documents in the
/// project's top folder.
std::multiset<Row> documented_leaks()
{
    std::multiset<Row> rows;
    for (const auto &entry : std::filesystem::directory_iterator(KELMORA_SOURCE_DIR)) {
        if (entry.path().extension() != ".md")
            continue;
        std::ifstream file(entry.path());
        bool in_table = false;
        for (std::string line; std::getline(file, line);) {
            const std::vector<std::string> cells = cells_of(line);
            if (cells.size() == 2 && cells[0] == "Resource" && cells[1].ends_with("the document when"))
                in_table = true;
            else if (cells.empty())
                in_table = false;
            else if (in_table && cells[0].starts_with('`')) {
                std::istringstream names(cells[0]);
                for (std::string name; std::getline(std::getline(names, name, '`'), name, '`');)
                    rows.emplace(name, cells[1]);
            }
        }
    }
    return rows;
}

TEST(KnownLeaks, AreTheDocumentedOnes)
{
    std::multiset<Row> known;
    for (const KnownLeak &leak : known_leaks())
        known.emplace(leak.resource, leak.when);
    EXPECT_EQ(documented_leaks(), known);
}

TEST(KnownLeak, IsTheSuccessOfAResourceThatKeepsAcceptedDocuments)
{
    ASSERT_NE(known_leak("dhcp_server", "{}", accepted), nullptr);
    EXPECT_EQ(known_leak("dhcp_server", "{}", accepted)->resource, "dhcp_server");
    EXPECT_EQ(known_leak("dhcp_server", "{}", rejected("enabled")), nullptr);
}

TEST(KnownLeak, IsNoneWhereNothingWasParsed)
{
    EXPECT_EQ(known_leak("dhcp_server", "", accepted), nullptr);
    EXPECT_EQ(known_leak("rip_config", "{", rejected("")), nullptr);
}

TEST(KnownLeak, IsTheAbsenceOfAnyKeyWhereTheTableSaysSo)
{
    EXPECT_NE(known_leak("rip_config", "{}", rejected("send_mode")), nullptr);
    EXPECT_NE(known_leak("rip_config", "{}", rejected("interfaceID")), nullptr);
    EXPECT_EQ(known_leak("rip_config", "{}", accepted), nullptr);
}

TEST(KnownLeak, IsTheAbsenceOfOneKeyWhereTheTableNamesIt)
{
    EXPECT_NE(known_leak("ipv6_dhcp_server", "{}", rejected("addresses_config")), nullptr);
    EXPECT_EQ(known_leak("ipv6_dhcp_server", "{}", rejected("mode")), nullptr);
}

TEST(KnownLeak, IsTheAbsenceOfAMemberOfAnElementAndNotOfTheListItself)
{
    EXPECT_NE(known_leak("wan_lan_list", "{}", rejected("lan_list.enabled")), nullptr);
    EXPECT_EQ(known_leak("wan_lan_list", "{}", rejected("lan_list")), nullptr);
}

TEST(KnownLeak, IsNoneOfAResourceThatIsNotInTheTable)
{
    EXPECT_EQ(known_leak("radio", "{}", accepted), nullptr);
    EXPECT_EQ(known_leak("radio", "{}", rejected("power")), nullptr);
}

} // namespace

} // namespace kelmora_harness::known_leaks_test
