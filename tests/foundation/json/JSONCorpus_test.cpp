#include <gtest/gtest.h>

#include <fstream>
#include <set>

#include "tests/support/Places.h"
#include "zarnic/platform/foundation/NSJSONSerialization.h"

using namespace zn;

namespace {

struct Case {
    std::string name;
    std::string bytes;
};

std::string decoded(std::string_view text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            bytes += text[i];
            continue;
        }
        bytes += static_cast<char>(std::stoi(std::string(text.substr(i + 1, 2)), nullptr, 16));
        i += 2;
    }
    return bytes;
}

/// Name, tabulator, text with `%` and two digits for what is not printable. The name's first letter
/// says whether readers must accept it (y), must refuse it (n), or may do either (i).
std::vector<Case> corpus() {
    std::ifstream file(sourceFolder() + "/tests/foundation/json/parsing.tsv");
    std::vector<Case> cases;
    for (std::string line; std::getline(file, line);) {
        const std::size_t tabulator = line.find('\t');
        cases.push_back({line.substr(0, tabulator), decoded(line.substr(tabulator + 1))});
    }
    return cases;
}

/// Where the platform decides otherwise than the name says, and where the name leaves it open.
const std::set<std::string> acceptedAnyway = {
    // A comma before the closing bracket.
    "n_array_extra_comma",
    "n_array_number_and_comma",
    "n_object_trailing_comma",
    // Numbers that are not whole or have no end are the nearest double.
    "i_number_double_huge_neg_exp",
    "i_number_real_underflow",
    "i_number_too_big_neg_int",
    "i_number_too_big_pos_int",
    "i_number_very_big_negative_int",
    "i_structure_500_nested_arrays",
    "i_structure_UTF-8_BOM_empty_object",
};

}  // namespace

TEST(JSONCorpus, everyTextIsAcceptedOrRefusedAsItShould) {
    const auto cases = corpus();
    ASSERT_GT(cases.size(), 280U);
    for (const auto& [name, bytes] : cases) {
        Ref<NSError> error;
        const Value value = NSJSONSerialization::JSONObjectWithData(
            std::as_bytes(std::span(bytes)), NSJSONReadingOptions::AllowFragments, &error);
        const bool expected = name.starts_with("y_") || acceptedAnyway.contains(name);
        EXPECT_EQ(!value.absent(), expected) << name << ": " << bytes;
        EXPECT_EQ(error == nullptr, expected) << name;
    }
}

TEST(JSONCorpus, whatWasReadIsReadAgainAfterWriting) {
    for (const auto& [name, bytes] : corpus()) {
        const Value value =
            NSJSONSerialization::JSONObjectWithData(std::as_bytes(std::span(bytes)));
        if (value.absent())
            continue;
        for (const auto options :
             {NSJSONWritingOptions::None, NSJSONWritingOptions::PrettyPrinted}) {
            const Value data = NSJSONSerialization::dataWithJSONObject(value, options);
            EXPECT_EQ(NSJSONSerialization::JSONObjectWithData(data), value) << name;
        }
    }
}
