#include "zarnic/platform/services/NSURLConnection.h"

#include <gmock/gmock.h>

#include "zarnic/platform/services/Services.h"
#include "zarnic/testing/FakeHttpTransport.h"

using namespace zn;
using testing::ElementsAre;

namespace {

class NSURLConnectionTest : public testing::Test {
protected:
    NSURLConnectionTest() { Services::replace<HttpTransport>(transport); }

    static Value sent(std::string_view url, NSURLRequestCachePolicy policy = {}) {
        return NSURLConnection::sendSynchronousRequest(
            make<NSURLRequest>(NSURL::URLWithString(url), policy));
    }

    const Ref<FakeHttpTransport> transport = make<FakeHttpTransport>();
};

}  // namespace

TEST_F(NSURLConnectionTest, givesTheBodyAsData) {
    transport->answer("http://h/a", "body");
    transport->answer("HTTPS://h/b", "");
    EXPECT_EQ(sent("http://h/a"), Value::data(std::as_bytes(std::span("body", 4))));
    EXPECT_TRUE(sent("HTTPS://h/b").isData());
    EXPECT_TRUE(sent("http://h/unknown").absent());
}

TEST_F(NSURLConnectionTest, keepsTheFragmentToItself) {
    transport->answer("http://h/a?b=c", "body");
    EXPECT_TRUE(sent("http://h/a?b=c#part").isData());
    EXPECT_THAT(transport->requested(), ElementsAre("http://h/a?b=c"));
}

TEST_F(NSURLConnectionTest, asksNobodyForWhatIsNotOfTheWeb) {
    for (const auto* url : {"file:///etc/hostname", "ftp://h/a", "data:,a", "mailto:a@h", "", "/a",
                            "h/a", "httpx://h/a", "no URL at all"})
        EXPECT_TRUE(sent(url).absent()) << url;
    EXPECT_TRUE(sent("http://h/a", NSURLRequestCachePolicy::ReturnCacheDataDontLoad).absent());
    EXPECT_TRUE(NSURLConnection::sendSynchronousRequest(nullptr).absent());
    EXPECT_THAT(transport->requested(), ElementsAre());
}

TEST(NSURLRequestTest, saysWhatItWasMadeOf) {
    const auto url = NSURL::URLWithString("http://h/");
    const auto usual = make<NSURLRequest>(url);
    EXPECT_EQ(usual->URL(), url);
    EXPECT_EQ(usual->cachePolicy(), NSURLRequestCachePolicy::UseProtocolCachePolicy);
    EXPECT_EQ(usual->timeoutInterval(), 60);
    EXPECT_EQ(usual->HTTPMethod(), "GET");
    const auto policy = NSURLRequestCachePolicy::ReloadIgnoringLocalAndRemoteCacheData;
    EXPECT_EQ(static_cast<int>(policy), 4);
    EXPECT_EQ(make<NSURLRequest>(url, policy, 10)->timeoutInterval(), 10);
}
