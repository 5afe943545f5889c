// Binds hostile parameters and reads them back. What SQLite got must be what the header promises.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "zarnic/ZNDataBaseHelper.h"
#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/foundation/NSString.h"

namespace {

using zn::Value;

constexpr std::size_t placeCount = 6;
constexpr const char* echo = "SELECT ?1 AS p0, ?2 AS p1, ?3 AS p2, ?4 AS p3, ?5 AS p4, ?6 AS p5";

/// A home of its own for the process.
void openDatabase() {
    static const std::string home = [] {
        std::string name = (std::filesystem::temp_directory_path() / "zarnic-fuzz-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr)
            std::abort();
        setenv("ZARNIC_HOME", name.c_str(), 1);
        zn::ZNDataBaseHelper::InitDataBaseHelperFileName("fuzz", "sql.db", {}, {});
        std::atexit([] { std::filesystem::remove_all(std::getenv("ZARNIC_HOME")); });
        return name;
    }();
}

/// Takes values from the bytes: a byte for the kind, then what the kind needs.
class Source {
public:
    Source(const std::uint8_t* data, std::size_t size) : data_(data), left_(size) {}

    bool empty() const { return left_ == 0; }

    Value value(int depth = 0) {
        switch (number<std::uint8_t>() % 12) {
            case 0:
                return Value::null();
            case 1:
                return number<std::int64_t>();
            case 2:
                return number<std::uint64_t>();
            case 3:
                return number<std::uint8_t>() % 2 == 1;
            case 4:
                return static_cast<char>(number<std::uint8_t>());
            case 5:
                return number<float>();
            case 6:
                return number<double>();
            case 7:
                return text();
            case 8:
                return data();
            case 9:
                return zn::Dictionary{{"a", 1}};
            case 10:
                return depth < 3 ? array(depth) : Value::null();
            default:
                return depth == 0 ? Value() : Value(1);
        }
    }

private:
    Value array(int depth) {
        zn::Array items;
        for (int count = number<std::uint8_t>() % 8; count > 0; --count)
            items.add(value(depth + 1));
        return items;
    }
    template <class T>
    T number() {
        T result{};
        const std::size_t size = std::min(sizeof result, left_);
        std::memcpy(&result, data_, size);
        skip(size);
        return result;
    }
    std::string text() {
        const std::size_t size = std::min<std::size_t>(number<std::uint8_t>(), left_);
        std::string result(reinterpret_cast<const char*>(data_), size);
        skip(size);
        return result;
    }
    Value data() {
        const std::string bytes = text();
        return Value::data(std::as_bytes(std::span(bytes)));
    }
    void skip(std::size_t size) {
        data_ += size;
        left_ -= size;
    }

    const std::uint8_t* data_;
    std::size_t left_;
};

/// What one parameter becomes, one after the other in their places.
void expectItem(const Value& item, std::vector<Value>& places) {
    if (item.kind() == Value::Kind::Float || item.kind() == Value::Kind::Double)
        places.push_back(std::isnan(item.doubleValue()) ? Value() : item.doubleValue());
    else if (item.isNumber())
        places.emplace_back(item.longLongValue());
    else if (item.isString())
        places.emplace_back(item.string().substr(0, item.string().find('\0')));
    else if (item.isData())
        places.push_back(item);
}

std::vector<Value> expected(const std::vector<Value>& parameters) {
    std::vector<Value> places;
    for (const Value& each : parameters) {
        if (each.absent())
            break;
        if (!each.isArray())
            expectItem(each, places);
        else
            for (const Value& item : each.array())
                expectItem(item, places);
    }
    places.resize(placeCount);
    return places;
}

bool sameKind(const Value& read, const Value& wanted) {
    return wanted.isNumber() ? read.kind() == wanted.kind() || wanted.kind() == Value::Kind::Integer
                             : read.kind() == wanted.kind();
}

bool allUTF8(const std::vector<Value>& values) {
    return std::all_of(values.begin(), values.end(), [](const Value& value) {
        return !value.isString() || zn::isValidUTF8(value.string());
    });
}

void requireSame(const zn::Dictionary& row, const std::vector<Value>& places) {
    for (std::size_t place = 0; place < placeCount; ++place) {
        const Value& read = row["p" + std::to_string(place)];
        if (!sameKind(read, places[place]) || !(read == places[place]))
            std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    openDatabase();
    std::vector<Value> parameters;
    for (Source source(data, size); !source.empty();)
        parameters.push_back(source.value());
    const std::vector<Value> places = expected(parameters);
    bool raised = false;
    try {
        const auto rows = zn::ZNDataBaseHelper::QueryWithSQL(echo, parameters);
        if (!rows || rows->count() != 1)
            std::abort();
        requireSame((*rows)[0].dictionary(), places);
    } catch (const zn::NSException&) {
        raised = true;
    }
    if (raised == allUTF8(places))
        std::abort();
    return 0;
}
