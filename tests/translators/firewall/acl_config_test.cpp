#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/firewall.h"

namespace kelmora_test::acl_config_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

using Service = kelmora_acl_config_service;

constexpr kelmora_acl_config sample{
    .interfaceID = "br0",
    .ip_start_addr = "192.168.17.2",
    .ip_end_addr = "192.168.17.254",
    .enable = 1,
    .service_any = 0,
    .service_tftp = 1,
    .service_ping = 0,
    .service_telnet = {.enable = 1, .port = 23},
    .service_ftp = {.enable = 0, .port = 21},
    .service_http = {.enable = 1, .port = 80},
    .service_https = {.enable = 0, .port = 443},
    .service_ssh = {.enable = 1, .port = 22},
};

constexpr char sample_text[] =
    R"({"id": "first", "interfaceID": "br0", "ip_start_addr": "192.168.17.2", "ip_end_addr": "192.168.17.254", )"
    R"("enable": true, "service_any": false, "service_tftp": true, "service_ping": false, )"
    R"("service_telnet": {"enable": true, "port": 23}, "service_ftp": {"enable": false, "port": 21}, )"
    R"("service_http": {"enable": true, "port": 80}, "service_https": {"enable": false, "port": 443}, )"
    R"("service_ssh": {"enable": true, "port": 22}})";

constexpr char empty_text[] =
    R"({"id": "second", "interfaceID": "", "ip_start_addr": "", "ip_end_addr": "", )"
    R"("enable": false, "service_any": false, "service_tftp": false, "service_ping": false, )"
    R"("service_telnet": {"enable": false, "port": 0}, "service_ftp": {"enable": false, "port": 0}, )"
    R"("service_http": {"enable": false, "port": 0}, "service_https": {"enable": false, "port": 0}, )"
    R"("service_ssh": {"enable": false, "port": 0}})";

class AclConfigTo : public ToTest<kelmora_acl_config> {
protected:
    AclConfigTo() : ToTest(acl_config_to_translator) {}
};

