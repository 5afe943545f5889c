#include "zarnic/testing/FakeHttpTransport.h"

#include <gmock/gmock.h>

#include <optional>

#include "zarnic/platform/services/Services.h"
#include "zarnic/testing/Stage.h"

using namespace zn;
using testing::ElementsAre;

namespace {

class FakeHttpTransportTest : public testing::Test {
protected:
    /// What a thread gets, once it has; a request waits 10 seconds at most.
    std::shared_ptr<std::optional<Value>> begin(const std::string& url) {
        auto result = std::make_shared<std::optional<Value>>();
        dispatchGlobal([result, url] {
            const Value value = Services::get<HttpTransport>()->get({url, 10});
            dispatchMain([result, value] { *result = value; });
        });
        stage.settle();
        return result;
    }

    Stage stage;
};

}  // namespace

TEST_F(FakeHttpTransportTest, theStageKnowsNoURLUntilToldAndNotesAll) {
    stage.http().answer("http://h/a", "body");
    EXPECT_TRUE((*begin("http://h/a"))->isData());
    EXPECT_TRUE((*begin("http://h/b"))->absent());
    stage.http().forget("http://h/a");
    EXPECT_TRUE((*begin("http://h/a"))->absent());
    EXPECT_THAT(stage.http().requested(), ElementsAre("http://h/a", "http://h/b", "http://h/a"));
}

TEST_F(FakeHttpTransportTest, delaysPassInTheClockUpToTheTimeOut) {
    stage.http().answer("http://h/late", "body", 2);
    stage.http().answer("http://h/tooLate", "body", 11);
    const auto late = begin("http://h/late");
    const auto tooLate = begin("http://h/tooLate");
    stage.advance(1.9);
    EXPECT_FALSE(late->has_value());
    stage.advance(0.2);
    EXPECT_TRUE((*late)->isData());
    stage.advance(7.8);
    EXPECT_FALSE(tooLate->has_value());
    stage.advance(0.2);
    EXPECT_TRUE((*tooLate)->absent());
}

TEST_F(FakeHttpTransportTest, holdsRequestsOfOneURLOrOfAll) {
    stage.http().answer("http://h/a", "body");
    stage.http().answer("http://h/b", "body");
    stage.http().hold("http://h/a");
    const auto first = begin("http://h/a");
    EXPECT_TRUE((*begin("http://h/b"))->isData());
    stage.http().hold();
    const auto second = begin("http://h/b");
    EXPECT_EQ(stage.http().heldCount(), 2U);
    stage.http().release("http://h/a");
    stage.advance(9);
    EXPECT_FALSE(first->has_value());
    stage.http().release();
    stage.settle();
    EXPECT_TRUE((*first)->isData());
    EXPECT_TRUE((*second)->isData());
    EXPECT_EQ(stage.http().heldCount(), 0U);
}

TEST_F(FakeHttpTransportTest, whoIsHeldTooLongFails) {
    stage.http().answer("http://h/a", "body");
    stage.http().hold();
    const auto result = begin("http://h/a");
    stage.advance(9.9);
    EXPECT_FALSE(result->has_value());
    stage.advance(0.2);
    EXPECT_TRUE((*result)->absent());
}

TEST_F(FakeHttpTransportTest, theCapHoldsHereToo) {
    stage.http().answer("http://h/a", "12345");
    stage.http().setLargestBody(5);
    EXPECT_TRUE((*begin("http://h/a"))->isData());
    stage.http().setLargestBody(4);
    EXPECT_TRUE((*begin("http://h/a"))->absent());
}
