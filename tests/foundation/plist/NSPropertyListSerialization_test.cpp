#include "zarnic/platform/foundation/NSPropertyListSerialization.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <random>

#include "tests/support/TemporaryFolder.h"
#include "zarnic/platform/foundation/NSDate.h"

using namespace zn;
using namespace std::literals;

namespace {

Value read(std::string_view bytes) {
    return NSPropertyListSerialization::propertyListWithData(std::as_bytes(std::span(bytes)));
}

std::string repeated(std::string_view text, int times) {
    std::string result;
    for (int i = 0; i < times; ++i)
        result += text;
    return result;
}

std::string xml(std::string_view content) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE plist PUBLIC \"-//Apple//DTD "
           "PLIST "
           "1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n<plist "
           "version=\"1.0\">" +
           std::string(content) + "</plist>\n";
}

const std::string sampleXml = xml(R"(<dict>
    <key>text</key><string>中文 &amp; &lt;x&gt;</string>
    <key>long</key><string>a text that is longer than a value</string>
    <key>int</key><integer>-5</integer>
    <key>big</key><integer>1099511627776</integer>
    <key>yes</key><true/>
    <key>real</key><real>0.5</real>
    <key>data</key><data>AQL/</data>
    <key>date</key><date>2017-01-01T00:00:00Z</date>
    <key>list</key><array><integer>1</integer><array/><dict/></array>
</dict>)");

std::string unhexed(std::string_view digits) {
    std::string bytes;
    for (std::size_t i = 0; i < digits.size(); i += 2)
        bytes += static_cast<char>(std::stoi(std::string(digits.substr(i, 2)), nullptr, 16));
    return bytes;
}

std::string written(const Value& value, NSPropertyListFormat format) {
    const Value data = NSPropertyListSerialization::dataWithPropertyList(value, format);
    return {reinterpret_cast<const char*>(data.bytes().data()), data.bytes().size()};
}

constexpr std::array bothFormats = {NSPropertyListFormat::XML, NSPropertyListFormat::Binary};

/// The same dictionary, and a reference `uid`, as an independent writer makes it.
const std::string sampleBinary = unhexed(
    "62706c6973743030da0102030405060708090a0b0c0d0e0f10111213175474657874546c6f6e6753696e745362"
    "696753796573547265616c54646174615464617465546c69737453756964684e2d6587002000260020003c0078"
    "003e5f10226120746578742074686174206973206c6f6e676572207468616e20612076616c756513ffffffffff"
    "fffffb13000001000000000009233fe0000000000000430102ff3341be187e00000000a31415161001a0d08007"
    "081d22272b2f33383d42474b5c818a93949da1aaaeb0b1b2000000000000010100000000000000180000000000"
    "00000000000000000000b4");

Value sample() {
    constexpr std::string_view data = "\x01\x02\xFF";
    return Dictionary{{"text", "中文 & <x>"},
                      {"long", "a text that is longer than a value"},
                      {"int", -5},
                      {"big", 1099511627776},
                      {"yes", true},
                      {"real", 0.5},
                      {"data", Value::data(std::as_bytes(std::span(data)))},
                      {"date", NSDate::dateWithTimeIntervalSince1970(1483228800)},
                      {"list", Array{1, Value(Array{}), Dictionary{}}}};
}

/// A binary list whose object i is an array of `references` to object i + 1; the last is a boolean.
std::string binaryChain(std::size_t length, std::size_t references) {
    std::string bytes = "bplist00";
    std::string offsets;
    const auto add = [](std::string& text, std::size_t number, int size) {
        for (int shift = 8 * (size - 1); shift >= 0; shift -= 8)
            text += static_cast<char>(number >> shift);
    };
    for (std::size_t i = 0; i < length; ++i) {
        add(offsets, bytes.size(), 4);
        bytes += static_cast<char>(0xA0 | references);
        for (std::size_t copy = 0; copy < references; ++copy)
            add(bytes, i + 1, 4);
    }
    add(offsets, bytes.size(), 4);
    bytes += '\x09';
    const std::size_t table = bytes.size();
    bytes += offsets + std::string(6, '\0') + "\x04\x04";
    add(bytes, length + 1, 8);
    add(bytes, 0, 8);
    add(bytes, table, 8);
    return bytes;
}

}  // namespace