TEST_F(AclConfigTo, WritesTheKeysInOrder)
{
    add("first", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(AclConfigTo, WritesPortsAsUnsigned)
{
    add("", {.service_telnet = {.port = 65535},
             .service_ftp = {.port = 65534},
             .service_http = {.port = 65533},
             .service_https = {.port = 65532},
             .service_ssh = {.port = 32768}});
    EXPECT_THAT(object(), HasSubstr(R"("service_telnet": {"enable": false, "port": 65535}, )"
                                    R"("service_ftp": {"enable": false, "port": 65534}, )"
                                    R"("service_http": {"enable": false, "port": 65533}, )"
                                    R"("service_https": {"enable": false, "port": 65532}, )"
                                    R"("service_ssh": {"enable": false, "port": 32768}})"));
}

TEST_F(AclConfigTo, WritesEachSwitchFromItsOwnField)
{
    kelmora_acl_config &rule = add("second");
    const std::vector<std::pair<std::uint8_t *, std::string>> switches = {
        {&rule.enable, R"("ip_end_addr": "", "enable": )"},
        {&rule.service_any, R"("service_any": )"},
        {&rule.service_tftp, R"("service_tftp": )"},
        {&rule.service_ping, R"("service_ping": )"},
        {&rule.service_telnet.enable, R"("service_telnet": {"enable": )"},
        {&rule.service_ftp.enable, R"("service_ftp": {"enable": )"},
        {&rule.service_http.enable, R"("service_http": {"enable": )"},
        {&rule.service_https.enable, R"("service_https": {"enable": )"},
        {&rule.service_ssh.enable, R"("service_ssh": {"enable": )"},
    };
    for (const auto &[field, before] : switches) {
        *field = 128;
        std::string expected = empty_text;
        expected.replace(expected.find(before) + before.size(), 5, "true");
        EXPECT_EQ(object(), expected);
        *field = 0;
    }
}

TEST_F(AclConfigTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_acl_config &rule = add("", sample);
    fill_whole(rule.interfaceID, 'i');
    fill_whole(rule.ip_start_addr, 's');
    fill_whole(rule.ip_end_addr, 'e');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_THAT(object(), AllOf(HasSubstr(R"("interfaceID": ")" + std::string(19, 'i') + '"'),
                                HasSubstr(R"("ip_start_addr": ")" + std::string(16, 's') + '"'),
                                HasSubstr(R"("ip_end_addr": ")" + std::string(16, 'e') + '"'),
                                HasSubstr(R"("id": ")" + std::string(128, 'n') + '"')));
}

TEST_F(AclConfigTo, LeavesOutATextWhoseCutSplitsACharacter)
{
    kelmora_acl_config &rule = add("first", sample);
    fill_whole(rule.interfaceID, 'i');
    rule.interfaceID[18] = '\xC3'; // the first byte of a two-byte character: the last that is written
    rule.interfaceID[19] = '\xA4';
    EXPECT_THAT(object(), testing::StartsWith(R"({"id": "first", "ip_start_addr": )"));
}

TEST_F(AclConfigTo, LeavesOutATextThatIsNotUtf8)
{
    set(add("first", sample).ip_end_addr, "\xE9");
    EXPECT_THAT(object(), AllOf(Not(HasSubstr("ip_end_addr")), HasSubstr(R"("192.168.17.2", "enable")")));
}

TEST_F(AclConfigTo, WritesOtherScriptsAndSlashesAsTheyAre)
{
    set(add("first", sample).interfaceID, "ä/\"北");
    EXPECT_THAT(object(), HasSubstr("\"interfaceID\": \"ä/\\\"北\""));
}

TEST_F(AclConfigTo, WritesALongListIntoALargerBuffer)
{
    std::string expected;
    for (int i = 0; i < 20; ++i) {
        add("second");
        expected += (i == 0 ? "[" : ", ") + std::string(empty_text);
    }
    EXPECT_EQ(list(), expected + "]");
    EXPECT_EQ(reallocations_, 1U);
}

// The first long text has not just 14 characters: see expect_survives_failing_memory.
constexpr char document[] = R"({
    "interfaceID": "wan2.connection0", "ip_start_addr": "198.51.100.8", "ip_end_addr": "198.51.100.15",
    "enable": true, "service_any": true, "service_tftp": true, "service_ping": true,
    "service_telnet": {"enable": true, "port": 2323}, "service_ftp": {"enable": true, "port": 2121},
    "service_http": {"enable": true, "port": 8080}, "service_https": {"enable": true, "port": 8443},
    "service_ssh": {"enable": true, "port": 2222}, "id": "never read", "port": 7
})";

class AclConfigFrom : public FromTest<kelmora_acl_config> {
protected:
    AclConfigFrom() : FromTest(acl_config_from_translator, document) {}

    /// The services in the order in which they are read.
    const std::vector<std::pair<std::string, Service *>> services_ = {
        {"service_telnet", &record().service_telnet}, {"service_ftp", &record().service_ftp},
        {"service_http", &record().service_http},     {"service_https", &record().service_https},
        {"service_ssh", &record().service_ssh},
    };

    /// The services from this place on are as they were, the ones before it are stored.
    void expect_stored_before(std::size_t place)
    {
        for (std::size_t i = 0; i < services_.size(); ++i) {
            const auto &[key, service] = services_[i];
            if (i < place) {
                EXPECT_EQ(service->enable, 1) << key;
                EXPECT_FALSE(untouched(service->port)) << key;
            } else {
                EXPECT_TRUE(untouched(service->enable)) << key;
                EXPECT_TRUE(untouched(service->port)) << key;
            }
        }
    }
};

TEST_F(AclConfigFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_STREQ(record().interfaceID, "wan2.connection0");
    EXPECT_STREQ(record().ip_start_addr, "198.51.100.8");
    EXPECT_STREQ(record().ip_end_addr, "198.51.100.15");
    EXPECT_EQ(record().enable, 1);
    EXPECT_EQ(record().service_any, 1);
    EXPECT_EQ(record().service_tftp, 1);
    EXPECT_EQ(record().service_ping, 1);
    EXPECT_EQ(record().service_telnet.enable, 1);
    EXPECT_EQ(record().service_telnet.port, 2323);
    EXPECT_EQ(record().service_ftp.enable, 1);
    EXPECT_EQ(record().service_ftp.port, 2121);
    EXPECT_EQ(record().service_http.enable, 1);
    EXPECT_EQ(record().service_http.port, 8080);
    EXPECT_EQ(record().service_https.enable, 1);
    EXPECT_EQ(record().service_https.port, 8443);
    EXPECT_EQ(record().service_ssh.enable, 1);
    EXPECT_EQ(record().service_ssh.port, 2222);
}

TEST_F(AclConfigFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"interfaceID", "interfaceID", "interfaceID field not found"},
        {"ip_start_addr", "ip_start_addr", "ip_start_addr field not found"},
        {"ip_end_addr", "ip_end_addr", "ip_end_addr field not found"},
        {"enable", "enable", "enable field not found"},
        {"service_any", "service_any", "service_any field not found"},
        {"service_tftp", "service_tftp", "service_tftp field not found"},
        {"service_ping", "service_ping", "service_ping field not found"},
        {"service_telnet.enable", "service_telnet.enable", "field not found"},
        {"service_telnet.port", "service_telnet.port", "field not found"},
        {"service_ftp.enable", "service_ftp.enable", "field not found"},
        {"service_ftp.port", "service_ftp.port", "field not found"},
        {"service_http.enable", "service_http.enable", "field not found"},
        {"service_http.port", "service_http.port", "field not found"},
        {"service_https.enable", "service_https.enable", "field not found"},
        {"service_https.port", "service_https.port", "field not found"},
        {"service_ssh.enable", "service_ssh.enable", "field not found"},
        {"service_ssh.port", "service_ssh.port", "field not found"},
    });
}

