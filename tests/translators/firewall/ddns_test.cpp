#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "host/plugin/translate.h"

#include "kelmora_json.h"
#include "records/firewall.h"

namespace kelmora_test::ddns_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;

constexpr kelmora_ddns sample{
    .provider = 2,
    .hostname = "nordlicht.example",
    .interface = "wan0",
    .username = "anna/petersen",
    .password = "Öl & otters",
    .enabled = 1,
    .instance_num = 3,
    .service_port = 8245,
    .status = 4,
};

constexpr char sample_text[] = "{\n"
                               "                \"enabled\": 1,\n"
                               "                \"hostname\": \"nordlicht.example\",\n"
                               "                \"id\": \"0\",\n"
                               "                \"instance_num\": 3,\n"
                               "                \"interface\": \"wan0\",\n"
                               "                \"password\": \"\\u00D6l & otters\",\n"
                               "                \"provider\": 2,\n"
                               "                \"service_port\": 8245,\n"
                               "                \"status\": 4,\n"
                               "                \"username\": \"anna\\/petersen\"\n"
                               "}";

class DdnsTo : public ToTest<kelmora_ddns> {
protected:
    DdnsTo() : ToTest(ddns_to_translator) {}
};

TEST_F(DdnsTo, WritesSortedKeysIndentedAndEscaped)
{
    add("0", sample);
    EXPECT_EQ(object(), sample_text);
}

TEST_F(DdnsTo, WritesAListOfAccounts)
{
    add("0", {.provider = 9, .service_port = 80});
    add("1");
    EXPECT_EQ(list(), "[\n"
                      "                {\n"
                      "                                \"enabled\": 0,\n"
                      "                                \"hostname\": \"\",\n"
                      "                                \"id\": \"0\",\n"
                      "                                \"instance_num\": 0,\n"
                      "                                \"interface\": \"\",\n"
                      "                                \"password\": \"\",\n"
                      "                                \"provider\": 9,\n"
                      "                                \"service_port\": 80,\n"
                      "                                \"status\": 0,\n"
                      "                                \"username\": \"\"\n"
                      "                },\n"
                      "                {\n"
                      "                                \"enabled\": 0,\n"
                      "                                \"hostname\": \"\",\n"
                      "                                \"id\": \"1\",\n"
                      "                                \"instance_num\": 0,\n"
                      "                                \"interface\": \"\",\n"
                      "                                \"password\": \"\",\n"
                      "                                \"provider\": 0,\n"
                      "                                \"service_port\": 0,\n"
                      "                                \"status\": 0,\n"
                      "                                \"username\": \"\"\n"
                      "                }\n"
                      "]");
}

TEST_F(DdnsTo, WritesAllNumbersAsUnsignedInTheirWidth)
{
    add("0", {.provider = 4294967295,
              .enabled = 255,
              .instance_num = 4294967294,
              .service_port = 65535,
              .status = 4294967293});
    EXPECT_THAT(object(), AllOf(HasSubstr("\"provider\": 4294967295,"), HasSubstr("\"enabled\": 255,"),
                                HasSubstr("\"instance_num\": 4294967294,"), HasSubstr("\"service_port\": 65535,"),
                                HasSubstr("\"status\": 4294967293,")));
}

TEST_F(DdnsTo, WritesTheSwitchAsTheNumberThatIsStored)
{
    for (const int stored : {0, 1, 2, 128}) {
        nodes_.clear();
        add("0", sample).enabled = static_cast<std::uint8_t>(stored);
        EXPECT_THAT(object(), HasSubstr("\"enabled\": " + std::to_string(stored) + ","));
    }
}

TEST_F(DdnsTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_ddns &account = add("");
    fill_whole(account.hostname, 'h');
    fill_whole(account.interface, 'x');
    fill_whole(account.username, 'u');
    fill_whole(account.password, 'p');
    fill_whole(nodes_.front().resource()->id, 'i');
    EXPECT_THAT(object(), AllOf(HasSubstr("\"hostname\": \"" + std::string(34, 'h') + '"'),
                                HasSubstr("\"interface\": \"" + std::string(19, 'x') + '"'),
                                HasSubstr("\"username\": \"" + std::string(34, 'u') + '"'),
                                HasSubstr("\"password\": \"" + std::string(34, 'p') + '"'),
                                HasSubstr("\"id\": \"" + std::string(128, 'i') + '"')));
}

TEST_F(DdnsTo, LeavesOutTextsThatAreNotUtf8)
{
    kelmora_ddns &account = add("0", sample);
    set(account.hostname, "\xE9");
    set(account.interface, "\xFF");
    fill_whole(account.username, 'u');
    account.username[33] = '\xC3'; // the first byte of a two-byte character: the last that is written
    account.username[34] = '\xA4';
    fill_whole(account.password, 'p');
    account.password[33] = '\xC3';
    account.password[34] = '\xA4';
    EXPECT_EQ(object(), "{\n"
                        "                \"enabled\": 1,\n"
                        "                \"id\": \"0\",\n"
                        "                \"instance_num\": 3,\n"
                        "                \"provider\": 2,\n"
                        "                \"service_port\": 8245,\n"
                        "                \"status\": 4\n"
                        "}");
}

