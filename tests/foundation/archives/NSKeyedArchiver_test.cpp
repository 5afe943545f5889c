#include "zarnic/platform/foundation/NSKeyedArchiver.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <limits>

#include "zarnic/platform/drawing/NSValue.h"
#include "zarnic/platform/foundation/NSDate.h"
#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/foundation/NSKeyedUnarchiver.h"
#include "zarnic/platform/foundation/NSPropertyListSerialization.h"

using namespace zn;

namespace {

class Node : public NSObject, public NSCoding {
    ZN_OBJECT(Node, NSObject)
public:
    void encodeWithCoder(const Ref<NSCoder>& coder) const override {
        coder->encodeObject(name, "name");
        coder->encodeObject(next, "$next");
        coder->encodeObject(owner.lock(), "owner");
    }
    void initWithCoder(const Ref<NSCoder>& coder) override {
        name = coder->decodeObjectForKey("name").stringValue();
        next = coder->decodeObjectForKey("$next");
        owner = coder->decodeObjectForKey("owner").object<Node>();
        sawOwner = coder->containsValueForKey("owner");
    }

    std::string name;
    Value next;
    WeakRef<Node> owner;
    bool sawOwner = false;
};
ZN_REGISTER_CLASS(Node);

/// Catches what its value throws, and must not hide it.
class Swallower : public NSObject, public NSCoding {
    ZN_OBJECT(Swallower, NSObject)
public:
    void encodeWithCoder(const Ref<NSCoder>& coder) const override {
        try {
            coder->encodeObject(make<NSObject>(), "object");
        } catch (const NSException&) {
            caught = true;
        }
    }
    void initWithCoder(const Ref<NSCoder>&) override {}
    mutable bool caught = false;
};

Value roundTrip(const Value& value) {
    return NSKeyedUnarchiver::unarchiveObjectWithData(
        NSKeyedArchiver::archivedDataWithRootObject(value).bytes());
}

std::string errorOf(const Value& list) {
    const Value data =
        NSPropertyListSerialization::dataWithPropertyList(list, NSPropertyListFormat::Binary);
    Ref<NSError> error;
    const Value read = NSKeyedUnarchiver::unarchiveTopLevelObjectWithData(data.bytes(), &error);
    EXPECT_TRUE(read.absent());
    return error ? error->userInfo()[NSDebugDescriptionErrorKey].stringValue() : "";
}

Value uid(int index) {
    return Dictionary{{"CF$UID", index}};
}

/// An archive whose root is the object at 1.
Value archive(const Array& objects) {
    Array all = objects.mutableCopy();
    all.insert(0, "$null");
    return Dictionary{{"$version", 100000},
                      {"$archiver", "NSKeyedArchiver"},
                      {"$top", Dictionary{{"root", uid(1)}}},
                      {"$objects", all}};
}

Value classNamed(const char* name) {
    return Dictionary{{"$classname", name}, {"$classes", Array{name}}};
}

}  // namespace

TEST(NSKeyedArchiver, plainValuesComeBackEqualAndOfTheirKind) {
    const std::string invalid = "a\xFF\0b";
    const Value values[] = {
        0,
        -1,
        std::numeric_limits<std::int64_t>::min(),
        std::numeric_limits<std::uint64_t>::max(),
        true,
        false,
        0.1,
        1.0,
        -std::numeric_limits<double>::infinity(),
        "",
        "$null",
        "naïve \U0001F600",
        std::string_view("a\0b", 3),
        std::string_view(invalid.data(), 4),
        Value::data({}),
        Value::data(std::as_bytes(std::span(invalid))),
        Value::null(),
        NSDate::dateWithTimeIntervalSince1970(0.1),
        NSDate::dateWithTimeIntervalSince1970(1.7e9 + 1e-6),
        NSDate::distantFuture(),
        NSValue::valueWithCGRect({1, 2, 3, 4.5}),
        Array{},
        Dictionary{},
        Array{1, "a", Value::null(), Array{Dictionary{{"", 1}, {"$class", 2}, {"CF$UID", 0}}}},
    };
    for (const Value& value : values) {
        const Value read = roundTrip(value);
        EXPECT_EQ(read, value) << value.description();
        EXPECT_EQ(read.kind(), value.kind()) << value.description();
    }
    EXPECT_TRUE(roundTrip({}).absent());
    EXPECT_FLOAT_EQ(roundTrip(0.1F).floatValue(), 0.1F);
}

TEST(NSKeyedArchiver, containersKeepTheirFormAndOrder) {
    Dictionary keys;
    for (int index = 20; index > 0; --index)
        keys.set("key" + std::to_string(index), index);
    EXPECT_EQ(roundTrip(keys).dictionary().allKeys(), keys.allKeys());
    const Value nested = roundTrip(Array{Array{1}.copy(), Array{2}, keys.copy(), keys});
    EXPECT_TRUE(nested.array().isMutable());
    EXPECT_FALSE(nested.array()[0].array().isMutable());
    EXPECT_TRUE(nested.array()[1].array().isMutable());
    EXPECT_FALSE(nested.array()[2].dictionary().isMutable());
    EXPECT_TRUE(nested.array()[3].dictionary().isMutable());
    EXPECT_FALSE(roundTrip(Array{}.copy()).array().isMutable());
}

