#include "VantrelCore/studio/SchematicDepth.h"

#include <gmock/gmock.h>
#include <random>

#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

using SchematicDepth::Box;
using testing::ElementsAre;
using testing::IsEmpty;

const std::vector<Rect> twoDisplays{{{0, 0}, {200, 100}}, {{210, 0}, {100, 100}}};
constexpr SchematicDepth::Options options{.strip = 4, .smallest = 13};

TEST(SchematicDepth, FindsThePieceWithMostRoomBehindTheWindowsInFront) {
    struct Case {
        const char* name;
        std::vector<Box> boxes;
        std::optional<Rect> lastPiece;
    };
    const Rect whole{{0, 0}, {200, 100}};
    const Case cases[] = {
        {"alone, below the strip", {{whole}}, Rect{{0, 4}, {200, 96}}},
        {"left of one in front", {{{{120, 0}, {80, 100}}}, {whole}}, Rect{{0, 4}, {120, 96}}},
        {"wide piece above rather than narrow one beside",
         {{{{20, 60}, {180, 40}}}, {whole}},
         Rect{{0, 4}, {200, 56}}},
        {"hole in a frame of windows",
         {{{{0, 0}, {60, 100}}},
          {{{140, 0}, {60, 100}}},
          {{{0, 0}, {200, 20}}},
          {{{0, 80}, {200, 20}}},
          {whole}},
         Rect{{60, 20}, {80, 60}}},
        {"strip narrower than an icon", {{{{12, 0}, {188, 100}}}, {whole}}, std::nullopt},
        {"just wide enough", {{{{13, 0}, {187, 100}}}, {whole}}, Rect{{0, 4}, {13, 96}}},
        {"clipped to its display", {{{{-50, 0}, {100, 100}}}}, Rect{{0, 4}, {50, 96}}},
        {"covered on another display only", {{{{210, 0}, {100, 100}}, 1}, {whole}}, Rect{{0, 4}, {200, 96}}},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        EXPECT_EQ(SchematicDepth::of(one.boxes, twoDisplays, options).pieces.back(), one.lastPiece);
    }
}

TEST(SchematicDepth, HiddenWindowsAreListedWithTheirDisplayFrontToBack) {
    const Rect left{{0, 0}, {200, 100}};
    const Rect right{{210, 0}, {100, 100}};
    const auto result = SchematicDepth::of({{left}, {{{20, 20}, {50, 50}}}, {right, 1}, {right, 1}, {left}},
                                           twoDisplays, options);
    EXPECT_THAT(result.hidden, ElementsAre(ElementsAre(1, 4), ElementsAre(3)));
    EXPECT_THAT(SchematicDepth::of({}, {}, options).hidden, IsEmpty());
}

// Compared with a search over every pair of edges.
TEST(SchematicDepth, NoLargerPieceExistsInRandomStacks) {
    std::mt19937 random(7);
    const auto upTo = [&](int most) {
        return static_cast<double>(std::uniform_int_distribution(0, most)(random));
    };
    for (int round = 0; round < 60; ++round) {
        std::vector<Box> boxes;
        for (int i = 0; i < 6; ++i) {
            boxes.push_back({{{upTo(150), upTo(60)}, {20 + upTo(100), 20 + upTo(60)}}});
        }
        const auto result = SchematicDepth::of(boxes, {twoDisplays[0]}, {.strip = 0, .smallest = 1});
        const Rect body = intersection(boxes.back().frame, twoDisplays[0]);
        const auto isFree = [&](const Rect& piece) {
            return std::all_of(boxes.begin(), boxes.end() - 1,
                               [&](const Box& box) { return intersection(box.frame, piece).isEmpty(); });
        };
        std::vector<double> xs{body.minX(), body.maxX()};
        std::vector<double> ys{body.minY(), body.maxY()};
        for (const Box& box : boxes) {
            for (const double x : {box.frame.minX(), box.frame.maxX()}) {
                xs.push_back(std::clamp(x, body.minX(), body.maxX()));
            }
            for (const double y : {box.frame.minY(), box.frame.maxY()}) {
                ys.push_back(std::clamp(y, body.minY(), body.maxY()));
            }
        }
        double most = 0;
        for (const double x1 : xs) {
            for (const double x2 : xs) {
                for (const double y1 : ys) {
                    for (const double y2 : ys) {
                        const Rect piece{{x1, y1}, {x2 - x1, y2 - y1}};
                        if (!piece.isEmpty() && isFree(piece)) {
                            most = std::max(most, std::min(piece.width(), piece.height() * 1.6) *
                                                      std::sqrt(piece.area()));
                        }
                    }
                }
            }
        }
        const auto& found = result.pieces.back();
        EXPECT_EQ(found.has_value(), most > 0);
        if (found) {
            EXPECT_TRUE(isFree(*found));
            EXPECT_NEAR(std::min(found->width(), found->height() * 1.6) * std::sqrt(found->area()), most,
                        1e-9);
        }
    }
}

TEST(SchematicDepth, TheNameStandsBelowTheIconWhenBothFit) {
    struct Case {
        const char* name;
        Size piece;
        double nameWidth;
        double icon;
        std::optional<double> drawnName;
    };
    constexpr Case cases[] = {
        {"large", {200, 150}, 60, 40, 60},
        {"elided", {70, 60}, 90, 27.6, 60},
        {"too narrow for a name", {50, 60}, 90, 25, std::nullopt},
        {"short name in a narrow piece", {40, 60}, 28, 20, 28},
        {"too low for a name", {100, 30}, 40, 13.8, std::nullopt},
        {"smallest", {13, 13}, 40, 8, std::nullopt},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        const Rect piece{{7, 9}, one.piece};
        const auto label = SchematicDepth::labelOn(piece, {.nameWidth = one.nameWidth});
        EXPECT_NEAR(label.icon.width(), one.icon, 0.01);
        EXPECT_NEAR(label.icon.center().x, piece.center().x, 0.01);
        EXPECT_EQ(label.name ? std::optional(label.name->width()) : std::nullopt, one.drawnName);
        const double bottom = label.name ? label.name->maxY() : label.icon.maxY();
        EXPECT_NEAR(bottom - piece.minY(), piece.maxY() - label.icon.minY(), 0.01);
        EXPECT_LE(bottom, piece.maxY());
    }
}

} // namespace

} // namespace vantrel
