#include "zarnic/testing/FakeHttpTransport.h"

#include <algorithm>
#include <span>

#include "zarnic/platform/foundation/Clock.h"
#include "zarnic/platform/foundation/NSDate.h"

namespace zn {

class FakeHttpTransport::Guard {
public:
    explicit Guard(const FakeHttpTransport& transport) : condition_(*transport.condition_) {
        condition_.lock();
    }
    ~Guard() { condition_.unlock(); }
    Guard(const Guard&) = delete;
    Guard& operator=(const Guard&) = delete;

private:
    NSCondition& condition_;
};

FakeHttpTransport::FakeHttpTransport() : condition_(make<NSCondition>()) {}

void FakeHttpTransport::answer(std::string_view url, const Value& body, double delay) {
    const Value data =
        body.isString() ? Value::data(std::as_bytes(std::span(body.string()))) : body;
    const Guard guard(*this);
    answers_.insert_or_assign(std::string(url), Answer{data, delay});
}

void FakeHttpTransport::forget(std::string_view url) {
    const Guard guard(*this);
    answers_.erase(std::string(url));
}

void FakeHttpTransport::hold(std::string_view url) {
    const Guard guard(*this);
    held_.emplace(url);
}

void FakeHttpTransport::hold() {
    const Guard guard(*this);
    allHeld_ = true;
}

void FakeHttpTransport::release(std::string_view url) {
    const Guard guard(*this);
    held_.erase(std::string(url));
    condition_->broadcast();
}

void FakeHttpTransport::release() {
    const Guard guard(*this);
    allHeld_ = false;
    held_.clear();
    condition_->broadcast();
}

std::vector<std::string> FakeHttpTransport::requested() const {
    const Guard guard(*this);
    return requested_;
}

std::size_t FakeHttpTransport::heldCount() const {
    const Guard guard(*this);
    return heldCount_;
}

Value FakeHttpTransport::get(const HttpRequest& request) {
    if (!waitWhileHeld(request))
        return {};
    const Answer answer = answerTo(request.url);
    const double limit = idleSeconds(request);
    Clock::shared().sleep(std::min(answer.delay, limit));
    const bool tooLarge = answer.body.bytes().size() > largestBody();
    return answer.delay < limit && !tooLarge ? answer.body : Value();
}

bool FakeHttpTransport::waitWhileHeld(const HttpRequest& request) {
    const Guard guard(*this);
    requested_.push_back(request.url);
    const auto limit = NSDate::dateWithTimeIntervalSinceNow(idleSeconds(request));
    ++heldCount_;
    bool inTime = true;
    while (inTime && isHeld(request.url))
        inTime = condition_->waitUntilDate(limit);
    --heldCount_;
    return inTime;
}

bool FakeHttpTransport::isHeld(const std::string& url) const {
    return allHeld_ || held_.contains(url);
}

FakeHttpTransport::Answer FakeHttpTransport::answerTo(const std::string& url) const {
    const Guard guard(*this);
    const auto found = answers_.find(url);
    return found == answers_.end() ? Answer() : found->second;
}

}  // namespace zn
