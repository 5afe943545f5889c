#include "zarnic/platform/foundation/Property.h"

#include <gmock/gmock.h>

#include "zarnic/platform/foundation/NSDate.h"
#include "zarnic/platform/foundation/NSException.h"

using namespace zn;

namespace {

enum class Mood : std::int16_t { Good = 1, Bad };

class Employee;

class Person : public NSObject {
    ZN_MODEL(Person, NSObject, ZN_FIELD(visits), ZN_PROPERTY(name), ZN_PROPERTY(age),
             ZN_PROPERTY(mood), ZN_PROPERTY(employer), ZN_PROPERTY(born), ZN_PROPERTY(friends),
             ZN_PROPERTY(options).as("NSMutableDictionary"), ZN_PROPERTY(anything),
             ZN_PROPERTY(photo), ZN_PROPERTY(nickname), ZN_PROPERTY(height),
             ZN_PROPERTY_IN(title, title_).through<Self, &Self::title, &Self::setTitle>(),
             ZN_ACCESSORS(initials, initials, setInitials), ZN_READONLY(greeting, greeting))
public:
    std::string name;
    std::uint8_t age = 0;
    Mood mood = Mood::Good;
    WeakRef<Employee> employer;
    Ref<NSDate> born;
    Array friends;
    Dictionary options;
    Value anything;
    std::vector<std::byte> photo;
    std::optional<std::string> nickname;
    std::optional<double> height;

    const std::string& title() const { return title_; }
    void setTitle(std::string_view title) { title_ = "The " + std::string(title); }
    std::string initials() const { return name.substr(0, 1); }
    void setInitials(std::string_view initials) { name = initials; }
    std::string greeting() const { return "Hello " + name; }

private:
    std::int64_t visits = 0;
    std::string title_;
};

class Employee : public Person {
    ZN_MODEL(Employee, Person, ZN_PROPERTY(isRetired), ZN_PROPERTY(boss))
public:
    bool isRetired = false;
    Ref<Person> boss;
};

/// Publishes nothing of its own.
class Guest : public Employee {
    ZN_OBJECT(Guest, Employee)
public:
    Value valueForUndefinedKey(std::string_view key) const override { return key; }
    void setValueForUndefinedKey(const Value& value, std::string_view key) override {
        name = std::string(key) + "=" + value.stringValue();
    }
};

template <class Call>
std::string thrownName(const Call& call) {
    try {
        call();
    } catch (const NSException& exception) {
        return exception.name();
    }
    return "";
}

}  // namespace

TEST(Property, attributesAreInThePlatformsEncoding) {
    std::vector<std::string> attributes;
    for (const Property& property : Person::staticClass().properties())
        attributes.push_back(property.attributes());
    EXPECT_THAT(attributes,
                testing::ElementsAre(
                    R"(T@"NSString",C,N,V_name)", "TC,N,V_age", "Ts,N,V_mood",
                    R"(T@"Employee",W,N,V_employer)", R"(T@"NSDate",&,N,V_born)",
                    R"(T@"NSArray",&,N,V_friends)", R"(T@"NSMutableDictionary",&,N,V_options)",
                    "T@,&,N,V_anything", R"(T@"NSData",C,N,V_photo)",
                    R"(T@"NSString",C,N,V_nickname)", R"(T@"NSNumber",&,N,V_height)",
                    R"(T@"NSString",C,N,V_title)", R"(T@"NSString",C,N)", R"(T@"NSString",R,C,N)"));
    EXPECT_EQ(Person::staticClass().property("born")->declaredClassName(), "NSDate");
    EXPECT_EQ(Person::staticClass().property("anything")->declaredClassName(), std::nullopt);
    EXPECT_EQ(Person::staticClass().property("age")->declaredClassName(), std::nullopt);
}

TEST(Property, fieldsAreAClasssOwnInDeclarationOrder) {
    std::vector<std::string> names;
    for (const Field& field : Person::staticClass().fields())
        names.push_back(field.name());
    EXPECT_THAT(names, testing::ElementsAre("visits", "_name", "_age", "_mood", "_employer",
                                            "_born", "_friends", "_options", "_anything", "_photo",
                                            "_nickname", "_height", "_title"));
    EXPECT_EQ(Employee::staticClass().fields().size(), 2);
    EXPECT_TRUE(Guest::staticClass().fields().empty());
    EXPECT_EQ(Guest::staticClass().superclass(), &Employee::staticClass());
}

TEST(Property, aModelClassIsFoundByNameBeforeItsFirstUse) {
    const Class* found = Class::named("Employee");
    ASSERT_NE(found, nullptr);
    EXPECT_NE(as<Employee>(found->create()), nullptr);
    EXPECT_EQ(Class::named("Employe"), nullptr);
}

namespace first {
class Twin : public NSObject {
    ZN_MODEL(Twin, NSObject, ZN_PROPERTY(number))
public:
    int number = 1;
};
}  // namespace first
namespace second {
class Twin : public NSObject {
    ZN_MODEL(Twin, NSObject, ZN_PROPERTY(text))
public:
    std::string text = "two";
};
}  // namespace second

