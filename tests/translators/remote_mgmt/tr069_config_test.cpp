#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "host/plugin/translate.h"

#include "kelmora_json.h"
#include "records/remote_mgmt.h"

namespace kelmora_test::tr069_config_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr kelmora_tr069_config sample{
    .tr069_enable = 1,
    .acs_url = "https://acs.example.net/cwmp",
    .acs_username = "gateway-7",
    .acs_password = "one \"lantern\"",
    .tr069_inform = 0,
    .tr069_interval = 43200,
    .connection_enabled = 1,
    .conreq_name = "acs",
    .conreq_pw = "zürich",
    .conreq_path = "/tr069",
    .conreq_port = 7547,
    .stun_enabled = 0,
    .stun_server_addr = "stun.example.net",
    .stun_server_port = 3478,
    .host_block = {0xDE},
    .ca_cert = "-----BEGIN-----\nabc",
};

constexpr char sample_text[] =
    R"({"id": "cwmp", "tr069_enable": true, "ca_cert": "-----BEGIN-----\nabc", )"
    R"("acs": {"acs_url": "https://acs.example.net/cwmp", "acs_username": "gateway-7", )"
    R"("acs_password": "one \"lantern\"", "tr069_inform": false, "tr069_interval": 43200}, )"
    R"("connection": {"enabled": true, "conreq_name": "acs", "conreq_pw": "zürich", "conreq_path": "/tr069", )"
    R"("conreq_port": 7547}, "stun": {"enabled": false, "stun_server_addr": "stun.example.net", )"
    R"("stun_server_port": 3478}})";

constexpr char empty_text[] =
    R"({"id": "cwmp1", "tr069_enable": false, "ca_cert": "", "acs": {"acs_url": "", "acs_username": "", )"
    R"("acs_password": "", "tr069_inform": false, "tr069_interval": 0}, "connection": {"enabled": false, )"
    R"("conreq_name": "", "conreq_pw": "", "conreq_path": "", "conreq_port": 0}, "stun": {"enabled": false, )"
    R"("stun_server_addr": "", "stun_server_port": 0}})";

class Tr069ConfigTo : public ToTest<kelmora_tr069_config> {
protected:
    Tr069ConfigTo() : ToTest(tr069_config_to_translator) {}
};

