#include <gmock/gmock.h>

#include "zarnic/NSObject+ZNCategory.h"
#include "zarnic/platform/foundation/NSDate.h"
#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/foundation/Property.h"

using namespace zn;

namespace {

class Address : public NSObject {
    ZN_MODEL(Address, NSObject, ZN_PROPERTY(street), ZN_PROPERTY(number))
public:
    std::string street;
    int number = 0;
};

class Account : public NSObject {
    ZN_MODEL(Account, NSObject, ZN_PROPERTY(userName), ZN_PROPERTY(address), ZN_PROPERTY(items),
             ZN_PROPERTY(fixed), ZN_PROPERTY(changing).as("NSMutableDictionary"),
             ZN_PROPERTY(anything), ZN_PROPERTY(balance), ZN_PROPERTY(when), ZN_PROPERTY(missing),
             ZN_READONLY(summary, summary), ZN_FIELD(hidden))
public:
    std::string userName = "nobody";
    Ref<Address> address;
    Array items;
    Dictionary fixed;
    Dictionary changing;
    Value anything;
    float balance = 0;
    Ref<NSDate> when;
    Ref<Account> missing;
    int hidden = 3;

    std::string summary() const { return userName + "!"; }
};

class Admin : public Account {
    ZN_MODEL(Admin, Account, ZN_PROPERTY(LEVEL))
public:
    int LEVEL = 0;
};

std::string thrownName(const std::function<void()>& call) {
    try {
        call();
    } catch (const NSException& exception) {
        return exception.name();
    }
    return "";
}

}  // namespace

TEST(ZNCheckNull, nullsAndEmptyDataBecomeEmptyTextsAtEveryDepth) {
    Array list{Value::null(), 0, Array{Value::null()}, Value::data({})};
    const Dictionary given{
        {"null", Value::null()},
        {"data", Value::data({})},
        {"zero", 0},
        {"list", list},
        {"empty", ""},
        {"no", Array{}},
        {"inner", Dictionary{{"n", Value::null()}}},
    };
    const Value cleaned = zn_checkNull(given);
    EXPECT_EQ(cleaned, (Dictionary{{"null", ""},
                                   {"data", ""},
                                   {"zero", 0},
                                   {"list", Array{"", 0, Array{""}, ""}},
                                   {"empty", ""},
                                   {"no", Array{}},
                                   {"inner", Dictionary{{"n", ""}}}}));
    EXPECT_EQ(cleaned.dictionary().allKeys(), given.allKeys());
    EXPECT_FALSE(cleaned.dictionary().isMutable());
    EXPECT_FALSE(cleaned.dictionary()["list"].array().isMutable());
    EXPECT_FALSE(cleaned.dictionary()["inner"].dictionary().isMutable());
    EXPECT_TRUE(list[0].isNull()) << "the receiver stays as it is";
}

TEST(ZNCheckNull, otherReceiversComeBackThemselves) {
    for (const Value& value : {Value(), Value::null(), Value(""), Value(1), Value(make<Address>())})
        EXPECT_EQ(zn_checkNull(value), value);
}

TEST(ZNGetLowcaseKeyDictionary, onlyTheTopLevelAndTheLastOfEqualKeysWins) {
    const Value lower = ZN_GetLowcaseKeyDictionary(Dictionary{
        {"NAME", 1}, {"Ünï", 2}, {"İ", 3}, {"name", 4}, {"Inner", Dictionary{{"KEY", 5}}}}
                                                       .copy());
    EXPECT_EQ(lower,
              (Dictionary{{"name", 4}, {"ünï", 2}, {"i̇", 3}, {"inner", Dictionary{{"KEY", 5}}}}));
    EXPECT_TRUE(lower.dictionary().isMutable());
    for (const Value& value : {Value(), Value::null(), Value("x"), Value(Array{})})
        EXPECT_TRUE(ZN_GetLowcaseKeyDictionary(value).absent());
}