TEST(Property, twoClassesOfOneNameKeepTheirOwnMembers) {
    EXPECT_EQ(Class::named("Twin"), &first::Twin::staticClass());
    EXPECT_EQ(make<first::Twin>()->valueForKey("number"), 1);
    EXPECT_EQ(make<second::Twin>()->valueForKey("text"), "two");
}

TEST(KeyValueCoding, keysFindPropertiesThenFieldsUpTheClasses) {
    const auto guest = make<Guest>();
    guest->setValueForKey("Ada", "name");
    guest->setValueForKey(3, "visits");
    guest->setValueForKey(true, "isRetired");
    EXPECT_EQ(guest->valueForKey("_name"), "Ada");
    EXPECT_EQ(guest->valueForKey("visits"), 3);
    EXPECT_EQ(guest->valueForKey("greeting"), "Hello Ada");
    EXPECT_EQ(guest->valueForKey("retired"), true) << "as isRetired";
    EXPECT_EQ(guest->valueForKey("nothing"), "nothing");
    guest->setValueForKey(1, "nothing");
    EXPECT_EQ(guest->name, "nothing=1");
}

TEST(KeyValueCoding, accessorsAreCalledAndFieldsAreReachedDirectly) {
    const auto person = make<Person>();
    person->setValueForKey("Boss", "title");
    EXPECT_EQ(person->title(), "The Boss");
    person->setValueForKey("Boss", "_title");
    EXPECT_EQ(person->title(), "Boss");
    person->setValueForKey("X", "initials");
    EXPECT_EQ(person->name, "X");
}

TEST(KeyValueCoding, whatNamesNothingOrCannotBeWrittenRaises) {
    const auto person = make<Person>();
    for (const char* key : {"Name", "nam", "", "_", "is", "greeting"})
        EXPECT_EQ(thrownName([&] { person->setValueForKey("x", key); }), "NSUnknownKeyException")
            << key;
    for (const char* key : {"Name", "", "__name", "getname", "is", "Visits"})
        EXPECT_EQ(thrownName([&] { person->valueForKey(key); }), "NSUnknownKeyException") << key;
}

TEST(KeyValueCoding, valuesBecomeTheTypeOfTheTarget) {
    const auto person = make<Person>();
    const auto text = Value::data(std::as_bytes(std::span("ab", 2)));
    struct Case {
        const char* key;
        Value given;
        Value read;
    };
    const Array array{1, 2};
    const Case cases[] = {
        {"age", 300, 44},
        {"age", "41 years", 41},
        {"age", 7.9, 7},
        {"mood", 2, 2},
        {"name", 12.5, "12.5"},
        {"name", Value::null(), ""},
        {"name", {}, ""},
        {"nickname", "Al", "Al"},
        {"nickname", Value::null(), {}},
        {"height", "1.5", 1.5},
        {"height", {}, {}},
        {"friends", array, array},
        {"friends", {}, Array{}},
        {"anything", Value::null(), Value::null()},
        {"anything", {}, {}},
        {"photo", text, text},
        {"born", Value(NSDate::dateWithTimeIntervalSince1970(5)),
         Value(NSDate::dateWithTimeIntervalSince1970(5))},
        {"born", Value::null(), {}},
    };
    for (const auto& [key, given, read] : cases) {
        person->setValueForKey(given, key);
        EXPECT_EQ(person->valueForKey(key), read) << key << " given " << given.description();
    }
}

TEST(KeyValueCoding, containersAndObjectsAreShared) {
    const auto employee = make<Employee>();
    const Array array{1};
    employee->setValueForKey(array, "friends");
    employee->setValueForKey(employee, "employer");
    EXPECT_TRUE(employee->valueForKey("friends").array().identical(array));
    EXPECT_EQ(employee->valueForKey("employer").object(), employee);
}

TEST(KeyValueCoding, aValueThatTheTargetCannotTakeRaisesAndChangesNothing) {
    const auto employee = make<Employee>();
    employee->age = 3;
    employee->name = "Ada";
    employee->boss = employee;
    const std::pair<const char*, Value> cases[] = {
        {"age", {}},
        {"age", Value::null()},
        {"age", Array{}},
        {"mood", {}},
        {"name", Array{}},
        {"nickname", Dictionary{}},
        {"friends", "x"},
        {"options", Array{}},
        {"photo", "x"},
        {"boss", "x"},
        {"boss", make<NSObject>()},
        {"employer", make<Person>()},
        {"height", Value(employee)},
        {"isRetired", Value::null()},
    };
    for (const auto& [key, value] : cases)
        EXPECT_EQ(thrownName([&] { employee->setValueForKey(value, key); }),
                  "NSInvalidArgumentException")
            << key << " given " << value.description();
    EXPECT_EQ(employee->age, 3);
    EXPECT_EQ(employee->name, "Ada");
    EXPECT_EQ(employee->boss, employee);
    employee->boss = nullptr;
}