TEST_F(Tr069ConfigTo, WritesTheKeysInOrder)
{
    add("cwmp", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(Tr069ConfigTo, WritesEmptyRecords)
{
    add("cwmp1");
    EXPECT_EQ(object(), empty_text);
}

TEST_F(Tr069ConfigTo, WritesTheIntervalAsUnsignedAndThePortsAsSigned)
{
    add("", {.tr069_interval = 4294967295, .conreq_port = -1, .stun_server_port = -2147483648});
    EXPECT_THAT(object(), AllOf(HasSubstr(R"("tr069_interval": 4294967295})"), HasSubstr(R"("conreq_port": -1})"),
                                HasSubstr(R"("stun_server_port": -2147483648})")));
}

TEST_F(Tr069ConfigTo, WritesEachSwitchFromItsOwnFieldAndAnyButZeroAsTrue)
{
    const std::string keys[] = {"\"tr069_enable\"", "\"tr069_inform\"", "\"connection\": {\"enabled\"",
                                "\"stun\": {\"enabled\""};
    for (int on = 0; on < 4; ++on) {
        nodes_.clear();
        kelmora_tr069_config &config = add("");
        std::uint8_t *const fields[] = {&config.tr069_enable, &config.tr069_inform, &config.connection_enabled,
                                        &config.stun_enabled};
        *fields[on] = 128;
        for (int i = 0; i < 4; ++i)
            EXPECT_THAT(object(), HasSubstr(keys[i] + (i == on ? ": true" : ": false")));
    }
}

TEST_F(Tr069ConfigTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_tr069_config &config = add("");
    fill_whole(config.acs_url, 'u');
    fill_whole(config.acs_username, 'n');
    fill_whole(config.acs_password, 'p');
    fill_whole(config.conreq_name, 'N');
    fill_whole(config.conreq_pw, 'P');
    fill_whole(config.conreq_path, 'h');
    fill_whole(config.stun_server_addr, 's');
    fill_whole(config.ca_cert, 'c');
    fill_whole(nodes_.front().resource()->id, 'i');
    const auto cut = [](char character) { return '"' + std::string(256, character) + '"'; };
    EXPECT_EQ(object(), R"({"id": ")" + std::string(128, 'i') + R"(", "tr069_enable": false, "ca_cert": ")" +
                            std::string(4096, 'c') + R"(", "acs": {"acs_url": )" + cut('u') + R"(, "acs_username": )" +
                            cut('n') + R"(, "acs_password": )" + cut('p') +
                            R"(, "tr069_inform": false, "tr069_interval": 0}, )" +
                            R"("connection": {"enabled": false, "conreq_name": )" + cut('N') + R"(, "conreq_pw": )" +
                            cut('P') + R"(, "conreq_path": )" + cut('h') +
                            R"(, "conreq_port": 0}, "stun": {"enabled": false, "stun_server_addr": )" + cut('s') +
                            R"(, "stun_server_port": 0}})");
    EXPECT_EQ(reallocations_, 1U);
}

TEST_F(Tr069ConfigTo, LeavesOutTextsThatAreNotUtf8AfterTheirCut)
{
    kelmora_tr069_config &config = add("cwmp", sample);
    fill_whole(config.ca_cert, 'c');
    config.ca_cert[4095] = '\xC3'; // the first byte of a two-byte character: the last that is written
    config.ca_cert[4096] = '\xA4';
    fill_whole(config.acs_url, 'u');
    config.acs_url[255] = '\xC3';
    config.acs_url[256] = '\xA4';
    set(config.conreq_path, "caf\xE9");
    EXPECT_THAT(object(), AllOf(HasSubstr(R"("tr069_enable": true, "acs": {"acs_username": "gateway-7",)"),
                                HasSubstr(R"("conreq_pw": "zürich", "conreq_port": 7547})")));
}

TEST_F(Tr069ConfigTo, NeverWritesTheHostsBlock)
{
    add("cwmp", sample);
    const std::string with_block = object();
    std::memset(nodes_.front().record().as<kelmora_tr069_config>().host_block, 'x', KELMORA_TR069_HOST_BLOCK_SIZE);
    EXPECT_EQ(object(), with_block);
    EXPECT_THAT(with_block, Not(HasSubstr("host")));
}

constexpr char document[] = R"({
    "id": "never read", "tr069_enable": true,
    "acs": {"acs_url": "http://198.51.100.7/acs", "acs_username": "user of acs", "acs_password": "password of acs",
            "tr069_inform": true, "tr069_interval": 3600},
    "connection": {"enabled": true, "conreq_name": "name of request", "conreq_pw": "password of request",
                   "conreq_path": "/path", "conreq_port": 30005},
    "stun": {"enabled": true, "stun_server_addr": "198.51.100.8", "stun_server_port": 3479},
    "ca_cert": "the certificate", "host_block": "never read"
})";

class Tr069ConfigFrom : public FromTest<kelmora_tr069_config> {
protected:
    Tr069ConfigFrom() : FromTest(tr069_config_from_translator, document) {}

    void expect_acs_stored()
    {
        EXPECT_STREQ(record().acs_url, "http://198.51.100.7/acs");
        EXPECT_STREQ(record().acs_username, "user of acs");
        EXPECT_STREQ(record().acs_password, "password of acs");
        EXPECT_EQ(record().tr069_inform, 1);
        EXPECT_EQ(record().tr069_interval, 3600U);
    }

    void expect_connection_stored()
    {
        EXPECT_EQ(record().connection_enabled, 1);
        EXPECT_STREQ(record().conreq_name, "name of request");
        EXPECT_STREQ(record().conreq_pw, "password of request");
        EXPECT_STREQ(record().conreq_path, "/path");
        EXPECT_EQ(record().conreq_port, 30005);
    }

