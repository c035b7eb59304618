#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/pon.h"

namespace kelmora_test::pon_settings_test {

namespace {

constexpr kelmora_pon_settings sample{
    .mode = "GPON",
    .oam_model_id = "M811",
    .oam_vendor_id = "ACME",
    .onu_id_mac = "021a11f03c01",
    .oam_hardware_version = "v1.2",
    .omci_model_id = "K20-max",
    .omci_vendor_id = "ACME",
    .serial_number = "ACME1F03C01A",
    .omci_hardware_version = "v2.0",
    .olt_profile = 3,
    .loid = "customer 4711",
    .loid_password = "seven herons",
    .ploam_password = "at dusk",
};

constexpr char sample_text[] =
    R"({"id": "7", "mode": "GPON", )"
    R"("oam": {"model_id": "M811", "vendor_id": "ACME", "onu_id_mac": "021a11f03c01", "hardware_version": "v1.2"}, )"
    R"("omci": {"model_id": "K20-max", "vendor_id": "ACME", "serial_number": "ACME1F03C01A", )"
    R"("hardware_version": "v2.0", "olt_profile": 3}, )"
    R"("security": {"loid": "customer 4711", "loid_password": "seven herons", "ploam_password": "at dusk"}})";

class PonSettingsTo : public ToTest<kelmora_pon_settings> {
protected:
    PonSettingsTo() : ToTest(pon_settings_to_translator) {}
};

TEST_F(PonSettingsTo, WritesAllKeysInOrder)
{
    add("7", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(PonSettingsTo, CutsTextsThatFillTheirFields)
{
    kelmora_pon_settings &pon = add("w");
    std::memset(&pon, 'x', sizeof pon);
    const auto x = [](std::size_t length) { return std::string(length, 'x'); };
    EXPECT_EQ(object(), R"({"id": "w", "mode": "xxxx", "oam": {"model_id": "xxxx", "vendor_id": ")" + x(16) +
                            R"(", "onu_id_mac": ")" + x(12) + R"(", "hardware_version": ")" + x(31) +
                            R"("}, "omci": {"model_id": ")" + x(63) + R"(", "vendor_id": "xxxx", "serial_number": ")" +
                            x(12) + R"(", "hardware_version": ")" + x(31) +
                            R"(", "olt_profile": 120}, "security": {"loid": ")" + x(29) + R"(", "loid_password": ")" +
                            x(36) + R"(", "ploam_password": ")" + x(75) + R"("}})");
}

TEST_F(PonSettingsTo, WritesTheProfileAsUnsigned)
{
    add("u").olt_profile = 255;
    EXPECT_THAT(object(), testing::HasSubstr(R"("olt_profile": 255})"));
}

TEST_F(PonSettingsTo, LeavesOutATextThatIsNotUtf8)
{
    set(add("x").loid, "caf\xE9");
    EXPECT_THAT(object(), testing::EndsWith(R"("security": {"loid_password": "", "ploam_password": ""}})"));
}

class PonSettingsFrom : public FromTest<kelmora_pon_settings> {
protected:
    PonSettingsFrom() : FromTest(pon_settings_from_translator, sample_text) {}

    void expect_oam_stored()
    {
        EXPECT_STREQ(record().oam_model_id, "M811");
        EXPECT_STREQ(record().oam_vendor_id, "ACME");
        EXPECT_STREQ(record().onu_id_mac, "021a11f03c01");
        EXPECT_STREQ(record().oam_hardware_version, "v1.2");
    }
    void expect_oam_untouched()
    {
        EXPECT_TRUE(untouched(record().oam_model_id));
        EXPECT_TRUE(untouched(record().oam_vendor_id));
        EXPECT_TRUE(untouched(record().onu_id_mac));
        EXPECT_TRUE(untouched(record().oam_hardware_version));
    }

    void expect_omci_stored()
    {
        EXPECT_STREQ(record().omci_model_id, "K20-max");
        EXPECT_STREQ(record().omci_vendor_id, "ACME");
        EXPECT_STREQ(record().serial_number, "ACME1F03C01A");
        EXPECT_STREQ(record().omci_hardware_version, "v2.0");
        EXPECT_EQ(record().olt_profile, 3);
    }
    void expect_omci_untouched()
    {
        EXPECT_TRUE(untouched(record().omci_model_id));
        EXPECT_TRUE(untouched(record().omci_vendor_id));
        EXPECT_TRUE(untouched(record().serial_number));
        EXPECT_TRUE(untouched(record().omci_hardware_version));
        EXPECT_TRUE(untouched(record().olt_profile));
    }

    void expect_security_stored()
    {
        EXPECT_STREQ(record().loid, "customer 4711");
        EXPECT_STREQ(record().loid_password, "seven herons");
        EXPECT_STREQ(record().ploam_password, "at dusk");
    }
    void expect_security_untouched()
    {
        EXPECT_TRUE(untouched(record().loid));
        EXPECT_TRUE(untouched(record().loid_password));
        EXPECT_TRUE(untouched(record().ploam_password));
    }
};

TEST_F(PonSettingsFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(sample_text));
    EXPECT_STREQ(record().mode, "GPON");
    expect_oam_stored();
    expect_omci_stored();
    expect_security_stored();
}