TEST(NSPropertyListSerialization, readsBothForms) {
    const Value fromXml = read(sampleXml);
    EXPECT_EQ(fromXml, sample()) << fromXml.description();
    EXPECT_EQ(fromXml.dictionary()["yes"].kind(), Value::Kind::Boolean);
    EXPECT_EQ(fromXml.dictionary()["real"].kind(), Value::Kind::Double);
    EXPECT_EQ(fromXml.dictionary().allKeys().front(), "text");
    EXPECT_FALSE(fromXml.dictionary().isMutable());
    EXPECT_EQ(read("\xEF\xBB\xBF" + sampleXml), fromXml);

    Dictionary withReference = sample().dictionary();
    withReference.set("uid", Dictionary{{"CF$UID", 7}});
    const Value fromBinary = read(sampleBinary);
    EXPECT_EQ(fromBinary, Value(withReference)) << fromBinary.description();
}

TEST(NSPropertyListSerialization, readsTopLevelScalars) {
    EXPECT_EQ(read(xml("<string></string>")), "");
    EXPECT_EQ(read(xml("<integer>7</integer>")), 7);
    EXPECT_EQ(read(xml("<array/>")), Value(Array{}));
}

TEST(NSPropertyListSerialization, whatIsNoPropertyListIsAbsent) {
    for (const auto& bytes :
         {std::string(), std::string("text"), std::string("bplist00"), xml(""),
          xml("<string>\xFF</string>"), xml("<dict><key>a&#0;b</key><true/></dict>"),
          xml("<array><string>a</array>"), std::string(100, '\0')})
        EXPECT_TRUE(read(bytes).absent()) << bytes;
}

TEST(NSPropertyListSerialization, truncatedAndDamagedBytesNeverCrash) {
    for (const auto& whole : {sampleXml, sampleBinary}) {
        for (std::size_t length = 0; length < whole.size(); ++length)
            read(std::string_view(whole).substr(0, length));
        std::mt19937 random(11);
        for (int round = 0; round < 20'000; ++round) {
            std::string damaged = whole;
            for (unsigned change = 0; change <= random() % 3; ++change)
                damaged[random() % damaged.size()] = static_cast<char>(random());
            read(damaged).description();
        }
    }
    EXPECT_TRUE(read(std::string_view(sampleBinary).substr(0, 100)).absent());
}

