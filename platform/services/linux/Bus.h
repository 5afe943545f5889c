#pragma once

#include <systemd/sd-bus.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "zarnic/platform/foundation/NSRunLoop.h"

namespace zn {

/// What a method call is sent to.
struct BusMethod {
    const char* service;
    const char* path;
    const char* interface;
    const char* member;
};

/// A D-Bus message that has come, and is kept.
class BusMessage {
public:
    BusMessage() = default;
    explicit BusMessage(sd_bus_message* message) : message_(sd_bus_message_ref(message)) {}
    /// Null when no answer came.
    sd_bus_message* get() const { return message_.get(); }
    /// Whether it is an answer that says what was asked for.
    bool succeeded() const;
    /// The name of the error that it is, or empty.
    std::string errorName() const;

private:
    struct Unref {
        void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
    };
    std::unique_ptr<sd_bus_message, Unref> message_;
};

/// Calls the handler on the main run loop in so many seconds.
RunLoopToken callLater(double seconds, std::function<void()> handler);

/// A connection to a message bus, which the main run loop drives. Main thread only. Handlers are
/// called from the loop and must not throw: the library between speaks C.
class Bus {
public:
    enum class Kind { System, Session };
    using Handler = std::function<void(const BusMessage&)>;

    /// Null when there is no such bus. `lost` is called once, later, when the connection ends.
    static std::unique_ptr<Bus> open(Kind kind, std::function<void()> lost);
    ~Bus();
    Bus(const Bus&) = delete;
    Bus& operator=(const Bus&) = delete;

    /// Calls the handler for every message that fits the rule (the D-Bus match rule's text).
    void subscribe(const std::string& rule, Handler handler);
    /// Asks without waiting; the service is not started for it. `signature` is that of the
    /// arguments, texts only.
    void call(const BusMethod& method, std::initializer_list<const char*> arguments,
              Handler answer);
    /// Asks and waits for at most so many seconds.
    BusMessage callAndWait(const BusMethod& method, std::initializer_list<const char*> arguments,
                           double seconds);

private:
    explicit Bus(sd_bus* bus, std::function<void()> lost);
    BusMessage makeCall(const BusMethod& method, std::initializer_list<const char*> arguments);
    void process();
    void watch();
    void fail();

    sd_bus* bus_;
    std::function<void()> lost_;
    RunLoopToken descriptor_;
    RunLoopToken deadline_;
    /// Gone with the bus: what is queued asks it first.
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace zn