    void expect_stun_stored()
    {
        EXPECT_EQ(record().stun_enabled, 1);
        EXPECT_STREQ(record().stun_server_addr, "198.51.100.8");
        EXPECT_EQ(record().stun_server_port, 3479);
    }

    void expect_acs_untouched()
    {
        EXPECT_TRUE(untouched(record().acs_url));
        EXPECT_TRUE(untouched(record().acs_username));
        EXPECT_TRUE(untouched(record().acs_password));
        EXPECT_TRUE(untouched(record().tr069_inform));
        EXPECT_TRUE(untouched(record().tr069_interval));
    }

    void expect_connection_untouched()
    {
        EXPECT_TRUE(untouched(record().connection_enabled));
        EXPECT_TRUE(untouched(record().conreq_name));
        EXPECT_TRUE(untouched(record().conreq_pw));
        EXPECT_TRUE(untouched(record().conreq_path));
        EXPECT_TRUE(untouched(record().conreq_port));
    }

    void expect_stun_untouched()
    {
        EXPECT_TRUE(untouched(record().stun_enabled));
        EXPECT_TRUE(untouched(record().stun_server_addr));
        EXPECT_TRUE(untouched(record().stun_server_port));
    }
};

/// No object that has anything.
const std::vector<std::string> empty_blocks = {
    "{}", "{\"other\": 1}", "null", "true", "7", "\"text\"", "[]", "[{\"enabled\": true, \"acs_url\": \"\"}]"};

TEST_F(Tr069ConfigFrom, StoresEveryKeyAndNotTheHostsBlock)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().tr069_enable, 1);
    expect_acs_stored();
    expect_connection_stored();
    expect_stun_stored();
    EXPECT_STREQ(record().ca_cert, "the certificate");
    EXPECT_TRUE(untouched(record().host_block));
}

TEST_F(Tr069ConfigFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"tr069_enable", "tr069_enable", "tr069_enable field not found"},
        {"acs.acs_url", "acs.acs_url", "acs_url field not found"},
        {"acs.acs_username", "acs.acs_username", "acs_username field not found"},
        {"acs.acs_password", "acs.acs_password", "acs_password field not found"},
        {"acs.tr069_inform", "acs.tr069_inform", "tr069_inform field not found"},
        {"acs.tr069_interval", "acs.tr069_interval", "tr069_interval field not found"},
        {"connection.enabled", "connection.enabled", "enabled field not found"},
        {"connection.conreq_name", "connection.conreq_name", "conreq_name field not found"},
        {"connection.conreq_pw", "connection.conreq_pw", "conreq_pw field not found"},
        {"connection.conreq_port", "connection.conreq_port", "conreq_port field not found"},
        {"stun.enabled", "stun.enabled", "enabled field not found"},
        {"stun.stun_server_addr", "stun.stun_server_addr", "stun_server_addr field not found"},
        {"stun.stun_server_port", "stun.stun_server_port", "stun_server_port field not found"},
    });
}

TEST_F(Tr069ConfigFrom, SucceedsWithTheSwitchAloneAndChangesNothingElse)
{
    EXPECT_TRUE(accepts(R"({"tr069_enable": true})"));
    EXPECT_EQ(record().tr069_enable, 1);
    expect_acs_untouched();
    expect_connection_untouched();
    expect_stun_untouched();
    EXPECT_TRUE(untouched(record().host_block));
    EXPECT_TRUE(untouched(record().ca_cert));
}

