#include "VantrelCore/diagnostics/CrashReportText.h"
#include "VantrelCore/diagnostics/FixedText.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace vantrel {
namespace {

TEST(CrashReportText, KeepsOnlyTheImpersonalPartsOfAReason) {
    struct Row {
        std::string reason;
        std::string shareable;
    };

    for (const auto& [reason, shareable] : {
             Row{"vector::_M_range_check: __n (which is 5) >= this->size() (which is 3)",
                 "vector::_M_range_check: __n (which is 5) >= this->size() (which is 3)"},
             Row{"key 'Letter to Anna' not found", "key … not found"},
             Row{"last read: '\"it's Anna's\nletter\"'; after", "last read: … after"},
             Row{"cannot open '/home/anna/x", "cannot open …"},
             Row{"filesystem error: [/home/anna/x] [a@b.org]", "filesystem error: … …"},
             Row{"Überweisung an  Anna", "… an Anna"},
             Row{"first line\nsecond", "first line"},
             Row{std::string(1000, 'x'), std::string(300, 'x')},
             Row{"\xff\xfe", "…"},
             Row{"", ""},
         }) {
        EXPECT_EQ(CrashReportText::shareableReason(reason), shareable);
    }
}

TEST(CrashReportText, KeepsNothingOfAnUnparsableDocument) {
    for (const std::string document : {R"({"Letter": Anna"})", R"(["it's Anna)", "{\"a\": 'Anna\n'}"}) {
        try {
            [[maybe_unused]] const auto json = nlohmann::json::parse(document);
            FAIL() << document;
        } catch (const nlohmann::json::exception& error) {
            const auto reason = CrashReportText::shareableReason(error.what());
            EXPECT_EQ(reason.find("Anna"), std::string::npos) << reason;
            EXPECT_NE(reason.find("parse error at line"), std::string::npos) << reason;
        }
    }
}

TEST(CrashReportText, HeaderHasOneLinePerField) {
    EXPECT_EQ(CrashReportText::header(
                  {.version = "1", .build = "b", .operatingSystem = "OS\n---\n", .hardware = "H\r"}),
              "version: 1\nbuild: b\nsystem: OS --- \nhardware: H ");
}

TEST(CrashReportText, StripsFoldersFromModuleNames) {
    EXPECT_EQ(CrashReportText::withoutFolders("/home/anna (old)/bin/vantrel(main+0x1) [0x2]"),
              "vantrel(main+0x1) [0x2]");
    EXPECT_EQ(CrashReportText::withoutFolders("[0x2]"), "[0x2]");
}

TEST(FixedText, AppendsOnlyWhatFits) {
    FixedText<4> text;
    EXPECT_TRUE(text.append("abc"));
    EXPECT_FALSE(text.append("de"));
    EXPECT_TRUE(text.append("d"));
    EXPECT_STREQ(text.data(), "abcd");
    text.truncate(1);
    EXPECT_EQ(text.view(), "a");
    EXPECT_STREQ(text.data(), "a");
}

} // namespace
} // namespace vantrel
