#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

/// The table that the benchmarks of the database share: 100,000 rows of six columns.
namespace bench {

inline constexpr int itemCount = 100'000;
inline constexpr const char* selectItems =
    "SELECT id, title, author, body, created, pinned FROM items";
inline constexpr const char* selectInserted =
    "SELECT id, title, author, body, created, pinned FROM inserted";
inline constexpr const char* insertItem =
    "INSERT INTO inserted(id, title, author, body, created, pinned) VALUES(?, ?, ?, ?, ?, ?)";

struct Item {
    explicit Item(int index)
        : id(index + 1),
          title("Note " + std::to_string(index)),
          author(index % 3 == 0 ? "Ada" : "Grace Hopper"),
          body("What is to be remembered of number " + std::to_string(index)),
          created(1.5e9 + index * 0.5),
          pinned(index % 7 == 0 ? 1 : 0) {}

    std::int64_t id;
    std::string title;
    std::string author;
    std::string body;
    double created;
    std::int64_t pinned;
};

/// What was read, in short.
struct Totals {
    void take(std::int64_t id, std::string_view title, std::string_view author,
              std::string_view body, double date, std::int64_t flag) {
        integers += id + flag;
        reals += date;
        characters += title.size() + author.size() + body.size();
        ends += static_cast<unsigned char>(title.back()) + static_cast<unsigned char>(body.back());
    }
    bool operator==(const Totals&) const = default;

    std::int64_t integers = 0;
    double reals = 0;
    std::size_t characters = 0;
    std::size_t ends = 0;
};

/// Ends the program when the two did not do the same work.
inline void requireSame(const char* name, const Totals& ours, const Totals& peer) {
    if (ours == peer)
        return;
    std::fprintf(stderr, "%s: results differ\n", name);
    std::exit(1);
}

}  // namespace bench
