#include "bench/JsonText.h"

#include <random>

namespace bench {
namespace {

class Records {
public:
    std::string text(std::size_t size) {
        std::string result = "[";
        for (int id = 0; result.size() < size; ++id)
            result.append(id > 0 ? "," : "").append(record(id));
        return result + "]";
    }

private:
    std::size_t below(std::size_t bound) { return random_() % bound; }

    std::string words(std::size_t count) {
        static const char* const choice[] = {
            "river",  "stone",  "light", "paper", "green",  "winter", "market",  "window",
            "garden", "silver", "编辑",  "größe", "résumé", "letter", "evening", "mountain"};
        std::string result;
        for (std::size_t i = 0; i < count; ++i)
            result += (i > 0 ? std::string(" ") : "") + choice[below(std::size(choice))];
        return result;
    }

    std::string hexadecimal(std::size_t count) {
        std::string result;
        while (count-- > 0)
            result += "0123456789abcdef"[below(16)];
        return result;
    }

    std::string real(int whole, std::size_t digits) {
        return std::to_string(static_cast<int>(below(static_cast<std::size_t>(whole) * 2)) -
                              whole) +
               "." + std::to_string(1 + below(9)) + std::to_string(digits + below(digits * 9));
    }

    template <class Item>
    std::string list(std::size_t count, Item item) {
        std::string result = "[";
        for (std::size_t i = 0; i < count; ++i)
            result.append(i > 0 ? "," : "").append(item());
        return result + "]";
    }

    std::string record(int id) {
        const auto tag = [this] { return std::string("\"").append(words(1)).append("\""); };
        const auto friendOf = [this] {
            return "{\"id\":" + std::to_string(below(1000)) + ",\"name\":\"" + words(2) + "\"}";
        };
        return "{\"id\":" + std::to_string(id) + ",\"guid\":\"" + hexadecimal(8) + "-" +
               hexadecimal(4) + "-" + hexadecimal(4) + "-" + hexadecimal(12) +
               "\",\"active\":" + (below(2) == 0 ? "true" : "false") +
               ",\"balance\":" + real(100000, 10) + ",\"name\":\"" + words(2) + "\",\"email\":\"" +
               hexadecimal(6) + "@example.com\",\"picture\":\"https:\\/\\/example.com\\/" +
               hexadecimal(10) + ".png\",\"about\":\"" + words(8 + below(12)) +
               "\\n\",\"tags\":" + list(below(6), tag) +
               ",\"position\":{\"latitude\":" + real(90, 10000) +
               ",\"longitude\":" + real(180, 10000) + "},\"friends\":" + list(below(4), friendOf) +
               ",\"parent\":" + (below(3) == 0 ? "null" : std::to_string(random_())) + "}";
    }

    std::mt19937 random_{7};
};

}  // namespace

const std::string& largeJson() {
    static const std::string text = Records().text(10'000'000);
    return text;
}

}  // namespace bench