TEST(ZNDictionaryToObject, keysMatchWithoutCaseAndInheritedPropertiesAreFilled) {
    const auto admin = ZN_DictionaryToObject<Admin>(
        Dictionary{{"USERNAME", "Ada"},
                   {"level", "4"},
                   {"BALANCE", 2.5},
                   {"hidden", 9},
                   {"unknown", 1},
                   {"when", NSDate::dateWithTimeIntervalSince1970(1)}});
    ASSERT_NE(admin, nullptr);
    EXPECT_EQ(admin->userName, "Ada");
    EXPECT_EQ(admin->LEVEL, 4);
    EXPECT_EQ(admin->balance, 2.5F);
    EXPECT_EQ(admin->hidden, 3) << "no property";
    EXPECT_EQ(admin->when->timeIntervalSince1970(), 1);
}

TEST(ZNDictionaryToObject, nullLeavesThePropertyAloneAndTheLastOfEqualKeysCounts) {
    const auto filled = [](const Dictionary& dictionary) {
        return ZN_DictionaryToObject<Account>(dictionary)->userName;
    };
    EXPECT_EQ(filled({{"userName", Value::null()}}), "nobody");
    EXPECT_EQ(filled({{"username", "a"}, {"UserName", "b"}}), "b");
    EXPECT_EQ(filled({{"username", "a"}, {"UserName", Value::null()}}), "nobody");
}

TEST(ZNDictionaryToObject, dictionariesBecomeModelsOfTheDeclaredClassOrStay) {
    const Dictionary inner{{"Street", "Main"}, {"NUMBER", "12"}};
    const auto account = ZN_DictionaryToObject<Account>(
        Dictionary{{"address", inner}, {"fixed", inner}, {"changing", inner.copy()}});
    ASSERT_NE(account->address, nullptr);
    EXPECT_EQ(account->address->street, "Main");
    EXPECT_EQ(account->address->number, 12);
    EXPECT_EQ(Value(account->fixed), inner) << "keys as they were given";
    EXPECT_FALSE(account->fixed.isMutable());
    EXPECT_TRUE(account->changing.isMutable());
}

TEST(ZNDictionaryToObject, dictionariesInArraysBecomeModelsOfTheOuterClass) {
    const Dictionary inner{{"userName", "inner"}};
    const auto account = ZN_DictionaryToObject<Account>(
        Dictionary{{"items", Array{inner, Value::null(), 1, Array{inner}}}});
    ASSERT_EQ(account->items.count(), 3);
    EXPECT_EQ(account->items[0].object<Account>()->userName, "inner");
    EXPECT_EQ(account->items[1], 1);
    EXPECT_EQ(account->items[2], (Array{inner})) << "arrays in arrays stay as they are";
    EXPECT_TRUE(account->items.isMutable());
}

TEST(ZNDictionaryToObject, anObjectInPlaceOfTheNameIsFilledItselfAgainAndAgain) {
    const auto account = make<Account>();
    const auto result = ZN_DictionaryToObject(
        Dictionary{{"items", Array{Dictionary{{"userName", "a"}}, Dictionary{{"userName", "b"}}}}},
        account);
    EXPECT_EQ(result, account);
    EXPECT_EQ(account->userName, "b");
    ASSERT_EQ(account->items.count(), 2);
    EXPECT_EQ(account->items[0].object(), account);
    EXPECT_EQ(account->items[1].object(), account);
    EXPECT_EQ(thrownName([&] { zn_ObjectToDictionary(account); }), "NSInvalidArgumentException");
    account->items.removeAll();
}

TEST(ZNDictionaryToObject, whatMakesNoObjectGivesNothing) {
    EXPECT_EQ(ZN_DictionaryToObject(Array{}, "Account"), nullptr);
    EXPECT_EQ(ZN_DictionaryToObject({}, "Account"), nullptr);
    EXPECT_EQ(ZN_DictionaryToObject(Dictionary{{"a", 1}}, "NoSuchClass"), nullptr);
    EXPECT_EQ(ZN_DictionaryToObject(Dictionary{{"a", 1}}, {}), nullptr);
    EXPECT_EQ(ZN_DictionaryToObject(Dictionary{{"a", 1}}, 7), nullptr);
}

