#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/firewall.h"

namespace kelmora_test::natportredirect_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr kelmora_natportredirect sample{
    .description = "Photo album",
    .protocol = 1,
    .external_port_start = 8443,
    .external_port_end = 8444,
    .internalIP = "192.168.17.21",
    .internal_port_start = 443,
    .internal_port_end = 445,
};

constexpr char sample_text[] =
    R"({"id": "redirect0", "description": "Photo album", "protocol": 1, "externalPort": {"start": 8443, "end": 8444}, )"
    R"("internalIP": "192.168.17.21", "internalPort": {"start": 443, "end": 445}})";

constexpr char empty_text[] =
    R"({"id": "redirect1", "description": "", "protocol": 0, "externalPort": {"start": 0, "end": 0}, )"
    R"("internalIP": "", "internalPort": {"start": 0, "end": 0}})";

class NatportredirectTo : public ToTest<kelmora_natportredirect> {
protected:
    NatportredirectTo() : ToTest(natportredirect_to_translator) {}
};

TEST_F(NatportredirectTo, WritesTheKeysInOrder)
{
    add("redirect0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(NatportredirectTo, WritesIntegersAsUnsigned)
{
    add("", {.protocol = 4294967295,
             .external_port_start = 4294967294,
             .external_port_end = 4294967293,
             .internal_port_start = 4294967292,
             .internal_port_end = 4294967291});
    EXPECT_EQ(object(), R"({"id": "", "description": "", "protocol": 4294967295, )"
                        R"("externalPort": {"start": 4294967294, "end": 4294967293}, "internalIP": "", )"
                        R"("internalPort": {"start": 4294967292, "end": 4294967291}})");
}

TEST_F(NatportredirectTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_natportredirect &redirect = add("", sample);
    fill_whole(redirect.description, 'd');
    fill_whole(redirect.internalIP, '1');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_THAT(object(), AllOf(HasSubstr(R"("description": ")" + std::string(31, 'd') + '"'),
                                HasSubstr(R"("internalIP": ")" + std::string(16, '1') + '"'),
                                HasSubstr(R"("id": ")" + std::string(128, 'n') + '"')));
}

TEST_F(NatportredirectTo, LeavesOutATextWhoseCutSplitsACharacter)
{
    kelmora_natportredirect &redirect = add("", sample);
    fill_whole(redirect.description, 'd');
    redirect.description[30] = '\xC3'; // the first byte of a two-byte character: the last that is written
    redirect.description[31] = '\xA4';
    fill_whole(nodes_.front().resource()->id, 'n');
    nodes_.front().resource()->id[127] = '\xC3';
    nodes_.front().resource()->id[128] = '\xA4';
    EXPECT_THAT(object(), testing::StartsWith(R"({"protocol": 1, )"));
}

TEST_F(NatportredirectTo, LeavesOutATextThatIsNotUtf8)
{
    set(add("redirect0", sample).internalIP, "\xE9");
    EXPECT_THAT(object(), AllOf(Not(HasSubstr("internalIP")), HasSubstr(R"("end": 8444}, "internalPort")")));
}

TEST_F(NatportredirectTo, WritesOtherScriptsAndSlashesAsTheyAre)
{
    set(add("redirect0", sample).description, "Gäste \"5/G\" 北");
    EXPECT_THAT(object(), HasSubstr("\"description\": \"Gäste \\\"5/G\\\" 北\""));
}

TEST_F(NatportredirectTo, WritesALongListIntoALargerBuffer)
{
    std::string expected;
    for (int i = 0; i < 40; ++i) {
        add("redirect1");
        expected += (i == 0 ? "[" : ", ") + std::string(empty_text);
    }
    EXPECT_EQ(list(), expected + "]");
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] = R"({
    "id": "never read", "description": "Weather station", "protocol": 3,
    "externalPort": {"start": 20080, "end": 20089}, "internalPort": {"start": 8080, "end": 8089},
    "internalIP": "192.168.17.57", "start": 1, "end": 2
})";

class NatportredirectFrom : public FromTest<kelmora_natportredirect> {
protected:
    NatportredirectFrom() : FromTest(natportredirect_from_translator, document) {}
};

TEST_F(NatportredirectFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_STREQ(record().description, "Weather station");
    EXPECT_EQ(record().protocol, 3U);
    EXPECT_EQ(record().external_port_start, 20080U);
    EXPECT_EQ(record().external_port_end, 20089U);
    EXPECT_EQ(record().internal_port_start, 8080U);
    EXPECT_EQ(record().internal_port_end, 8089U);
    EXPECT_STREQ(record().internalIP, "192.168.17.57");
}

TEST_F(NatportredirectFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"protocol", "protocol", "protocol field not found"},
        {"externalPort.start", "externalPort.start", "externalPort.start field not found"},
        {"externalPort.end", "externalPort.end", "externalPort.end field not found"},
        {"internalPort.start", "internalPort.start", "internalPort.start field not found"},
        {"internalPort.end", "internalPort.end", "internalPort.end field not found"},
        {"internalIP", "internalIP", "internalIP field not found"},
    });
}

