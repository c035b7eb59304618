#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/device.h"

#include <algorithm>
#include <cstddef>

namespace kelmora_test::session_test {

namespace {

using testing::HasSubstr;
using testing::Not;

constexpr kelmora_session sample{.username = "admin", .password = "nine lighthouses", .token = "c1f2a6d08b7e"};

constexpr char sample_text[] = "[\n"
                               "                {\n"
                               "                                \"username\": \"admin\"\n"
                               "                }\n"
                               "]";

class SessionTo : public ToTest<kelmora_session> {
protected:
    SessionTo() : ToTest(session_to_translator) {}
};

TEST_F(SessionTo, WritesAnArrayOfOneObjectWhetherOrNotAListIsAskedFor)
{
    add("0", sample);
    EXPECT_EQ(list(), sample_text);
    EXPECT_EQ(object(), sample_text);
}

TEST_F(SessionTo, NeverWritesThePasswordTheTokenOrTheId)
{
    add("the id", sample);
    for (const char *secret : {"password", "nine lighthouses", "token", "c1f2a6d08b7e", "\"id\"", "the id"})
        EXPECT_THAT(list(), Not(HasSubstr(secret)));
}

TEST_F(SessionTo, CutsTheNameToOneByteLessThanItsField)
{
    fill_whole(add("0", sample).username, 'u');
    EXPECT_EQ(list(), "[\n"
                      "                {\n"
                      "                                \"username\": \"uuuuuuuuuuuuuuuuuuuuuuuuuuuuuuuuu\"\n" // 33
                      "                }\n"
                      "]");
}

TEST_F(SessionTo, WritesANameThatJustFitsWhole)
{
    set(add("0").username, "abcdefghijklmnopqrstuvwxyz0123456");
    EXPECT_THAT(list(), HasSubstr(R"("username": "abcdefghijklmnopqrstuvwxyz0123456")"));
}

TEST_F(SessionTo, EscapesOtherScriptsAndSlashes)
{
    set(add("0").username, "Jürgen/\"2\" 北");
    EXPECT_THAT(list(), HasSubstr("\"username\": \"J\\u00FCrgen\\/\\\"2\\\" \\u5317\"\n"));
}

TEST_F(SessionTo, LeavesAnEmptyObjectForANameThatIsNotUtf8)
{
    set(add("0").username, "caf\xE9");
    add("1", sample);
    EXPECT_EQ(object(), "[\n"
                        "                {},\n"
                        "                {\n"
                        "                                \"username\": \"admin\"\n"
                        "                }\n"
                        "]");
}

TEST_F(SessionTo, LeavesOutANameWhoseCutSplitsACharacter)
{
    kelmora_session &session = add("0");
    fill_whole(session.username, 'u');
    session.username[32] = '\xC3'; // the last byte that is written
    session.username[33] = '\xBC';
    EXPECT_EQ(list(), "[\n                {}\n]");
}

TEST_F(SessionTo, GrowsTheBufferForManySessions)
{
    for (int i = 0; i < 64; ++i)
        add("", sample);
    const std::string text = object();
    EXPECT_EQ(text.size(), 5698U); // 64 objects of 87 characters, 63 times ",\n", "[\n" and "\n]"
    EXPECT_THAT(text, testing::EndsWith("\"admin\"\n                }\n]"));
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] = R"({
    "username": "grandma", "password": "marmalade at noon", "token": "7d90c2e51b8f46a3", "id": "never read"
})";

class SessionFrom : public FromTest<kelmora_session> {
protected:
    SessionFrom() : FromTest(session_from_translator, document) {}

    /// The text, cut to the field's width less one; the rest filled with NULs; not stored when it is no string.
    template <std::size_t width> void expect_text_if_it_is_one(const std::string &path, const char (&field)[width])
    {
        for (const std::size_t length : {std::size_t{0}, std::size_t{1}, width - 1, width, width + 1, width + 500}) {
            poison();
            EXPECT_TRUE(accepts(with(document, path, '"' + std::string(length, 'x') + '"')));
            std::string expected(std::min(length, width - 1), 'x');
            expected.resize(width, '\0');
            EXPECT_EQ(std::string(field, width), expected) << path << " with " << length << " characters";
        }
        for (const char *other : {"5", "1.5", "true", "false", "null", "{}", "[]", R"(["text"])", R"({"a": "text"})"}) {
            poison();
            EXPECT_TRUE(accepts(with(document, path, other)));
            EXPECT_TRUE(untouched(field)) << path << ": " << other;
        }
    }
};

TEST_F(SessionFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_STREQ(record().username, "grandma");
    EXPECT_STREQ(record().password, "marmalade at noon");
    EXPECT_STREQ(record().token, "7d90c2e51b8f46a3");
}

TEST_F(SessionFrom, KeepsTheKeysThatAreAbsent)
{
    expect_optional("username", record().username);
    expect_optional("password", record().password);
    expect_optional("token", record().token);
}

TEST_F(SessionFrom, AcceptsADocumentWithNoneOfTheKeys)
{
    for (const char *text : {"{}", "[]", R"({"Username": "other", "user": "other"})",
                             R"([{"username": "in a list", "password": "in a list", "token": "in a list"}])"}) {
        EXPECT_TRUE(accepts(text));
        EXPECT_TRUE(untouched(record()));
    }
}

TEST_F(SessionFrom, StoresStringsAndSkipsEverythingElse)
{
    expect_text_if_it_is_one("username", record().username);
    expect_text_if_it_is_one("password", record().password);
    expect_text_if_it_is_one("token", record().token);
}

TEST_F(SessionFrom, SkipsANameThatIsANumberAndStoresTheToken)
{
    EXPECT_TRUE(accepts(R"({"username": 5, "token": "abc"})"));
    EXPECT_TRUE(untouched(record().username));
    EXPECT_TRUE(untouched(record().password));
    EXPECT_STREQ(record().token, "abc");
}

TEST_F(SessionFrom, SkipsEveryKeyThatIsNoString)
{
    EXPECT_TRUE(accepts(R"({"username": null, "password": ["a"], "token": true})"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(SessionFrom, StoresTheFirst33And129Characters)
{
    const std::string digits = "0123456789";
    std::string longest;
    for (int i = 0; i < 20; ++i)
        longest += digits;
    EXPECT_TRUE(accepts(R"({"username": ")" + longest + R"(", "password": ")" + longest + R"(", "token": ")" + longest +
                        "\"}"));
    EXPECT_STREQ(record().username, "012345678901234567890123456789012");
    EXPECT_STREQ(record().password, "012345678901234567890123456789012");
    EXPECT_EQ(record().token, longest.substr(0, 129));
}

TEST_F(SessionFrom, FetchesTheRecordOnceWhateverTheText)
{
    EXPECT_TRUE(accepts(""));
    EXPECT_EQ(fetches_, 1U);
    EXPECT_TRUE(rejects("{", "", "invalid json data"));
    EXPECT_EQ(fetches_, 1U);
    EXPECT_TRUE(accepts("{}"));
    EXPECT_EQ(fetches_, 1U);
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(fetches_, 1U);
}

} // namespace

} // namespace kelmora_test::session_test
