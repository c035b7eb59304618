#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/device.h"

namespace kelmora_test::mp_info_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr kelmora_mp_info sample{
    .info = "Board C/2, geprüft",
    .password = "brass kettle",
};

class MpInfoTo : public ToTest<kelmora_mp_info> {
protected:
    MpInfoTo() : ToTest(mp_info_to_translator) {}
};

TEST_F(MpInfoTo, WritesTheInformationAloneIndentedAndEscaped)
{
    add("the id", sample);
    EXPECT_EQ(object(), "{\n"
                        "                \"info\": \"Board C\\/2, gepr\\u00FCft\"\n"
                        "}");
    EXPECT_EQ(list(), "[\n"
                      "                {\n"
                      "                                \"info\": \"Board C\\/2, gepr\\u00FCft\"\n"
                      "                }\n"
                      "]");
}

TEST_F(MpInfoTo, NeverWritesThePassword)
{
    kelmora_mp_info &mp_info = add("0", sample);
    fill_whole(mp_info.info, 'i'); // no NUL between the information and the password
    EXPECT_THAT(object(), AllOf(Not(HasSubstr("password")), Not(HasSubstr("brass"))));
    EXPECT_THAT(list(), AllOf(Not(HasSubstr("password")), Not(HasSubstr("brass"))));
}

TEST_F(MpInfoTo, CutsTheInformationToOneByteLessThanItsField)
{
    fill_whole(add("0", sample).info, 'i');
    EXPECT_EQ(object(), "{\n"
                        "                \"info\": \"" +
                            std::string(126, 'i') +
                            "\"\n"
                            "}");
}

TEST_F(MpInfoTo, LeavesOutInformationWhoseCutSplitsACharacter)
{
    kelmora_mp_info &mp_info = add("0", sample);
    fill_whole(mp_info.info, 'i');
    mp_info.info[125] = '\xC3'; // the first byte of a two-byte character: the last that is written
    mp_info.info[126] = '\xA4';
    EXPECT_EQ(object(), "{}");
}

constexpr char document[] = R"({"password": "copper lamp", "info": "never read", "id": "never read"})";

class MpInfoFrom : public FromTest<kelmora_mp_info> {
protected:
    MpInfoFrom() : FromTest(mp_info_from_translator, document) {}
};

TEST_F(MpInfoFrom, StoresThePasswordAndNeverTheInformation)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_STREQ(record().password, "copper lamp");
    EXPECT_TRUE(untouched(record().info));
}

TEST_F(MpInfoFrom, RequiresThePassword)
{
    expect_required_in_order({{"password", "password", "password field not found"}});
}

TEST_F(MpInfoFrom, StoresNothingWithoutThePassword)
{
    EXPECT_TRUE(rejects(R"({"info": "never read"})", "password", "password field not found"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(MpInfoFrom, CutsThePasswordToItsField) { expect_string("password", record().password); }

} // namespace

} // namespace kelmora_test::mp_info_test
