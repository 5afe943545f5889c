#include "platform/services/linux/LinuxDisplayStatus.h"

#include <cstdlib>

#include "platform/services/linux/BusReader.h"

namespace zn {
namespace {

constexpr const char* login = "org.freedesktop.login1";
constexpr const char* sessionInterface = "org.freedesktop.login1.Session";
constexpr const char* properties = "org.freedesktop.DBus.Properties";
constexpr const char* callersSession = "/org/freedesktop/login1/session/auto";
constexpr double patience = 0.25;

/// The screen savers that desktops have; the first that answers counts.
constexpr BusMethod saverQuestions[] = {
    {"org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver", "org.freedesktop.ScreenSaver",
     "GetActive"},
    {"org.gnome.ScreenSaver", "/org/gnome/ScreenSaver", "org.gnome.ScreenSaver", "GetActive"},
};

constexpr BusMethod sessionQuestion = {login, "/org/freedesktop/login1",
                                       "org.freedesktop.login1.Manager", "GetSession"};

/// Null when the program runs outside a session.
const char* sessionIdentifier() {
    return std::getenv("XDG_SESSION_ID");
}

std::string sessionPathOf(const BusMessage& answer) {
    if (!answer.succeeded())
        return callersSession;
    return std::string(BusReader(answer).text('o').value_or(callersSession));
}

std::optional<bool> booleanOf(const BusMessage& message) {
    int boolean = 0;
    if (!message.get() || !message.succeeded() ||
        sd_bus_message_read_basic(message.get(), 'b', &boolean) <= 0)
        return std::nullopt;
    return boolean != 0;
}

std::optional<bool> variantOf(const BusMessage& answer) {
    return answer.succeeded() ? BusReader(answer).booleanVariant() : std::nullopt;
}

}  // namespace

LinuxDisplayStatus::LinuxDisplayStatus(double retry) : retry_(retry) {}

LinuxDisplayStatus::~LinuxDisplayStatus() = default;

std::uint64_t LinuxDisplayStatus::state() {
    const bool locked = readLocked().value_or(locked_.value_or(false));
    const bool saver = readSaver().value_or(saver_.value_or(false));
    return locked || saver ? 0 : 1;
}

void LinuxDisplayStatus::begin() {
    connectSystem();
    connectSession();
}

void LinuxDisplayStatus::connectSystem() {
    const auto again = [this] {
        system_.reset();
        systemLater_ = callLater(retry_, [this] { connectSystem(); });
    };
    system_ = Bus::open(Bus::Kind::System, again);
    if (!system_) {
        again();
        return;
    }
    system_->subscribe(
        "type='signal',sender='org.freedesktop.login1',"
        "path_namespace='/org/freedesktop/login1/session'",
        [this](const BusMessage& message) { sessionChanged(message); });
    const char* identifier = sessionIdentifier();
    if (identifier == nullptr) {
        sessionPath_ = callersSession;
        askLocked();
        return;
    }
    system_->call(sessionQuestion, {identifier}, [this](const BusMessage& answer) {
        sessionPath_ = sessionPathOf(answer);
        askLocked();
    });
}

void LinuxDisplayStatus::connectSession() {
    const auto again = [this] {
        session_.reset();
        sessionLater_ = callLater(retry_, [this] { connectSession(); });
    };
    session_ = Bus::open(Bus::Kind::Session, again);
    if (!session_) {
        again();
        return;
    }
    for (const BusMethod& question : saverQuestions) {
        session_->subscribe(std::string("type='signal',member='ActiveChanged',interface='")
                                .append(question.interface)
                                .append("'"),
                            [this](const BusMessage& message) {
                                if (const auto active = booleanOf(message))
                                    heard(saver_, *active, Source::Change);
                            });
        askSaver(question);
    }
}

void LinuxDisplayStatus::askLocked() {
    system_->call({login, sessionPath_.c_str(), properties, "Get"},
                  {sessionInterface, "LockedHint"}, [this](const BusMessage& answer) {
                      if (const auto locked = variantOf(answer))
                          heard(locked_, *locked, locked_ ? Source::Change : Source::FirstAnswer);
                  });
}

void LinuxDisplayStatus::askSaver(const BusMethod& method) {
    session_->call(method, {}, [this](const BusMessage& answer) {
        if (const auto active = booleanOf(answer); active && !saver_)
            heard(saver_, *active, Source::FirstAnswer);
    });
}

/// `Lock` and `Unlock` only request what the locker may do, and a change may come without its
/// value: those prompt a question. `auto` stands for a path that is not known, where every
/// session's signal does.
void LinuxDisplayStatus::sessionChanged(const BusMessage& message) {
    const char* path = sd_bus_message_get_path(message.get());
    const bool own = path != nullptr && sessionPath_ == path;
    if (!own && sessionPath_ != callersSession)
        return;
    std::optional<bool> locked;
    BusReader reader(message);
    if (own && sd_bus_message_is_signal(message.get(), properties, "PropertiesChanged") > 0 &&
        reader.text() == sessionInterface)
        reader.dictionary("sv", [&] {
            if (reader.text() == "LockedHint")
                locked = reader.booleanVariant();
            else
                reader.skip("v");
        });
    if (locked)
        heard(locked_, *locked, Source::Change);
    else
        askLocked();
}

/// A repeat is no change, and neither is one that leaves the screen as dark as it was. What nobody
/// has told of yet counts as unlocked.
void LinuxDisplayStatus::heard(std::optional<bool>& known, bool now, Source source) {
    const bool wasOff = locked_.value_or(false) || saver_.value_or(false);
    known = now;
    const bool isOff = locked_.value_or(false) || saver_.value_or(false);
    if (source == Source::Change && isOff != wasOff)
        announceChange();
}

std::optional<bool> LinuxDisplayStatus::readLocked() {
    if (!system_)
        return std::nullopt;
    if (sessionPath_.empty())
        sessionPath_ =
            sessionPathOf(system_->callAndWait(sessionQuestion, {sessionIdentifier()}, patience));
    return variantOf(system_->callAndWait({login, sessionPath_.c_str(), properties, "Get"},
                                          {sessionInterface, "LockedHint"}, patience));
}

std::optional<bool> LinuxDisplayStatus::readSaver() {
    if (!session_)
        return std::nullopt;
    for (const BusMethod& question : saverQuestions) {
        if (const auto active = booleanOf(session_->callAndWait(question, {}, patience / 2)))
            return active;
    }
    return std::nullopt;
}

}  // namespace zn
