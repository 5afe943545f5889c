#include "platform/services/linux/Bus.h"

#include "zarnic/platform/foundation/Clock.h"
#include "zarnic/platform/foundation/Dispatch.h"

namespace zn {
namespace {

int handle(sd_bus_message* message, void* handler, sd_bus_error*) {
    (*static_cast<Bus::Handler*>(handler))(BusMessage(message));
    return 0;
}

void destroyHandler(void* handler) {
    delete static_cast<Bus::Handler*>(handler);
}

/// Leaves the slot to the bus, and the handler to the slot.
void giveToBus(sd_bus_slot* slot) {
    sd_bus_slot_set_destroy_callback(slot, destroyHandler);
    sd_bus_slot_set_floating(slot, 1);
    sd_bus_slot_unref(slot);
}

}  // namespace

RunLoopToken callLater(double seconds, std::function<void()> handler) {
    return NSRunLoop::mainRunLoop()->addDeadline(Clock::shared().monotonic() + seconds,
                                                 std::move(handler));
}

bool BusMessage::succeeded() const {
    return message_ && sd_bus_message_is_method_error(message_.get(), nullptr) == 0;
}

std::string BusMessage::errorName() const {
    const sd_bus_error* error = message_ ? sd_bus_message_get_error(message_.get()) : nullptr;
    return error != nullptr && error->name != nullptr ? error->name : std::string();
}

std::unique_ptr<Bus> Bus::open(Kind kind, std::function<void()> lost) {
    sd_bus* bus = nullptr;
    const int result = kind == Kind::System ? sd_bus_open_system(&bus) : sd_bus_open_user(&bus);
    if (result < 0)
        return nullptr;
    std::unique_ptr<Bus> opened(new Bus(bus, std::move(lost)));
    opened->watch();
    return opened;
}

Bus::Bus(sd_bus* bus, std::function<void()> lost) : bus_(bus), lost_(std::move(lost)) {}

Bus::~Bus() {
    *alive_ = false;
    sd_bus_close(bus_);
    sd_bus_unref(bus_);
}

void Bus::subscribe(const std::string& rule, Handler handler) {
    sd_bus_slot* slot = nullptr;
    auto* owned = new Handler(std::move(handler));
    if (sd_bus_add_match_async(bus_, &slot, rule.c_str(), handle, nullptr, owned) < 0) {
        delete owned;
        return;
    }
    giveToBus(slot);
    watch();
}

BusMessage Bus::makeCall(const BusMethod& method, std::initializer_list<const char*> arguments) {
    sd_bus_message* message = nullptr;
    if (sd_bus_message_new_method_call(bus_, &message, method.service, method.path,
                                       method.interface, method.member) < 0)
        return {};
    for (const char* argument : arguments)
        sd_bus_message_append_basic(message, SD_BUS_TYPE_STRING, argument);
    sd_bus_message_set_auto_start(message, 0);
    BusMessage call(message);
    sd_bus_message_unref(message);
    return call;
}

void Bus::call(const BusMethod& method, std::initializer_list<const char*> arguments,
               Handler answer) {
    const BusMessage message = makeCall(method, arguments);
    sd_bus_slot* slot = nullptr;
    auto* owned = new Handler(std::move(answer));
    if (!message.get() || sd_bus_call_async(bus_, &slot, message.get(), handle, owned, 0) < 0) {
        delete owned;
        return;
    }
    giveToBus(slot);
    watch();
}

BusMessage Bus::callAndWait(const BusMethod& method, std::initializer_list<const char*> arguments,
                            double seconds) {
    const BusMessage message = makeCall(method, arguments);
    sd_bus_message* answer = nullptr;
    if (message.get())
        sd_bus_call(bus_, message.get(), static_cast<std::uint64_t>(seconds * 1e6), nullptr,
                    &answer);
    watch();
    BusMessage kept(answer);
    sd_bus_message_unref(answer);
    return kept;
}

void Bus::process() {
    const auto alive = alive_;
    int result = 1;
    while (result > 0 && *alive)
        result = sd_bus_process(bus_, nullptr);
    if (!*alive)
        return;
    if (result < 0)
        fail();
    else
        watch();
}

void Bus::watch() {
    const int events = sd_bus_get_events(bus_);
    const int descriptor = sd_bus_get_fd(bus_);
    std::uint64_t microseconds = UINT64_MAX;
    if (events < 0 || descriptor < 0 || sd_bus_get_timeout(bus_, &microseconds) < 0) {
        fail();
        return;
    }
    const auto loop = NSRunLoop::mainRunLoop();
    descriptor_ =
        loop->addDescriptor(descriptor, static_cast<short>(events), [this](short) { process(); });
    deadline_ =
        microseconds == UINT64_MAX
            ? RunLoopToken()
            : loop->addDeadline(static_cast<double>(microseconds) / 1e6, [this] { process(); });
}

void Bus::fail() {
    descriptor_.reset();
    deadline_.reset();
    if (lost_)
        dispatchMain([lost = std::exchange(lost_, nullptr), alive = alive_] {
            if (*alive)
                lost();
        });
}

}  // namespace zn