TEST(NSKeyedArchiver, whatIsSharedStaysSharedAndWhatIsNotStaysApart) {
    const auto node = make<Node>();
    const Array inner{1};
    const Array twin{1};
    const Array read = roundTrip(Array{node, inner, node, inner, twin}).array();
    EXPECT_EQ(read[0].object(), read[2].object());
    EXPECT_TRUE(read[1].array().identical(read[3].array()));
    EXPECT_FALSE(read[1].array().identical(read[4].array()));
}

TEST(NSKeyedArchiver, circlesSurviveThroughObjectsAndImmutableContainers) {
    const auto parent = make<Node>();
    const auto child = make<Node>();
    parent->name = "parent";
    child->owner = parent;
    parent->next = Array{child, Dictionary{{"again", child}}.copy()}.copy();
    const auto read = roundTrip(parent).object<Node>();
    ASSERT_NE(read, nullptr);
    const Array children = read->next.array();
    EXPECT_FALSE(children.isMutable());
    EXPECT_EQ(children[0].object<Node>()->owner.lock(), read);
    EXPECT_EQ(children[1].dictionary()["again"].object(), children[0].object());

    Array itself;
    itself.add(itself);
    Array loop = roundTrip(itself).array();
    EXPECT_TRUE(loop[0].array().identical(loop));
    loop.removeAll();
    itself.removeAll();
}

TEST(NSKeyedArchiver, keysOfAnObjectAreItsOwnAndMayBeginWithADollar) {
    const auto outer = make<Node>();
    const auto inner = make<Node>();
    outer->name = "outer";
    inner->name = "inner";
    outer->next = inner;
    const auto read = roundTrip(outer).object<Node>();
    EXPECT_EQ(read->name, "outer");
    EXPECT_EQ(read->next.object<Node>()->name, "inner");
    EXPECT_TRUE(read->sawOwner) << "an absent value makes its key present";
}

TEST(NSKeyedArchiver, severalKeysMakeOneArchiveAndTheLaterValueCounts) {
    const auto archiver = make<NSKeyedArchiver>();
    const auto node = make<Node>();
    archiver->encodeObject(1, "a");
    archiver->encodeObject(2, "a");
    archiver->encodeObject(node, "b");
    archiver->encodeObject(node, "c");
    const Value data = archiver->encodedData();
    const auto unarchiver = make<NSKeyedUnarchiver>(data.bytes());
    EXPECT_EQ(unarchiver->decodeObjectForKey("a"), 2);
    EXPECT_EQ(unarchiver->decodeObjectForKey("b").object(),
              unarchiver->decodeObjectForKey("c").object());
    EXPECT_FALSE(unarchiver->containsValueForKey("d"));
    EXPECT_TRUE(unarchiver->decodeObjectForKey("d").absent());
}

TEST(NSKeyedArchiver, aChainOfAnyLengthTakesBoundedStack) {
    constexpr int length = 50'000;
    Value chain = "end";
    for (int index = 0; index < length; ++index) {
        const auto node = make<Node>();
        node->next = index % 2 == 0 ? Value(Array{chain}.copy()) : chain;
        chain = node;
    }
    Value read = roundTrip(chain);
    int found = 0;
    while (!read.isString()) {
        if (read.isArray())
            read = Value(read.array()[0]);
        else
            ++found, read = Value(read.object<Node>()->next);
    }
    EXPECT_EQ(found, length);
}

TEST(NSKeyedArchiver, whatCannotBeArchivedRaisesAndEndsTheArchive) {
    const auto expectRefused = [](const Value& value) {
        const auto archiver = make<NSKeyedArchiver>();
        EXPECT_THROW(archiver->encodeObject(value, "root"), NSException);
        EXPECT_THROW(archiver->encodeObject(1, "other"), NSException);
        EXPECT_THROW(archiver->encodedData(), NSException);
    };
    expectRefused(make<NSObject>());
    expectRefused(Array{make<Node>(), make<NSObject>()});
    expectRefused(make<Swallower>());
    EXPECT_THROW(make<NSKeyedArchiver>()->encodeObject(1, "\xFF"), NSException);
}

TEST(NSKeyedArchiver, aFileIsWrittenWholeAndReadBack) {
    const auto path =
        (std::filesystem::path(testing::TempDir()) / ("archive" + std::to_string(::getpid())))
            .string();
    EXPECT_TRUE(NSKeyedUnarchiver::unarchiveObjectWithFile(path).absent());
    EXPECT_TRUE(NSKeyedArchiver::archiveRootObject(Array{1}, path));
    EXPECT_EQ(NSKeyedUnarchiver::unarchiveObjectWithFile(path), Array{1});
    EXPECT_FALSE(NSKeyedArchiver::archiveRootObject(Array{1}, path + "/no/such"));
    std::filesystem::remove(path);
}

