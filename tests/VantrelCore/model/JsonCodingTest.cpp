#include "VantrelCore/model/JsonCoding.h"

#include <gtest/gtest.h>
#include <vector>

namespace vantrel {

namespace {

nlohmann::json field(const std::string& value) {
    return nlohmann::json::parse(R"({"key": )" + value + "}");
}

template <typename T>
void expectRefused(const std::vector<const char*>& values) {
    for (const auto* value : values) {
        EXPECT_THROW(static_cast<void>(JsonCoding::optional<T>(field(value), "key")), JsonCoding::Error)
            << value;
    }
}

TEST(JsonCoding, ReadsEachKindAndRefusesEveryOther) {
    EXPECT_EQ(JsonCoding::required<bool>(field("true"), "key"), true);
    expectRefused<bool>({"1", "\"true\"", "[]", "{}"});

    EXPECT_EQ(JsonCoding::required<std::string>(field("\"\""), "key"), "");
    expectRefused<std::string>({"1", "true", "[\"a\"]"});

    EXPECT_EQ(JsonCoding::required<double>(field("3"), "key"), 3.0);
    EXPECT_EQ(JsonCoding::required<double>(field("-0.1"), "key"), -0.1);
    expectRefused<double>({"\"3\"", "true", "[3]"});

    EXPECT_EQ(JsonCoding::required<std::int64_t>(field("3"), "key"), 3);
    EXPECT_EQ(JsonCoding::required<std::int64_t>(field("3.0"), "key"), 3);
    EXPECT_EQ(JsonCoding::required<std::int64_t>(field("-9223372036854775808"), "key"), INT64_MIN);
    EXPECT_EQ(JsonCoding::required<std::int64_t>(field("9223372036854775807"), "key"), INT64_MAX);
    expectRefused<std::int64_t>({"3.5", "9223372036854775808", "-1e300", "true", "\"3\""});

    EXPECT_EQ(JsonCoding::required<std::vector<double>>(field("[1, 2.5]"), "key"),
              (std::vector<double>{1, 2.5}));
    expectRefused<std::vector<double>>({"{}", "1", "[1, null]", "[1, \"2\"]"});

    expectRefused<Date>({"1740816900", "\"yesterday\""});
}

TEST(JsonCoding, MissingAndNullAreAbsentAndOnlyRequiredKeysMind) {
    EXPECT_EQ(JsonCoding::optional<bool>(field("null"), "key"), std::nullopt);
    EXPECT_EQ(JsonCoding::optional<bool>(field("true"), "other"), std::nullopt);
    EXPECT_THROW(static_cast<void>(JsonCoding::required<bool>(field("null"), "key")), JsonCoding::Error);
    EXPECT_THROW(static_cast<void>(JsonCoding::required<bool>(field("true"), "other")), JsonCoding::Error);
    EXPECT_THROW(static_cast<void>(JsonCoding::optional<bool>(nlohmann::json::array(), "key")),
                 JsonCoding::Error);
}

} // namespace

} // namespace vantrel
