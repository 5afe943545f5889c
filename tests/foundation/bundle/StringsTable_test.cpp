#include "platform/foundation/bundle/StringsTable.h"

#include <gtest/gtest.h>

#include "zarnic/platform/foundation/NSPropertyListSerialization.h"

namespace zn {
namespace {

/// What the file has under "k", or its error in brackets, or "-".
std::string under(std::string bytes, std::string_view key = "k") {
    std::string error;
    const StringsTable table(std::move(bytes), error);
    if (!error.empty())
        return "[" + error + "]";
    return std::string(table.find(key).value_or("-"));
}

std::string utf16(std::string_view ascii, bool bigEndian) {
    std::string text;
    for (const char each : ascii)
        text.append(bigEndian ? std::string{'\0', each} : std::string{each, '\0'});
    return text;
}

TEST(StringsTable, readsTheTextForm) {
    const struct {
        std::string file;
        std::string expected;
    } cases[] = {
        {"", "-"},
        {"\"k\" = \"v\";", "v"},
        {"'k'='v';", "v"},
        {"k=v;", "v"},
        {"k=a.b/c:d_e$f-1;", "a.b/c:d_e$f-1"},
        {"k;", "k"},
        {"\"k\";", "k"},
        {"k = \"\";", ""},
        {"k=1;k=2;", "2"},
        {"/* k = 1; */ k = 2; // k = 3;\n", "2"},
        {"/**/k /*=*/=/*;*/v /**/;", "v"},
        {"k = 'a \"b\" c';", "a \"b\" c"},
        {"k = \"it's\";", "it's"},
        {"k = \"two\nlines\";", "two\nlines"},
        {R"(k = "\a\b\f\n\r\t\v\"\\\'\x\/";)", "\a\b\f\n\r\t\v\"\\'x/"},
        {"k = \"a\\\nb\";", "a\nb"},
        {R"(k = "\U4e2d\U6587 \U00e9";)", "中文 é"},
        {R"(k = "\Ud83d\Ude00 \Ud83d \Ude00";)", "😀 \xEF\xBF\xBD \xEF\xBF\xBD"},
        {R"(k = "\U12 \Uzzzz";)", "U12 Uzzzz"},
        {R"(k = "\101\0608\47";)", "A08'"},
        {R"(k = "\200\245\377";)", "\xC2\xA0¥\xEF\xBF\xBD"},
        {"\xEF\xBB\xBFk = \"é\";", "é"},
        {"k = \"中文\";", "中文"},
        {"\"\\\"q\\\"\" = 1; k = 2;", "2"},
        // One mistake makes all of the file unreadable.
        {"k = \"v\"", "[line 1: a semicolon is missing]"},
        {"k = 1;\n\nj = 2\ni = 3;", "[line 4: a semicolon is missing]"},
        {"j = \"\\n\\n\";\nk = ;", "[line 2: a text is missing]"},
        {"j = \"a\\\n\n\";\nk", "[line 4: a semicolon is missing]"},
        {"k = \"v;\n", "[line 1: a text does not end]"},
        {"k = \"v\\", "[line 1: a text does not end]"},
        {"k = 1;\n/* on", "[line 2: a comment does not end]"},
        {"= 1;", "[line 1: a text is missing]"},
        {"{ k = 1; }", "[line 1: a text is missing]"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(under(each.file), each.expected) << each.file;
}

TEST(StringsTable, readsTheOtherEncodingsAndForms) {
    EXPECT_EQ(under("\xFF\xFE" + utf16("k = \"v\";", false)), "v");
    EXPECT_EQ(under("\xFE\xFF" + utf16("k = \"v\";", true)), "v");
    EXPECT_EQ(under(utf16("k = \"v\";", false)), "v");
    EXPECT_EQ(under(utf16("k = \"v\";", true)), "v");
    const Value list = Dictionary{{"k", "v"}, {"number", 1}};
    for (const auto format : {NSPropertyListFormat::XML, NSPropertyListFormat::Binary}) {
        const Value data = NSPropertyListSerialization::dataWithPropertyList(list, format);
        const auto bytes = data.bytes();
        const std::string file(reinterpret_cast<const char*>(bytes.data()), bytes.size());
        EXPECT_EQ(under(file), "v");
        EXPECT_EQ(under(file, "number"), "-");
        EXPECT_EQ(under(file.substr(0, file.size() / 2)).front(), '[');
    }
}

TEST(StringsTable, findsEachOfManyKeys) {
    std::string file;
    for (int index = 0; index < 5000; ++index)
        file += "\"key " + std::to_string(index) + "\" = \"" + std::to_string(index * 3) + "\";\n";
    std::string error;
    const StringsTable table(file, error);
    EXPECT_EQ(error, "");
    EXPECT_EQ(table.count(), 5000u);
    for (int index = 0; index < 5000; ++index)
        EXPECT_EQ(table.find("key " + std::to_string(index)), std::to_string(index * 3));
    for (const char* missing : {"", "key", "key 5000", "key  1"})
        EXPECT_EQ(table.find(missing), std::nullopt);
}

}  // namespace
}  // namespace zn