TEST_F(Tr069ConfigFrom, KeepsEachBlockThatIsAbsentAndReadsTheOthers)
{
    EXPECT_TRUE(accepts(without(document, "acs")));
    expect_acs_untouched();
    expect_connection_stored();
    expect_stun_stored();
    EXPECT_STREQ(record().ca_cert, "the certificate");

    poison();
    EXPECT_TRUE(accepts(without(document, "connection")));
    expect_acs_stored();
    expect_connection_untouched();
    expect_stun_stored();
    EXPECT_STREQ(record().ca_cert, "the certificate");

    poison();
    EXPECT_TRUE(accepts(without(document, "stun")));
    expect_acs_stored();
    expect_connection_stored();
    expect_stun_untouched();
    EXPECT_STREQ(record().ca_cert, "the certificate");
}

TEST_F(Tr069ConfigFrom, AsksForTheFirstKeyOfABlockThatIsThereAndHasNothing)
{
    for (const std::string &block : empty_blocks) {
        poison();
        EXPECT_TRUE(rejects(with(document, "acs", block), "acs.acs_url", "acs_url field not found"));
        EXPECT_EQ(record().tr069_enable, 1);
        expect_acs_untouched();
        expect_connection_untouched();

        poison();
        EXPECT_TRUE(rejects(with(document, "connection", block), "connection.enabled", "enabled field not found"));
        expect_acs_stored();
        expect_connection_untouched();
        expect_stun_untouched();

        poison();
        EXPECT_TRUE(rejects(with(document, "stun", block), "stun.enabled", "enabled field not found"));
        expect_connection_stored();
        expect_stun_untouched();
        EXPECT_TRUE(untouched(record().ca_cert));
    }
}

TEST_F(Tr069ConfigFrom, MissingSwitchStoresNothing)
{
    const std::string before = image();
    EXPECT_TRUE(rejects(without(document, "tr069_enable"), "tr069_enable", "tr069_enable field not found"));
    EXPECT_EQ(image(), before);
}

TEST_F(Tr069ConfigFrom, MissingIntervalKeepsTheRestOfTheAcsBlock)
{
    EXPECT_TRUE(
        rejects(without(document, "acs.tr069_interval"), "acs.tr069_interval", "tr069_interval field not found"));
    EXPECT_EQ(record().tr069_enable, 1);
    EXPECT_STREQ(record().acs_url, "http://198.51.100.7/acs");
    EXPECT_STREQ(record().acs_username, "user of acs");
    EXPECT_STREQ(record().acs_password, "password of acs");
    EXPECT_EQ(record().tr069_inform, 1);
    EXPECT_TRUE(untouched(record().tr069_interval));
    expect_connection_untouched();
    expect_stun_untouched();
    EXPECT_TRUE(untouched(record().ca_cert));
}

TEST_F(Tr069ConfigFrom, MissingAcsPasswordKeepsWhatIsInFrontOfItAlone)
{
    EXPECT_TRUE(rejects(without(document, "acs.acs_password"), "acs.acs_password", "acs_password field not found"));
    EXPECT_STREQ(record().acs_url, "http://198.51.100.7/acs");
    EXPECT_STREQ(record().acs_username, "user of acs");
    EXPECT_TRUE(untouched(record().acs_password));
    EXPECT_TRUE(untouched(record().tr069_inform));
    EXPECT_TRUE(untouched(record().tr069_interval));
}

TEST_F(Tr069ConfigFrom, MissingRequestPortKeepsThePathStoredBefore)
{
    EXPECT_TRUE(
        rejects(without(document, "connection.conreq_port"), "connection.conreq_port", "conreq_port field not found"));
    expect_acs_stored();
    EXPECT_EQ(record().connection_enabled, 1);
    EXPECT_STREQ(record().conreq_name, "name of request");
    EXPECT_STREQ(record().conreq_pw, "password of request");
    EXPECT_STREQ(record().conreq_path, "/path");
    EXPECT_TRUE(untouched(record().conreq_port));
    expect_stun_untouched();
    EXPECT_TRUE(untouched(record().ca_cert));
}

TEST_F(Tr069ConfigFrom, MissingRequestPasswordLeavesThePathUnread)
{
    EXPECT_TRUE(
        rejects(without(document, "connection.conreq_pw"), "connection.conreq_pw", "conreq_pw field not found"));
    EXPECT_STREQ(record().conreq_name, "name of request");
    EXPECT_TRUE(untouched(record().conreq_pw));
    EXPECT_TRUE(untouched(record().conreq_path));
}

