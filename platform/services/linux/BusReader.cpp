#include "platform/services/linux/BusReader.h"

#include <string>

namespace zn {

BusReader::BusReader(const BusMessage& message) : message_(message.get()) {
    if (message_ != nullptr)
        sd_bus_message_rewind(message_, 1);
}

std::optional<std::string_view> BusReader::text(char type) {
    const char* text = nullptr;
    if (!readable() || sd_bus_message_read_basic(message_, type, &text) <= 0) {
        failed_ = true;
        return std::nullopt;
    }
    return text;
}

std::optional<bool> BusReader::booleanVariant() {
    char type = 0;
    const char* contents = nullptr;
    if (!readable() || sd_bus_message_peek_type(message_, &type, &contents) <= 0 || type != 'v') {
        failed_ = true;
        return std::nullopt;
    }
    if (std::string_view(contents) != "b") {
        skip("v");
        return std::nullopt;
    }
    int boolean = 0;
    failed_ = sd_bus_message_read(message_, "v", "b", &boolean) <= 0;
    return failed_ ? std::nullopt : std::optional(boolean != 0);
}

bool BusReader::array(const char* contents, const std::function<void()>& item) {
    if (!readable() || sd_bus_message_enter_container(message_, 'a', contents) <= 0) {
        failed_ = true;
        return false;
    }
    while (!failed_ && sd_bus_message_at_end(message_, 0) == 0)
        item();
    failed_ = failed_ || sd_bus_message_exit_container(message_) < 0;
    return !failed_;
}

bool BusReader::dictionary(const char* contents, const std::function<void()>& entry) {
    return array(std::string("{").append(contents).append("}").c_str(), [&] {
        if (sd_bus_message_enter_container(message_, 'e', contents) <= 0) {
            failed_ = true;
            return;
        }
        entry();
        failed_ = failed_ || sd_bus_message_exit_container(message_) < 0;
    });
}

void BusReader::skip(const char* types) {
    failed_ = !readable() || sd_bus_message_skip(message_, types) < 0;
}

}  // namespace zn