TEST_F(NatportredirectFrom, AsksForTheExternalPortsBeforeTheInternalOnes)
{
    EXPECT_TRUE(rejects(without(document, "externalPort"), "externalPort", "externalPort object not found"));
    EXPECT_TRUE(rejects(without(document, "internalPort"), "internalPort", "internalPort object not found"));
    EXPECT_TRUE(rejects(without_all(document, {"externalPort", "internalPort", "internalIP"}), "externalPort",
                        "externalPort object not found"));
    EXPECT_TRUE(rejects(without_all(document, {"externalPort.end", "internalPort"}), "externalPort.end",
                        "externalPort.end field not found"));
}

TEST_F(NatportredirectFrom, AsksForTheInternalPortsBeforeTheInternalAddress)
{
    EXPECT_TRUE(rejects(without_all(document, {"internalPort", "internalIP"}), "internalPort",
                        "internalPort object not found"));
    EXPECT_TRUE(untouched(record().internalIP));
}

TEST_F(NatportredirectFrom, TakesPortsThatAreNoObjectForAnEmptyOne)
{
    for (const char *other : {"5", "{}", "null", "true", "\"8080\"", "1.5", "[]", R"([{"start": 1, "end": 2}])"}) {
        poison();
        EXPECT_TRUE(
            rejects(with(document, "externalPort", other), "externalPort.start", "externalPort.start field not found"));
        EXPECT_EQ(record().protocol, 3U);
        EXPECT_TRUE(untouched(record().external_port_start));
        EXPECT_TRUE(untouched(record().external_port_end));
        EXPECT_TRUE(
            rejects(with(document, "internalPort", other), "internalPort.start", "internalPort.start field not found"));
        EXPECT_EQ(record().external_port_end, 20089U);
        EXPECT_TRUE(untouched(record().internal_port_start));
        EXPECT_TRUE(untouched(record().internalIP));
    }
}

TEST_F(NatportredirectFrom, KeepsTheDescriptionThatIsAbsent) { expect_optional("description", record().description); }

TEST_F(NatportredirectFrom, MissingProtocolKeepsTheDescriptionStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "protocol"), "protocol", "protocol field not found"));
    EXPECT_STREQ(record().description, "Weather station");
    EXPECT_TRUE(untouched(record().protocol));
    EXPECT_TRUE(untouched(record().external_port_start));
}

TEST_F(NatportredirectFrom, MissingEndKeepsTheStartStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "externalPort.end"), "externalPort.end", "externalPort.end field not found"));
    EXPECT_EQ(record().external_port_start, 20080U);
    EXPECT_TRUE(untouched(record().external_port_end));
    EXPECT_TRUE(untouched(record().internal_port_start));
    EXPECT_TRUE(rejects(without(document, "internalPort.end"), "internalPort.end", "internalPort.end field not found"));
    EXPECT_EQ(record().external_port_end, 20089U);
    EXPECT_EQ(record().internal_port_start, 8080U);
    EXPECT_TRUE(untouched(record().internal_port_end));
}

TEST_F(NatportredirectFrom, MissingStartStoresNeitherPortOfThePair)
{
    EXPECT_TRUE(
        rejects(without(document, "externalPort.start"), "externalPort.start", "externalPort.start field not found"));
    EXPECT_EQ(record().protocol, 3U);
    EXPECT_TRUE(untouched(record().external_port_start));
    EXPECT_TRUE(untouched(record().external_port_end));
}

TEST_F(NatportredirectFrom, MissingAddressKeepsAllPortsStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "internalIP"), "internalIP", "internalIP field not found"));
    EXPECT_STREQ(record().description, "Weather station");
    EXPECT_EQ(record().protocol, 3U);
    EXPECT_EQ(record().external_port_start, 20080U);
    EXPECT_EQ(record().external_port_end, 20089U);
    EXPECT_EQ(record().internal_port_start, 8080U);
    EXPECT_EQ(record().internal_port_end, 8089U);
    EXPECT_TRUE(untouched(record().internalIP));
}

TEST_F(NatportredirectFrom, ChecksNoRange)
{
    EXPECT_TRUE(accepts(with(with(document, "externalPort.start", "70000"), "externalPort.end", "9")));
    EXPECT_EQ(record().external_port_start, 70000U);
    EXPECT_EQ(record().external_port_end, 9U);
}

TEST_F(NatportredirectFrom, CutsIntegersToTheirWidth)
{
    expect_integer("protocol", record().protocol);
    expect_integer("externalPort.start", record().external_port_start);
    expect_integer("externalPort.end", record().external_port_end);
    expect_integer("internalPort.start", record().internal_port_start);
    expect_integer("internalPort.end", record().internal_port_end);
}

TEST_F(NatportredirectFrom, CutsTextsToTheirField)
{
    expect_string("description", record().description);
    expect_string("internalIP", record().internalIP);
}

} // namespace

} // namespace kelmora_test::natportredirect_test