TEST_F(DdnsTo, GrowsTheBufferForALongList)
{
    std::vector<std::string> expected;
    for (int i = 0; i < 20; ++i) {
        add(std::to_string(i), sample);
        expected.push_back(with_id(sample_text, std::to_string(i)));
    }
    EXPECT_EQ(list(), pretty_array(expected));
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] = R"({
    "provider": 5, "hostname": "leuchtturm.dyn.example", "interface": "wan4", "username": "paul.petersen",
    "password": "gulls over the quay", "enabled": 1, "instance_num": 6, "service_port": 443, "status": 7,
    "id": "never read"
})";

class DdnsFrom : public FromTest<kelmora_ddns> {
protected:
    DdnsFrom() : FromTest(ddns_from_translator, document) {}
};

TEST_F(DdnsFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().provider, 5U);
    EXPECT_STREQ(record().hostname, "leuchtturm.dyn.example");
    EXPECT_STREQ(record().interface, "wan4");
    EXPECT_STREQ(record().username, "paul.petersen");
    EXPECT_STREQ(record().password, "gulls over the quay");
    EXPECT_EQ(record().enabled, 1);
    EXPECT_EQ(record().instance_num, 6U);
    EXPECT_EQ(record().service_port, 443);
    EXPECT_EQ(record().status, 7U);
}

TEST_F(DdnsFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"provider", "provider", "provider field not found"},
        {"hostname", "hostname", "hostname field not found"},
        {"interface", "interface", "interface field not found"},
        {"username", "username", "username field not found"},
        {"password", "password", "password field not found"},
        {"enabled", "enabled", "enabled field not found"},
        {"instance_num", "instance_num", "instance_num field not found"},
        {"service_port", "service_port", "service_port field not found"},
    });
}

TEST_F(DdnsFrom, KeepsAStatusThatIsAbsent) { expect_optional("status", record().status); }

TEST_F(DdnsFrom, MissingProviderStoresNothing)
{
    EXPECT_TRUE(rejects(without(document, "provider"), "provider", "provider field not found"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(DdnsFrom, MissingUsernameKeepsWhatWasStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "username"), "username", "username field not found"));
    EXPECT_EQ(record().provider, 5U);
    EXPECT_STREQ(record().hostname, "leuchtturm.dyn.example");
    EXPECT_STREQ(record().interface, "wan4");
    EXPECT_TRUE(untouched(record().username));
    EXPECT_TRUE(untouched(record().password));
    EXPECT_TRUE(untouched(record().enabled));
    EXPECT_TRUE(untouched(record().instance_num));
    EXPECT_TRUE(untouched(record().service_port));
    EXPECT_TRUE(untouched(record().status));
}

TEST_F(DdnsFrom, MissingSwitchKeepsThePasswordAndStoresNothingBehindIt)
{
    EXPECT_TRUE(rejects(without(document, "enabled"), "enabled", "enabled field not found"));
    EXPECT_STREQ(record().username, "paul.petersen");
    EXPECT_STREQ(record().password, "gulls over the quay");
    EXPECT_TRUE(untouched(record().enabled));
    EXPECT_TRUE(untouched(record().instance_num));
    EXPECT_TRUE(untouched(record().service_port));
    EXPECT_TRUE(untouched(record().status));
}

TEST_F(DdnsFrom, MissingPortKeepsAllButTheStatus)
{
    EXPECT_TRUE(rejects(without(document, "service_port"), "service_port", "service_port field not found"));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_EQ(record().instance_num, 6U);
    EXPECT_TRUE(untouched(record().service_port));
    EXPECT_TRUE(untouched(record().status));
}

TEST_F(DdnsFrom, TakesAnyIntegerButZeroForEnabled)
{
    for (const char *on : {"1", "2", "-1", "256", "65536", "4294967296", "8589934592", "4611686018427387904",
                           "9223372036854775807", "-9223372036854775808"}) {
        poison();
        EXPECT_TRUE(accepts(with(document, "enabled", on)));
        EXPECT_EQ(record().enabled, 1) << on;
    }
}

TEST_F(DdnsFrom, TakesEverythingElseForDisabled)
{
    for (const char *off : {"0", "true", "false", "null", "1.0", "0.5", "\"1\"", "{}", "[1]"}) {
        poison();
        EXPECT_TRUE(accepts(with(document, "enabled", off)));
        EXPECT_EQ(record().enabled, 0) << off;
    }
}

TEST_F(DdnsFrom, CutsIntegersToTheirWidth)
{
    expect_integer("provider", record().provider);
    expect_integer("instance_num", record().instance_num);
    expect_integer("service_port", record().service_port);
    expect_integer("status", record().status);
}

TEST_F(DdnsFrom, CutsTextsToTheirField)
{
    expect_string("hostname", record().hostname);
    expect_string("interface", record().interface);
    expect_string("username", record().username);
    expect_string("password", record().password);
}

TEST(Ddns, TakesBackWhatItWrote)
{
    std::vector<kelmora_host::Node> nodes;
    nodes.emplace_back("0", kelmora_host::Record(kelmora_ddns{}));
    EXPECT_EQ(kelmora_host::from_json(ddns_from_translator, nodes.front(), sample_text).result, 1);
    EXPECT_EQ(kelmora_host::to_json(ddns_to_translator, nodes, false).text, sample_text);
}

} // namespace

} // namespace kelmora_test::ddns_test
