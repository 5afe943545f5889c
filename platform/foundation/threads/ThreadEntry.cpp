#include "platform/foundation/threads/ThreadEntry.h"

#include <pthread.h>
#include <unistd.h>

#include <exception>
#include <memory>
#include <thread>

#include "zarnic/platform/foundation/Clock.h"
#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/foundation/NSLog.h"

namespace zn {
namespace {

void callLoggingExceptions(const std::function<void()>& body, const std::string& name) {
    try {
        body();
    } catch (const std::exception& exception) {
        NSLog("*** Terminating due to uncaught exception on thread %s: %s", name.c_str(),
              exception.what());
        throw;
    }
}

}  // namespace

bool isMainThread() {
    thread_local const bool isMain = getpid() == gettid();
    return isMain;
}

void startThread(const std::string& name, std::function<void()> body) {
    auto participant = std::make_unique<ClockParticipant>(name);
    std::thread thread([participant = std::move(participant), body = std::move(body)]() mutable {
        participant->attach();
        nameCallingThread(participant->name());
        callLoggingExceptions(body, participant->name());
        // What the body owns is released while the thread still counts.
        body = nullptr;
    });
    thread.detach();
}

void nameCallingThread(const std::string& name) {
    pthread_setname_np(pthread_self(), name.substr(0, 15).c_str());
}

}  // namespace zn
