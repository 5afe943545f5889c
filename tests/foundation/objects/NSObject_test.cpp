#include "zarnic/platform/foundation/NSObject.h"

#include <gtest/gtest.h>

#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/foundation/Value.h"

using namespace zn;

namespace {

class Link : public NSObject {
    ZN_OBJECT(Link, NSObject)
public:
    explicit Link(int& deaths) : deaths_(deaths) {}
    ~Link() override { ++deaths_; }

    Value next;

private:
    int& deaths_;
};

}  // namespace

TEST(NSObject, aLongChainOfObjectsAndContainersDiesInBoundedStack) {
    constexpr int length = 300'000;
    int deaths = 0;
    WeakRef<Link> first;
    {
        Value chain;
        for (int index = 0; index < length; ++index) {
            const auto link = make<Link>(deaths);
            if (!chain.absent())
                link->next = index % 3 == 0 ? Value(Array{chain}) : chain;
            chain = link;
            if (index == 0)
                first = link;
        }
        EXPECT_EQ(deaths, 0);
    }
    EXPECT_EQ(deaths, length);
    EXPECT_TRUE(first.expired());
}