TEST(ZNDictionaryToObject, whatAPropertyCannotTakeRaises) {
    const auto fill = [](const char* key, const Value& value) {
        return thrownName([&] { ZN_DictionaryToObject<Account>(Dictionary{{key, value}}); });
    };
    EXPECT_EQ(fill("balance", Dictionary{}), "NSRangeException");
    EXPECT_EQ(fill("anything", Dictionary{}), "NSRangeException");
    EXPECT_EQ(fill("balance", Array{}), "NSInvalidArgumentException");
    EXPECT_EQ(fill("address", "Main Street"), "NSInvalidArgumentException");
    EXPECT_EQ(fill("summary", "x"), "NSUnknownKeyException");
    EXPECT_EQ(fill("when", Dictionary{}), "") << "dates cannot be made: nothing is set";
}

TEST(ZNObjectToDictionary, theOwnPropertiesOnlyWithNullForWhatIsAbsent) {
    const auto account = make<Account>();
    account->address = make<Address>();
    account->address->number = 5;
    account->fixed = {{"k", 1}};
    account->when = NSDate::dateWithTimeIntervalSince1970(1);
    const Value dictionary = zn_ObjectToDictionary(account);
    EXPECT_EQ(dictionary, (Dictionary{{"userName", "nobody"},
                                      {"address", Dictionary{{"street", ""}, {"number", 5}}},
                                      {"items", Array{}},
                                      {"fixed", Dictionary{{"k", 1}}},
                                      {"changing", Dictionary{}},
                                      {"anything", Value::null()},
                                      {"balance", 0.0},
                                      {"when", Dictionary{}},
                                      {"missing", Value::null()},
                                      {"summary", "nobody!"}}));
    EXPECT_FALSE(dictionary.dictionary().isMutable());
    EXPECT_EQ(dictionary.dictionary().allKeys().front(), "userName") << "in declaration order";
    EXPECT_EQ(zn_ObjectToDictionary(make<Admin>()), (Dictionary{{"LEVEL", 0}}));
}

TEST(ZNObjectToDictionary, anArrayKeepsOnlyElementsOfTheReceiversClass) {
    const auto account = make<Account>();
    account->items = {"text", 1, Dictionary{}, make<Address>(), make<Account>(), make<Admin>()};
    const Array items = zn_ObjectToDictionary(account).dictionary()["items"].array();
    ASSERT_EQ(items.count(), 2);
    EXPECT_EQ(items[0].dictionary()["userName"], "nobody");
    EXPECT_EQ(items[1], (Dictionary{{"LEVEL", 0}}));
    account->items = {"a", "b"};
    EXPECT_EQ(zn_ObjectToDictionary(account).dictionary()["items"], Array{});
}

TEST(ZNObjectToDictionary, receiversThatDeclareNothingGiveAnEmptyDictionary) {
    EXPECT_TRUE(zn_ObjectToDictionary({}).absent());
    for (const Value& value : {Value("x"), Value(1), Value::null(), Value(Array{1}),
                               Value(make<NSObject>()), Value(NSDate::distantPast())})
        EXPECT_EQ(zn_ObjectToDictionary(value), Dictionary{});
}

TEST(ZNConversions, nestsWithoutEndRaiseRatherThanOverflowTheStack) {
    Array loop;
    loop.add(loop);
    EXPECT_EQ(thrownName([&] { zn_checkNull(loop); }), "NSInvalidArgumentException");
    loop.removeAll();
    Dictionary endless;
    endless.set("missing", endless);
    EXPECT_EQ(thrownName([&] { ZN_DictionaryToObject<Account>(endless); }),
              "NSInvalidArgumentException");
    endless.removeAll();
    const auto account = make<Account>();
    account->missing = account;
    EXPECT_EQ(thrownName([&] { zn_ObjectToDictionary(account); }), "NSInvalidArgumentException");
    account->missing = nullptr;
    EXPECT_EQ(zn_checkNull(Array{Value::null()}), Array{""}) << "and the depth is counted back";
}
