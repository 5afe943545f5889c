#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "tests/storage/DataBaseFixture.h"
#include "zarnic/platform/foundation/NSDate.h"
#include "zarnic/platform/foundation/NSException.h"

namespace zn {
namespace {

using namespace std::string_literals;
using testing::HasSubstr;

class StatementsTest : public DataBaseFixture {
protected:
    StatementsTest() { open(); }

    static Value data(std::string_view bytes) {
        return Value::data(std::as_bytes(std::span(bytes)));
    }
    /// What the parameters became, in SQLite's own notation.
    static std::string bound(std::span<const Value> parameters) {
        const auto rows = ZNDataBaseHelper::QueryWithSQL(
            "SELECT quote(?1) || ' ' || quote(?2) || ' ' || quote(?3) AS bound", parameters);
        return std::string((*rows)[0].dictionary()["bound"].string());
    }
    static std::string raised(std::string_view sql) {
        try {
            ZNDataBaseHelper::QueryWithSQL(sql);
        } catch (const NSException& exception) {
            return exception.name() + ": " + exception.reason();
        }
        return "nothing";
    }
};

struct Binding {
    std::vector<Value> parameters;
    std::string bound;
};

TEST_F(StatementsTest, EachKindOfParameterIsBoundInItsWay) {
    constexpr auto smallest = std::numeric_limits<std::int64_t>::min();
    constexpr auto largestUnsigned = std::numeric_limits<std::uint64_t>::max();
    const Binding bindings[] = {
        {{}, "NULL NULL NULL"},
        {{1, Value::null(), "b"}, "1 'b' NULL"},
        {{Array{"t", 2.5F}, 3}, "'t' 2.5 3"},
        {{Array{Array{1, 2}, 3}, Array(), 4}, "3 4 NULL"},
        {{Array{1, 2}.copy(), 3}, "1 2 3"},
        {{true, false, 'A'}, "1 0 65"},
        {{largestUnsigned, smallest, -1}, "-1 -9223372036854775808 -1"},
        {{1.0, 1.0F, 0.1}, "1.0 1.0 0.1"},
        {{std::nan(""), -2.5, 1e300}, "NULL -2.5 1.0e+300"},
        {{"", data(""), "it's"}, "'' X'' 'it''s'"},
        {{"a\0b"s, "\0"s, data("a\0b"s)}, "'a' '' X'610062'"},
        {{std::string(40, 'x'), "中文", data(std::string(20, '\xFF'))},
         "'" + std::string(40, 'x') + "' '中文' X'" + std::string(40, 'F') + "'"},
        {{Dictionary{{"a", 1}}, make<NSDate>(0.0), "x"}, "'x' NULL NULL"},
        {{1, 2, 3, 4, "more than places"}, "1 2 3"},
        {{1, Value(), 3}, "1 NULL NULL"},
        {{Value(), 1}, "NULL NULL NULL"},
    };
    for (const auto& [parameters, result] : bindings)
        EXPECT_EQ(bound(parameters), result);
}

TEST_F(StatementsTest, ParametersCanBeListedInTheCall) {
    const std::string text = "text";
    const auto rows = ZNDataBaseHelper::QueryWithSQL("SELECT ? AS a, ? AS b, ? AS c", 1, text, 0.5);
    EXPECT_EQ(Value(*rows), (Array{Dictionary{{"a", 1}, {"b", "text"}, {"c", 0.5}}}));
    const char* absent = nullptr;
    EXPECT_EQ(ZNDataBaseHelper::QueryWithSQL("SELECT ? AS a, ? AS b", 1, absent)->count(), 1U);
    EXPECT_EQ(ZNDataBaseHelper::ExecuteWithSQL("CREATE TABLE t(a, b)"), 0);
    EXPECT_EQ(ZNDataBaseHelper::ExecuteWithSQL("INSERT INTO t VALUES(?, ?)", Array{1, 2}), 0);
    EXPECT_EQ(ZNDataBaseHelper::ExecuteWithSQL("INSERT INTO t VALUES(?, ?)", 3, nullptr, 4), 0);
    EXPECT_EQ(answer("SELECT group_concat(a || '-' || ifnull(b, 'none')) FROM t"), "1-2,3-none");
}

struct Result {
    std::string sql;
    Array rows;
};

TEST_F(StatementsTest, RowsHoldTheColumnsThatAreNotNull) {
    Dictionary wide;
    std::string wideSQL = "SELECT 0 AS c0";
    for (int i = 1; i < 40; ++i)
        wideSQL += ", " + std::to_string(i) + " AS c" + std::to_string(i);
    for (int i = 0; i < 40; ++i)
        wide.set("c" + std::to_string(i), i);
    const Result results[] = {
        {"SELECT 1 AS a WHERE 0", {}},
        {"SELECT 1 AS a, 'text' AS b, x'6100' AS c",
         {Dictionary{{"a", 1}, {"b", "text"}, {"c", data("a\0"s)}}}},
        {"SELECT 1 AS a, 2 AS a", {Dictionary{{"a", 2}}}},
        {"SELECT 1 AS a, NULL AS a", {Dictionary{{"a", 1}}}},
        {"SELECT NULL AS a, NULL AS b UNION ALL SELECT NULL, 2",
         {Dictionary{}, Dictionary{{"b", 2}}}},
        {"SELECT x'' AS a, '' AS b", {Dictionary{{"a", data("")}, {"b", ""}}}},
        {"SELECT 'a' || char(0) || 'b' AS a", {Dictionary{{"a", "a"}}}},
        {"SELECT 'longer than the value' AS \"名\"", {Dictionary{{"名", "longer than the value"}}}},
        {"VALUES (9223372036854775807), ('中文'), (2.5), (NULL)",
         {Dictionary{{"column1", std::numeric_limits<std::int64_t>::max()}},
          Dictionary{{"column1", "中文"}}, Dictionary{{"column1", 2.5}}, Dictionary{}}},
        {wideSQL, {wide}},
    };
    for (const auto& [sql, expected] : results) {
        const auto rows = ZNDataBaseHelper::QueryWithSQL(sql);
        ASSERT_TRUE(rows) << sql;
        EXPECT_EQ(Value(*rows), Value(expected)) << sql << Value(*rows).description();
    }
    const auto numbers = *ZNDataBaseHelper::QueryWithSQL("VALUES (1), (1.0)");
    EXPECT_EQ(numbers[0].dictionary()["column1"].kind(), Value::Kind::Integer);
    EXPECT_EQ(numbers[1].dictionary()["column1"].kind(), Value::Kind::Double);
}

TEST_F(StatementsTest, ARowMayBeChangedWithoutTheOthers) {
    const auto rows = *ZNDataBaseHelper::QueryWithSQL("VALUES (1), (2)");
    auto first = rows[0].dictionary();
    first.set("column1", "changed");
    first.set("more", true);
    EXPECT_EQ(rows[1], Value(Dictionary{{"column1", 2}}));
    EXPECT_EQ(rows[0].dictionary().count(), 2U);
}

struct Status {
    std::string_view sql;
    int status;
    std::size_t rows = 0;
};

TEST_F(StatementsTest, OnlyAStatementThatCannotBePreparedIsReported) {
    ZNDataBaseHelper::ExecuteWithSQL("CREATE TABLE t(a UNIQUE)");
    const Status statuses[] = {
        {"SELEC 1", 1},
        {"INSERT INTO missing VALUES(1)", 1},
        {std::string_view(), 1},
        {"", 0},
        {" \n", 0},
        {"-- only a comment", 0},
        {";", 0},
        {"SELECT 1; no statement", 0, 1},
        {std::string_view("SELECT 1\0 no statement", 22), 0, 1},
        {"INSERT INTO t VALUES(1)", 0},
        {"INSERT INTO t VALUES(1)", 0},
        {"COMMIT", 0},
        {"SELECT abs(column1) FROM (VALUES (1), (2), (-9223372036854775808))", 0, 2},
    };
    for (const auto& [sql, status, count] : statuses) {
        EXPECT_EQ(ZNDataBaseHelper::ExecuteWithSQL(sql), status) << sql;
        const auto rows = ZNDataBaseHelper::QueryWithSQL(sql);
        EXPECT_EQ(rows.has_value(), status == 0) << sql;
        EXPECT_EQ(rows ? rows->count() : 0, count) << sql;
    }
    EXPECT_EQ(answer("SELECT count(*) FROM t"), "1");
}

/// A statement left open would keep the table from being dropped.
TEST_F(StatementsTest, InvalidUTF8RaisesAndEndsTheStatement) {
    ZNDataBaseHelper::ExecuteWithSQL("CREATE TABLE t(a, \"\xC3(\")");
    ZNDataBaseHelper::ExecuteWithSQL("INSERT INTO t VALUES('good', NULL)");
    EXPECT_EQ(raised("SELECT * FROM t"), "nothing");
    ZNDataBaseHelper::ExecuteWithSQL("INSERT INTO t VALUES(?, 1)", "also good");
    EXPECT_THAT(raised("SELECT * FROM t"), HasSubstr("NSInvalidArgumentException: the name"));
    ZNDataBaseHelper::ExecuteWithSQL("INSERT INTO t VALUES(?, NULL)", "a text that is bad: \xFF");
    EXPECT_THAT(raised("SELECT a FROM t"), HasSubstr("NSInvalidArgumentException: a text"));
    EXPECT_THROW(ZNDataBaseHelper::ExecuteWithSQL("SELECT a FROM t"), NSException);
    EXPECT_EQ(raised("SELECT CAST('a' || x'00FF' AS TEXT)"), "nothing");
    ZNDataBaseHelper::ExecuteWithSQL("DROP TABLE t");
    EXPECT_FALSE(ZNDataBaseHelper::QueryWithSQL("SELECT * FROM t"));
}

/// The columns of `*` are those at the first step, not those when it was prepared.
TEST_F(StatementsTest, ATableChangedByAnotherConnectionIsReadAsItIsNow) {
    ZNDataBaseHelper::ExecuteWithSQL("CREATE TABLE t(a)");
    ZNDataBaseHelper::ExecuteWithSQL("INSERT INTO t VALUES(1)");
    ZNDataBaseHelper::ExecuteWithSQL("ATTACH DATABASE ? AS other", file("notes.db"));
    ZNDataBaseHelper::ExecuteWithSQL("ALTER TABLE other.t ADD COLUMN b DEFAULT 2");
    EXPECT_EQ(Value(*ZNDataBaseHelper::QueryWithSQL("SELECT * FROM main.t")),
              (Array{Dictionary{{"a", 1}, {"b", 2}}}));
}

}  // namespace
}  // namespace zn
