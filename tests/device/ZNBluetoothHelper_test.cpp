#include "zarnic/ZNBluetoothHelper.h"

#include <gmock/gmock.h>

#include "zarnic/testing/Stage.h"

namespace zn {
namespace {

std::vector<std::string> calls;

class Listener : public NSObject {
    ZN_OBJECT(Listener, NSObject)
public:
    explicit Listener(std::string name = {}) : name_(std::move(name)) {}
    void ZNBluetoothHelperDelegateStatus(bool status) {
        calls.push_back(name_ + (status ? " on" : " off"));
        if (whenTold)
            whenTold();
    }
    std::function<void()> whenTold;

private:
    std::string name_;
};

/// A class above it is found by its method too.
class Derived : public Listener {
    ZN_OBJECT(Derived, Listener)
public:
    using Listener::Listener;
};

}  // namespace

ZN_BLUETOOTH_OBSERVER(Listener);

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ZNBluetoothHelperTest : public testing::Test {
protected:
    void SetUp() override { calls.clear(); }
    std::vector<std::string> toldAfter(CBManagerState state) {
        stage.bluetooth().setState(state);
        stage.settle();
        return std::exchange(calls, {});
    }
    Stage stage;
};

TEST_F(ZNBluetoothHelperTest, theFirstStateComesAfterTheMaking) {
    stage.bluetooth().setState(CBManagerState::PoweredOn);
    ZNBluetoothHelper::InitBluetoothManager();
    EXPECT_FALSE(ZNBluetoothHelper::BluetoothStatus());
    EXPECT_TRUE(ZNBluetoothHelper::SharedInstance()->centralManager()->options().showPowerAlert);
    stage.settle();
    EXPECT_TRUE(ZNBluetoothHelper::BluetoothStatus());
    EXPECT_EQ(ZNBluetoothHelper::SharedInstance()->centralManager()->state(),
              CBManagerState::PoweredOn);
}

TEST_F(ZNBluetoothHelperTest, observersAreToldOfEachChangeInTheOrderOfAdding) {
    const auto first = make<Listener>("first");
    auto second = make<Derived>("second");
    const auto deaf = make<NSObject>();
    for (const Ref<NSObject>& each :
         std::vector<Ref<NSObject>>{first, deaf, second, first, nullptr})
        ZNBluetoothHelper::AddObserve(each);
    auto& observers = *ZNBluetoothHelper::SharedInstance()->observes();
    EXPECT_EQ(observers.count(), 3u);

    EXPECT_THAT(toldAfter(CBManagerState::PoweredOn), ElementsAre("first on", "second on"));
    EXPECT_THAT(toldAfter(CBManagerState::PoweredOn), IsEmpty());
    EXPECT_THAT(toldAfter(CBManagerState::Unauthorized), ElementsAre("first off", "second off"));

    second.reset();
    observers.addPointer(Value::null());
    EXPECT_EQ(observers.count(), 4u)
        << "an entry whose object is gone counts until the next change";
    EXPECT_THAT(toldAfter(CBManagerState::PoweredOn), ElementsAre("first on"));
    EXPECT_EQ(observers.count(), 2u) << "one without the method stays";

    ZNBluetoothHelper::RemoveObserve(first);
    ZNBluetoothHelper::RemoveObserve(nullptr);
    EXPECT_THAT(toldAfter(CBManagerState::PoweredOff), IsEmpty());
}

TEST_F(ZNBluetoothHelperTest, removingTakesEveryEntryAndObserversMayChangeTheListWhileToldOfIt) {
    const auto first = make<Listener>("first");
    const auto second = make<Listener>("second");
    const auto third = make<Listener>("third");
    auto& observers = *ZNBluetoothHelper::SharedInstance()->observes();
    for (const auto& each : {first, first, second, first})
        observers.addPointer(each);
    ZNBluetoothHelper::RemoveObserve(first);
    EXPECT_EQ(observers.count(), 1u);

    second->whenTold = [&] {
        second->whenTold = {};
        ZNBluetoothHelper::AddObserve(third);
    };
    EXPECT_THAT(toldAfter(CBManagerState::PoweredOn), ElementsAre("second on", "third on"));
}

}  // namespace
}  // namespace zn