TEST(NSPropertyListSerialization, deepNestsAreAbsent) {
    const auto nested = [](int depth) {
        return xml(repeated("<array>", depth) + repeated("</array>", depth));
    };
    EXPECT_TRUE(read(nested(500)).isArray());
    EXPECT_TRUE(read(nested(1'000'000)).absent());
    // Closing tags in a comment close nothing.
    EXPECT_TRUE(read(xml(repeated("<array><!-- </array> -->", 500'000))).absent());
    EXPECT_TRUE(read(binaryChain(500, 1)).isArray());
    EXPECT_TRUE(read(binaryChain(200'000, 1)).absent());
}

TEST(NSPropertyListSerialization, referencesThatUnfoldWithoutEndAreAbsent) {
    EXPECT_TRUE(read(binaryChain(10, 2)).isArray());
    EXPECT_TRUE(read(binaryChain(100, 2)).absent());
    std::string cycle = binaryChain(1, 1);
    cycle[12] = 0;
    EXPECT_TRUE(read(cycle).absent());
}

TEST(NSPropertyListSerialization, writesXmlToTheByte) {
    const Value list = Dictionary{
        {"b", Array{1, -5, true, false, 'a', 0.1, 1.0f, 1.0 / 0.0, -1.0 / 0.0}},
        {"a<", "x & <y> \"'\n"},
        {"", Dictionary{{"empty", Array{Value(Array{}), Dictionary{}, ""}}}},
        {"c", Value::data(std::as_bytes(std::span("0123456789012345678901234567890123456789")))},
        {"B", NSDate::dateWithTimeIntervalSince1970(1483228800.9)},
        {"n", std::numeric_limits<double>::quiet_NaN()},
        {"u", std::numeric_limits<std::uint64_t>::max()},
        {"d", Value::data({})}};
    EXPECT_EQ(written(list, NSPropertyListFormat::XML), xml(R"(
<dict>
	<key></key>
	<dict>
		<key>empty</key>
		<array>
			<array/>
			<dict/>
			<string></string>
		</array>
	</dict>
	<key>B</key>
	<date>2017-01-01T00:00:00Z</date>
	<key>a&lt;</key>
	<string>x &amp; &lt;y&gt; "'
</string>
	<key>b</key>
	<array>
		<integer>1</integer>
		<integer>-5</integer>
		<true/>
		<false/>
		<integer>97</integer>
		<real>0.10000000000000001</real>
		<real>1</real>
		<real>+infinity</real>
		<real>-infinity</real>
	</array>
	<key>c</key>
	<data>
	MDEyMzQ1Njc4OTAxMjM0NTY3ODkwMTIzNDU2Nzg5MDEyMzQ1Njc4OQA=
	</data>
	<key>d</key>
	<data>
	</data>
	<key>n</key>
	<real>nan</real>
	<key>u</key>
	<integer>18446744073709551615</integer>
</dict>
)"));
}

TEST(NSPropertyListSerialization, xmlDataLinesAreAtMost76ColumnsWide) {
    Value list = Value::data(std::vector<std::byte>(500, std::byte{0xFF}));
    for (std::size_t indent = 0; indent < 12; ++indent, list = Array{list}) {
        const std::string text = written(list, NSPropertyListFormat::XML);
        const std::size_t start = text.find("<data>\n") + 7;
        const std::string line = text.substr(start, text.find('\n', start) - start);
        const std::size_t tabs = std::min<std::size_t>(indent, 8);
        EXPECT_EQ(line, std::string(tabs, '\t') + std::string(76 - 8 * tabs, '/')) << indent;
        EXPECT_EQ(read(text), list);
    }
}

TEST(NSPropertyListSerialization, whatIsWrittenReadsBackEqualAndOfTheSameKind) {
    using Limits = std::numeric_limits<std::int64_t>;
    Array list{true,
               false,
               0.1,
               1e300,
               -0.0,
               "",
               "中文 \U0001F600 é",
               "a\r\tb ]]>",
               Value::data({}),
               NSDate::distantFuture(),
               NSDate::distantPast(),
               Dictionary{{"CF$UID", 7}},
               Dictionary{{"CF$UID", -7}},
               Dictionary{{"CF$UID", "7"}},
               Dictionary{{"CF$UID", Limits::max()}},
               Dictionary{{"CF$UID", 1}, {"x", 2}},
               std::numeric_limits<std::uint64_t>::max(),
               std::uint64_t{1} << 63,
               Value(std::string(100'000, 'x')),
               sample()};
    for (int shift = 0; shift < 64; ++shift) {
        for (const std::int64_t step : {-1, 0, 1}) {
            list.add(static_cast<std::int64_t>((std::uint64_t{1} << shift) / 2) + step);
            list.add(-static_cast<std::int64_t>((std::uint64_t{1} << shift) / 2) - step);
        }
    }
    for (const auto format : bothFormats) {
        const Value back = read(written(list, format));
        ASSERT_TRUE(back.isArray());
        ASSERT_EQ(back.array().count(), list.count());
        for (std::size_t i = 0; i < list.count(); ++i) {
            EXPECT_EQ(back.array()[i], list[i]);
            EXPECT_EQ(back.array()[i].kind(), list[i].kind()) << list[i].description();
        }
    }
    EXPECT_EQ(read(written(1.5f, NSPropertyListFormat::Binary)).kind(), Value::Kind::Float);
    EXPECT_EQ(read(written("a\0b"s, NSPropertyListFormat::Binary)), "a\0b"s);
}

TEST(NSPropertyListSerialization, randomValuesReadBackEqual) {
    std::mt19937 random(7);
    const std::function<Value(int)> any = [&](int depth) -> Value {
        switch (random() % (depth == 0 ? 5 : 7)) {
            case 0:
                return static_cast<std::int64_t>(std::uint64_t{random()} << random() % 33);
            case 1:
                return static_cast<double>(random()) / 7;
            case 2:
                return repeated(random() % 2 == 0 ? "k" : "ü&", static_cast<int>(random() % 20));
            case 3:
                return Value::data(std::vector<std::byte>(random() % 40, std::byte{0x5A}));
            case 4:
                return NSDate::dateWithTimeIntervalSince1970(static_cast<double>(random()));
            case 5: {
                Array items;
                for (auto count = random() % 20; count > 0; --count)
                    items.add(any(depth - 1));
                return items;
            }
            default: {
                Dictionary entries;
                for (auto count = random() % 20; count > 0; --count)
                    entries.set("key" + std::to_string(random() % 300), any(depth - 1));
                return entries;
            }
        }
    };
    for (int round = 0; round < 200; ++round) {
        const Value list = any(4);
        for (const auto format : bothFormats)
            ASSERT_EQ(read(written(list, format)), list) << list.description();
    }
}

TEST(NSPropertyListSerialization, whatIsNotAllowedIsNotWritten) {
    Array cycle;
    Dictionary inner{{"up", cycle}};
    cycle.add(inner);
    for (const Value& bad :
         {Value(), Value::null(), Value(make<NSObject>()), Value("\xFF"), Value(cycle),
          Value(NSDate::dateWithTimeIntervalSince1970(std::nan("")))}) {
        for (const auto format : bothFormats) {
            EXPECT_EQ(written(bad, format), "");
            EXPECT_EQ(written(Array{1, bad.absent() ? Value::null() : bad}, format), "");
        }
    }
    for (const auto format : bothFormats)
        EXPECT_EQ(written(Dictionary{{"\xFF", 1}}, format), "");
    for (const Value& bad : {Value("a\0b"s), Value(Dictionary{{"a\0b"s, 1}}),
                             Value(NSDate::dateWithTimeIntervalSince1970(1e13))})
        EXPECT_EQ(written(bad, NSPropertyListFormat::XML), "");
    inner.removeAll();
}

TEST(NSPropertyListSerialization, writesExactlyTheDepthThatItReads) {
    for (const auto format : bothFormats) {
        Value list = "leaf";
        for (int depth = 0; depth < 512; ++depth)
            list = depth % 2 == 0 ? Value(Array{list}) : Value(Dictionary{{"k", list}});
        EXPECT_EQ(read(written(list, format)), list);
        EXPECT_EQ(written(Array{list}, format), "");
        // Known already, but too deep where it comes again.
        EXPECT_EQ(written(Array{list.dictionary()["k"], Array{list.dictionary()["k"]}}, format),
                  "");
        for (int depth = 0; depth < 1'000'000; ++depth)
            list = Array{list};
        EXPECT_EQ(written(list, format), "");
    }
}

TEST(NSPropertyListSerialization, binaryWritesSharedContainersAndTextsOnce) {
    Value list = "a text that is longer than a value";
    for (int level = 0; level < 100; ++level)
        list = Array{list, list};
    EXPECT_LT(written(list, NSPropertyListFormat::Binary).size(), 1000U);
    EXPECT_EQ(written(list, NSPropertyListFormat::XML), "");

    Dictionary row{{"name", "value of some length"}};
    Array rows;
    for (int i = 0; i < 10'000; ++i)
        rows.add(row.mutableCopy());
    EXPECT_LT(written(rows, NSPropertyListFormat::Binary).size(), 10'000U * 12);
    const Value back = read(written(Array{row, row}, NSPropertyListFormat::Binary));
    EXPECT_TRUE(back.array()[0].dictionary().identical(back.array()[1].dictionary()));
}

TEST(NSPropertyListSerialization, unreadableFilesAreAbsent) {
    const TemporaryFolder folder;
    const auto contents = [](const std::string& path) {
        return NSPropertyListSerialization::propertyListWithContentsOfFile(path);
    };
    EXPECT_EQ(contents(folder.write("a.plist", sampleXml)), sample());
    EXPECT_TRUE(contents(folder.path("missing.plist")).absent());
    EXPECT_TRUE(contents(folder.path()).absent());
}