TEST_F(AclConfigFrom, AsksForEachServiceButTelnetInOrder)
{
    std::vector<std::string> this_and_later;
    for (std::size_t place = services_.size() - 1; place > 0; --place) {
        const std::string &key = services_[place].first;
        this_and_later.push_back(key);
        poison();
        EXPECT_TRUE(rejects(without(document, key), key, "object not found"));
        expect_stored_before(place);
        EXPECT_TRUE(rejects(without_all(document, this_and_later), key, "object not found"));
    }
}

TEST_F(AclConfigFrom, KeepsTelnetThatIsAbsentAndReadsOn)
{
    EXPECT_TRUE(accepts(without(document, "service_telnet")));
    EXPECT_TRUE(untouched(record().service_telnet.enable));
    EXPECT_TRUE(untouched(record().service_telnet.port));
    EXPECT_EQ(record().service_ftp.enable, 1);
    EXPECT_EQ(record().service_ftp.port, 2121);
    EXPECT_EQ(record().service_ssh.enable, 1);
    EXPECT_EQ(record().service_ssh.port, 2222);
    EXPECT_TRUE(rejects(without_all(document, {"service_telnet", "service_ftp"}), "service_ftp", "object not found"));
}

TEST_F(AclConfigFrom, StoresBothMembersOfAServiceOrNeither)
{
    for (std::size_t place = 0; place < services_.size(); ++place) {
        const std::string &key = services_[place].first;
        poison();
        EXPECT_TRUE(rejects(without(document, key + ".port"), key + ".port", "field not found"));
        expect_stored_before(place);
        poison();
        EXPECT_TRUE(rejects(without(document, key + ".enable"), key + ".enable", "field not found"));
        expect_stored_before(place);
    }
}

TEST_F(AclConfigFrom, TakesAServiceThatIsNoObjectForAnEmptyOne)
{
    for (std::size_t place = 0; place < services_.size(); ++place) {
        const std::string &key = services_[place].first;
        for (const char *other :
             {"true", "null", "{}", "false", "23", "\"23\"", "2.5", "[]", R"([{"enable": true, "port": 1}])"}) {
            poison();
            EXPECT_TRUE(rejects(with(document, key, other), key + ".enable", "field not found"));
            expect_stored_before(place);
        }
    }
}

TEST_F(AclConfigFrom, MissingPingStoresNoService)
{
    EXPECT_TRUE(rejects(without(document, "service_ping"), "service_ping", "service_ping field not found"));
    EXPECT_STREQ(record().interfaceID, "wan2.connection0");
    EXPECT_STREQ(record().ip_start_addr, "198.51.100.8");
    EXPECT_STREQ(record().ip_end_addr, "198.51.100.15");
    EXPECT_EQ(record().enable, 1);
    EXPECT_EQ(record().service_any, 1);
    EXPECT_EQ(record().service_tftp, 1);
    EXPECT_TRUE(untouched(record().service_ping));
    expect_stored_before(0);
}

TEST_F(AclConfigFrom, TakesOnlyTrueForTrue)
{
    expect_boolean("enable", record().enable);
    expect_boolean("service_any", record().service_any);
    expect_boolean("service_tftp", record().service_tftp);
    expect_boolean("service_ping", record().service_ping);
    for (const auto &[key, service] : services_)
        expect_boolean(key + ".enable", service->enable);
}

TEST_F(AclConfigFrom, CutsPortsToTheirWidth)
{
    for (const auto &[key, service] : services_)
        expect_integer(key + ".port", service->port);
}

TEST_F(AclConfigFrom, StoresTheLow16BitsOfALargePort)
{
    EXPECT_TRUE(accepts(with(document, "service_ssh.port", "70000")));
    EXPECT_EQ(record().service_ssh.port, 4464);
}

TEST_F(AclConfigFrom, CutsTextsToTheirField)
{
    expect_string("interfaceID", record().interfaceID);
    expect_string("ip_start_addr", record().ip_start_addr);
    expect_string("ip_end_addr", record().ip_end_addr);
}

} // namespace

} // namespace kelmora_test::acl_config_test
