#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "zarnic/platform/foundation/NSCondition.h"
#include "zarnic/platform/services/HttpTransport.h"

namespace zn {

/// A network in memory, by the process's clock: answers what it was told to, later or not at all if
/// wished, and notes what was asked for. URLs are compared to the letter. Any thread.
class ZN_EXPORT FakeHttpTransport final : public HttpTransport {
public:
    FakeHttpTransport();

    /// The body, as data or text, that the URL answers from now on, so many seconds later; absent
    /// for a failure.
    void answer(std::string_view url, const Value& body, double delay = 0);
    /// The URL is unknown again, as all are at first: its requests fail at once.
    void forget(std::string_view url);

    /// Keeps requests of one URL, or of all, waiting from now on.
    void hold(std::string_view url);
    void hold();
    /// Lets them go on. One URL stays held while all are.
    void release(std::string_view url);
    void release();

    /// The URLs asked for, in order, with those that failed.
    std::vector<std::string> requested() const;
    /// How many requests are held now.
    std::size_t heldCount() const;

    /// A request that is held, or delayed, for longer than its time-out fails when that is over.
    Value get(const HttpRequest& request) override;

private:
    struct Answer {
        Value body;
        double delay = 0;
    };
    class Guard;
    bool isHeld(const std::string& url) const;
    /// False when the time-out came first.
    bool waitWhileHeld(const HttpRequest& request);
    Answer answerTo(const std::string& url) const;

    /// The lock of all that follows; tells of what is released.
    const Ref<NSCondition> condition_;
    std::map<std::string, Answer, std::less<>> answers_;
    std::set<std::string, std::less<>> held_;
    bool allHeld_ = false;
    std::vector<std::string> requested_;
    std::size_t heldCount_ = 0;
};

}  // namespace zn
