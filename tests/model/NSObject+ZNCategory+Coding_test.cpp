#include <gmock/gmock.h>

#include "zarnic/NSObject+ZNCategory.h"
#include "zarnic/platform/drawing/NSValue.h"
#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/foundation/NSKeyedArchiver.h"
#include "zarnic/platform/foundation/NSKeyedUnarchiver.h"
#include "zarnic/platform/foundation/Property.h"

using namespace zn;

namespace {

class Shape : public NSObject, public NSCoding {
    ZN_MODEL(Shape, NSObject, ZN_PROPERTY(name), ZN_PROPERTY(tags), ZN_FIELD(drawn))
public:
    void encodeWithCoder(const Ref<NSCoder>& coder) const override { zn_encode(ref(this), coder); }
    void initWithCoder(const Ref<NSCoder>& coder) override { zn_decode(ref(this), coder); }

    std::string name = "shape";
    Array tags;
    bool drawn = false;
};

class Circle : public Shape {
    ZN_MODEL(Circle, Shape, ZN_PROPERTY(radius), ZN_PROPERTY(title), ZN_PROPERTY(note),
             ZN_PROPERTY(frame), ZN_PROPERTY(parent), ZN_PROPERTY(inner), ZN_PROPERTY(cache))
public:
    std::vector<std::string> zn_ignoredNames() const override { return {"_cache", "cache", "x"}; }

    double radius = 1;
    std::optional<std::string> title = "untitled";
    Value note;
    Rect frame;
    WeakRef<Circle> parent;
    Ref<Circle> inner;
    int cache = 7;
};

/// Writes down what is asked of it.
class Recorder : public NSCoder {
    ZN_OBJECT(Recorder, NSCoder)
public:
    void encodeObject(const Value& value, std::string_view key) override {
        calls.emplace_back(key);
        values.set(key, value);
    }
    Value decodeObjectForKey(std::string_view key) override {
        calls.emplace_back(key);
        return values[key];
    }
    bool containsValueForKey(std::string_view key) const override { return values.contains(key); }

    std::vector<std::string> calls;
    Dictionary values;
};

template <class T>
Ref<T> roundTrip(const Ref<T>& object) {
    return NSKeyedUnarchiver::unarchiveObjectWithData(
               NSKeyedArchiver::archivedDataWithRootObject(object).bytes())
        .template object<T>();
}

}  // namespace

TEST(NSObjectCoding, encodingWritesTheOwnFieldsOncePerClassAndNoInheritedOnes) {
    const auto coder = make<Recorder>();
    zn_encode(make<Circle>(), coder);
    EXPECT_THAT(coder->calls,
                testing::ElementsAre("_radius", "_title", "_frame", "_radius", "_title", "_frame"));
    const auto base = make<Recorder>();
    zn_encode(make<Shape>(), base);
    EXPECT_THAT(base->calls, testing::ElementsAre("_name", "_tags", "drawn"));
}

TEST(NSObjectCoding, decodingAsksForInheritedFieldsTooAndKeepsWhatIsNotThere) {
    const auto coder = make<Recorder>();
    coder->values = {
        {"_radius", "2.5"}, {"_name", "circle"}, {"_title", Value::null()}, {"_cache", 9}};
    const auto circle = make<Circle>();
    zn_decode(circle, coder);
    EXPECT_THAT(coder->calls, testing::ElementsAre("_radius", "_title", "_note", "_frame",
                                                   "_parent", "_inner", "_name", "_tags", "drawn"));
    EXPECT_EQ(circle->radius, 2.5);
    EXPECT_EQ(circle->name, "circle");
    EXPECT_EQ(circle->title, "untitled");
    EXPECT_EQ(circle->cache, 7);
}

TEST(NSObjectCoding, anArchiveLosesInheritedFieldsOnPurpose) {
    const auto circle = make<Circle>();
    circle->name = "lost";
    circle->drawn = true;
    circle->radius = 0;
    circle->frame = {1, 2, 3, 4};
    circle->note = Array{1, Value::null()};
    circle->cache = 1;
    circle->inner = make<Circle>();
    circle->inner->title.reset();
    circle->inner->parent = circle;
    const auto read = roundTrip(circle);
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->name, "shape");
    EXPECT_FALSE(read->drawn);
    EXPECT_EQ(read->radius, 0) << "a number of 0 is there";
    EXPECT_EQ(read->frame, circle->frame);
    EXPECT_EQ(read->note, circle->note);
    EXPECT_EQ(read->cache, 7) << "ignored";
    EXPECT_EQ(read->inner->title, "untitled") << "what is absent keeps the initial value";
    EXPECT_EQ(read->inner->parent.lock(), read);
}

TEST(NSObjectCoding, anArchiveWithAValueOfTheWrongTypeIsAnError) {
    const auto archiver = make<NSKeyedArchiver>();
    const auto circle = make<Circle>();
    circle->note = "x";
    archiver->encodeObject(circle, "root");
    const Value data = archiver->encodedData();
    std::string bytes(reinterpret_cast<const char*>(data.bytes().data()), data.bytes().size());
    // The text of `_note` under a name whose field takes arrays only.
    bytes.replace(bytes.find("_note"), 5, "_tags");
    Ref<NSError> error;
    EXPECT_TRUE(
        NSKeyedUnarchiver::unarchiveTopLevelObjectWithData(std::as_bytes(std::span(bytes)), &error)
            .absent());
    ASSERT_NE(error, nullptr);
    EXPECT_NE(error->description().find("Circle._tags of type @\"NSArray\" cannot hold x"),
              std::string::npos)
        << error->description();
}

TEST(NSObjectCoding, aCopyIsShallowAndCoversInheritedFields) {
    const auto circle = make<Circle>();
    circle->name = "copied";
    circle->tags = {1, 2, 3};
    circle->title.reset();
    circle->cache = 1;
    circle->inner = make<Circle>();
    const Ref<Circle> copy = zn_copyWithZone(circle);
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->name, "copied");
    EXPECT_TRUE(copy->tags.identical(circle->tags));
    EXPECT_EQ(copy->inner, circle->inner);
    EXPECT_EQ(copy->title, "untitled") << "what is absent keeps the initial value";
    EXPECT_EQ(copy->cache, 7) << "ignored";
}

TEST(NSObjectCoding, theRootClassHasNothingToWalk) {
    const auto coder = make<Recorder>();
    const auto plain = make<NSObject>();
    zn_encode(plain, coder);
    zn_decode(plain, coder);
    EXPECT_TRUE(coder->calls.empty());
    const auto copy = zn_copyWithZone(plain);
    EXPECT_NE(copy, nullptr);
    EXPECT_NE(copy, plain);
}

TEST(NSObjectCoding, absentReceiversAndCodersDoNothing) {
    zn_encode(nullptr, make<Recorder>());
    zn_encode(make<Circle>(), nullptr);
    zn_decode(nullptr, make<Recorder>());
    zn_decode(make<Circle>(), nullptr);
    EXPECT_EQ(zn_copyWithZone(Ref<Circle>()), nullptr);
    EXPECT_EQ(zn_GetRetainCount(Ref<Circle>()), 0);
}

TEST(NSObjectCoding, theRetainCountIsThatOfTheOwners) {
    const auto circle = make<Circle>();
    EXPECT_EQ(zn_GetRetainCount(circle), 1);
    const auto other = circle;
    EXPECT_EQ(zn_GetRetainCount(circle), 2);
}