TEST_F(Tr069ConfigFrom, FailingStunBlockKeepsTheOtherBlocksButStoresNoCertificate)
{
    EXPECT_TRUE(rejects(without(document, "stun.stun_server_port"), "stun.stun_server_port",
                        "stun_server_port field not found"));
    expect_acs_stored();
    expect_connection_stored();
    EXPECT_EQ(record().stun_enabled, 1);
    EXPECT_STREQ(record().stun_server_addr, "198.51.100.8");
    EXPECT_TRUE(untouched(record().stun_server_port));
    EXPECT_TRUE(untouched(record().ca_cert));
}

TEST_F(Tr069ConfigFrom, KeepsTheOptionalKeysThatAreAbsent)
{
    expect_optional("connection.conreq_path", record().conreq_path);
    expect_optional("ca_cert", record().ca_cert);
}

TEST_F(Tr069ConfigFrom, ReadsTheKeysOfABlockInsideItAlone)
{
    EXPECT_TRUE(rejects(with(without(document, "acs.acs_url"), "acs_url", "\"outside\""), "acs.acs_url",
                        "acs_url field not found"));
    EXPECT_TRUE(rejects(with(without(document, "connection.enabled"), "enabled", "true"), "connection.enabled",
                        "enabled field not found"));
    EXPECT_TRUE(
        rejects(with(without(document, "stun.enabled"), "enabled", "true"), "stun.enabled", "enabled field not found"));
    EXPECT_TRUE(rejects(with(without(document, "tr069_enable"), "acs.tr069_enable", "true"), "tr069_enable",
                        "tr069_enable field not found"));
}

TEST_F(Tr069ConfigFrom, TakesOnlyTrueForTrue)
{
    expect_boolean("tr069_enable", record().tr069_enable);
    expect_boolean("acs.tr069_inform", record().tr069_inform);
    expect_boolean("connection.enabled", record().connection_enabled);
    expect_boolean("stun.enabled", record().stun_enabled);
}

TEST_F(Tr069ConfigFrom, CutsIntegersToTheirWidth)
{
    expect_integer("acs.tr069_interval", record().tr069_interval);
    expect_integer("connection.conreq_port", record().conreq_port);
    expect_integer("stun.stun_server_port", record().stun_server_port);
}

TEST_F(Tr069ConfigFrom, CutsTextsToTheirField)
{
    expect_string("acs.acs_url", record().acs_url);
    expect_string("acs.acs_username", record().acs_username);
    expect_string("acs.acs_password", record().acs_password);
    expect_string("connection.conreq_name", record().conreq_name);
    expect_string("connection.conreq_pw", record().conreq_pw);
    expect_string("connection.conreq_path", record().conreq_path);
    expect_string("stun.stun_server_addr", record().stun_server_addr);
    expect_string("ca_cert", record().ca_cert);
}

TEST_F(Tr069ConfigFrom, StoresTheFirst4096CharactersOfALongCertificate)
{
    EXPECT_TRUE(accepts(with(document, "ca_cert", '"' + std::string(5000, 'c') + '"')));
    EXPECT_EQ(std::string(record().ca_cert), std::string(4096, 'c'));
    EXPECT_TRUE(untouched(record().host_block));
}

TEST(Tr069Config, TakesBackWhatItWrote)
{
    std::vector<kelmora_host::Node> nodes;
    nodes.emplace_back("cwmp", kelmora_host::Record(kelmora_tr069_config{}));
    EXPECT_EQ(kelmora_host::from_json(tr069_config_from_translator, nodes.front(), sample_text).result, 1);
    EXPECT_EQ(kelmora_host::to_json(tr069_config_to_translator, nodes, false).text, sample_text);
}

} // namespace

} // namespace kelmora_test::tr069_config_test