TEST_F(PonSettingsFrom, AsksForTheModeAndTheGroupsInOrder)
{
    expect_required_in_order({{"mode", "mode", "mode field not found"},
                              {"oam", "oam", "oam fields not found"},
                              {"omci", "omci", "omci fields not found"},
                              {"security", "security", "security fields not found"}});
}

TEST_F(PonSettingsFrom, StoresOnlyTheMembersThatAreThere)
{
    expect_optional("oam.model_id", record().oam_model_id);
    expect_optional("oam.vendor_id", record().oam_vendor_id);
    expect_optional("oam.onu_id_mac", record().onu_id_mac);
    expect_optional("oam.hardware_version", record().oam_hardware_version);
    expect_optional("omci.model_id", record().omci_model_id);
    expect_optional("omci.vendor_id", record().omci_vendor_id);
    expect_optional("omci.serial_number", record().serial_number);
    expect_optional("omci.hardware_version", record().omci_hardware_version);
    expect_optional("omci.olt_profile", record().olt_profile);
    expect_optional("security.loid", record().loid);
    expect_optional("security.loid_password", record().loid_password);
    expect_optional("security.ploam_password", record().ploam_password);
}

TEST_F(PonSettingsFrom, ChangesTheModeAloneWhenTheGroupsAreEmpty)
{
    poison();
    EXPECT_TRUE(accepts(R"({"mode": "EPON", "oam": {}, "omci": {}, "security": {}})"));
    EXPECT_STREQ(record().mode, "EPON");
    constexpr std::size_t behind_mode = sizeof record().mode;
    const auto *bytes = reinterpret_cast<const unsigned char *>(&record());
    for (std::size_t i = behind_mode; i < sizeof(kelmora_pon_settings); ++i)
        ASSERT_EQ(bytes[i], poison_byte) << i;
}

TEST_F(PonSettingsFrom, TakesAGroupThatIsNoObjectForAnEmptyOne)
{
    for (const std::string group : {"oam", "omci", "security"}) {
        for (const char *other : {"null", "1", "\"text\"", "true", "[]", R"([{"model_id": "M9", "loid": "9"}])"}) {
            poison();
            EXPECT_TRUE(accepts(with(sample_text, group, other)));
            EXPECT_STREQ(record().mode, "GPON");
            if (group == "oam")
                expect_oam_untouched();
            else
                expect_oam_stored();
            if (group == "omci")
                expect_omci_untouched();
            else
                expect_omci_stored();
            if (group == "security")
                expect_security_untouched();
            else
                expect_security_stored();
        }
    }
}

TEST_F(PonSettingsFrom, KeepsWhatWasStoredBeforeAMissingGroup)
{
    poison();
    EXPECT_TRUE(rejects(without(sample_text, "oam"), "oam", "oam fields not found"));
    EXPECT_STREQ(record().mode, "GPON");
    expect_oam_untouched();
    expect_omci_untouched();
    expect_security_untouched();

    poison();
    EXPECT_TRUE(rejects(without(sample_text, "omci"), "omci", "omci fields not found"));
    EXPECT_STREQ(record().mode, "GPON");
    expect_oam_stored();
    expect_omci_untouched();
    expect_security_untouched();

    poison();
    EXPECT_TRUE(rejects(without(sample_text, "security"), "security", "security fields not found"));
    EXPECT_STREQ(record().mode, "GPON");
    expect_oam_stored();
    expect_omci_stored();
    expect_security_untouched();
}

TEST_F(PonSettingsFrom, CutsTextsToTheirGroupsOwnWidths)
{
    expect_string("mode", record().mode);
    expect_string("oam.model_id", record().oam_model_id);
    expect_string("oam.vendor_id", record().oam_vendor_id);
    expect_string("oam.onu_id_mac", record().onu_id_mac);
    expect_string("oam.hardware_version", record().oam_hardware_version);
    expect_string("omci.model_id", record().omci_model_id);
    expect_string("omci.vendor_id", record().omci_vendor_id);
    expect_string("omci.serial_number", record().serial_number);
    expect_string("omci.hardware_version", record().omci_hardware_version);
    expect_string("security.loid", record().loid);
    expect_string("security.loid_password", record().loid_password);
    expect_string("security.ploam_password", record().ploam_password);

    EXPECT_TRUE(accepts(with(with(sample_text, "oam.model_id", "\"ABCDEFG\""), "omci.model_id", "\"ABCDEFG\"")));
    EXPECT_STREQ(record().oam_model_id, "ABCD");
    EXPECT_STREQ(record().omci_model_id, "ABCDEFG");
}

TEST_F(PonSettingsFrom, CutsTheProfileToAByte)
{
    expect_integer("omci.olt_profile", record().olt_profile);
    EXPECT_TRUE(accepts(with(sample_text, "omci.olt_profile", "257")));
    EXPECT_EQ(record().olt_profile, 1);
}

} // namespace

} // namespace kelmora_test::pon_settings_test