TEST(NSKeyedUnarchiver, hostileArchivesGiveAnErrorThatSaysWhatIsWrong) {
    const Value array = classNamed("NSArray");
    const Value dictionary = classNamed("NSDictionary");
    const auto with = [](const Value& first, const Value& second) {
        return archive(Array{first, second, "key"});
    };
    const auto object = [](std::initializer_list<std::pair<std::string_view, Value>> entries) {
        Dictionary form(entries);
        form.set("$class", uid(2));
        return form;
    };
    const std::pair<const char*, Value> cases[] = {
        {"no keyed archive", Array{}},
        {"no keyed archive", Dictionary{}},
        {"no keyed archive", Dictionary{{"$version", 100000}, {"$top", Dictionary{}}}},
        {"beyond the end", archive({})},
        {"no class Missing", with(object({}), classNamed("Missing"))},
        {"no class NSObject", with(object({}), classNamed("NSObject"))},
        {"no class NSError", with(object({}), classNamed("NSError"))},
        {"without a class", with(Dictionary{}, array)},
        {"without a class", with(Array{}, array)},
        {"without a class", with(object({}), "NSArray")},
        {"without a class", with(Dictionary{{"$class", uid(-1)}}, array)},
        {"without a name", with(object({}), Dictionary{{"$classname", 1}})},
        {"no array under", with(object({}), array)},
        {"no reference", with(object({{"NS.objects", Array{3}}}), array)},
        {"no reference", with(object({{"NS.objects", Array{Dictionary{}}}}), array)},
        {"beyond the end", with(object({{"NS.objects", Array{uid(9)}}}), array)},
        {"nothing in it", with(object({{"NS.objects", Array{uid(0)}}}), array)},
        {"no array under", with(object({{"NS.objects", Array{}}, {"NS.keys", "key"}}), dictionary)},
        {"more keys",
         with(object({{"NS.objects", Array{}}, {"NS.keys", Array{uid(3)}}}), dictionary)},
        {"no text",
         with(object({{"NS.objects", Array{uid(3)}}, {"NS.keys", Array{uid(1)}}}), dictionary)},
        {"without a time", with(object({{"NS.time", "now"}}), classNamed("NSDate"))},
        {"without content", with(object({{"NS.bytes", 1}}), classNamed("NSString"))},
        {"without content", with(object({}), classNamed("NSData"))},
        {"without numbers", with(object({}), classNamed("NSValue"))},
        {"no reference", with(object({{"name", "direct"}}), classNamed("Node"))},
    };
    for (const auto& [reason, list] : cases) {
        const std::string error = errorOf(list);
        EXPECT_NE(error.find(reason), std::string::npos)
            << error << " instead of " << reason << " for " << list.description();
    }
}

TEST(NSKeyedUnarchiver, everyTruncationOfAnArchiveIsAnErrorOrWhole) {
    const auto node = make<Node>();
    node->next = Array{node, NSDate::distantPast(), Dictionary{{"k", 1.5}}};
    const Value data = NSKeyedArchiver::archivedDataWithRootObject(node);
    node->next = {};
    for (std::size_t length = 0; length < data.bytes().size(); ++length) {
        Ref<NSError> error;
        NSKeyedUnarchiver::unarchiveTopLevelObjectWithData(data.bytes().first(length), &error);
        ASSERT_NE(error, nullptr) << length;
        EXPECT_EQ(error->code(), 4864);
    }
}

TEST(NSKeyedUnarchiver, aBombOfSharedArraysStaysSmall) {
    constexpr int levels = 500;
    Array objects;
    for (int level = 1; level <= levels; ++level)
        objects.add(Dictionary{{"$class", uid(levels + 2)},
                               {"NS.objects", Array{uid(level + 1), uid(level + 1)}}});
    objects.add("end");
    objects.add(classNamed("NSArray"));
    const Value data = NSPropertyListSerialization::dataWithPropertyList(
        archive(objects), NSPropertyListFormat::Binary);
    Value read = NSKeyedUnarchiver::unarchiveObjectWithData(data.bytes());
    for (int level = 0; level < levels; ++level)
        read = Value(read.array()[1]);
    EXPECT_EQ(read, "end");
}

TEST(NSKeyedUnarchiver, anErrorEndsTheArchiveButNotWhatWasReadBefore) {
    const Value list = Dictionary{
        {"$version", 100000},
        {"$top", Dictionary{{"good", uid(1)}, {"bad", uid(2)}}},
        {"$objects", Array{"$null", Dictionary{{"$class", uid(3)}, {"NS.objects", Array{uid(4)}}},
                           Dictionary{{"$class", uid(3)}, {"NS.objects", Array{uid(2), uid(9)}}},
                           classNamed("NSMutableArray"), "x"}}};
    const Value data =
        NSPropertyListSerialization::dataWithPropertyList(list, NSPropertyListFormat::Binary);
    const auto unarchiver = make<NSKeyedUnarchiver>(data.bytes());
    const Value good = unarchiver->decodeObjectForKey("good");
    EXPECT_THROW(unarchiver->decodeObjectForKey("bad"), NSException);
    EXPECT_EQ(good, Array{"x"});
    EXPECT_THROW(unarchiver->decodeObjectForKey("good"), NSException);
}
