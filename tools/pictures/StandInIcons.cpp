#include "tools/pictures/StandInIcons.h"

#include "Vantrel/interface/symbols/PaintedIconEngine.h"
#include "Vantrel/interface/symbols/SvgPath.h"

#include <QPainter>

#include <algorithm>
#include <map>
#include <vector>

namespace vantrel::pictures {

namespace {

// On a grid of this many units.
constexpr double grid = 24;

struct Shape {
    const char* path;
    const char* fill;
    const char* stroke;
    double width;
};

const std::map<std::string, std::vector<Shape>>& drawings() {
    static const std::map<std::string, std::vector<Shape>> all{
        {"Terminal",
         {{"M7 2h10a5 5 0 0 1 5 5v10a5 5 0 0 1 -5 5h-10a5 5 0 0 1 -5 -5v-10a5 5 0 0 1 5 -5z", "#30363d",
           "none", 0},
          {"M6.5 8.5l3.5 3.5-3.5 3.5", "none", "#ffffff", 1.8},
          {"M12 16h5", "none", "#ffffff", 1.8}}},
        {"Files",
         {{"M2 6.5A2.5 2.5 0 0 1 4.5 4h4.7l2.3 2.6h8A2.5 2.5 0 0 1 22 9.1v9.4a2.5 2.5 0 0 1-2.5 2.5h-15A2.5 "
           "2.5 0 0 1 2 18.5z",
           "#3b82d0", "none", 0},
          {"M2 11a2 2 0 0 1 2-2h16a2 2 0 0 1 2 2v7.5a2.5 2.5 0 0 1-2.5 2.5h-15A2.5 2.5 0 0 1 2 18.5z",
           "#79b4f2", "none", 0}}},
        {"Firefox",
         {{"M2.3 12.5a9.7 9.7 0 1 0 19.4 0a9.7 9.7 0 1 0 -19.4 0z", "#f0672a", "none", 0},
          {"M12 2.8c5.5 0 9.7 4.2 9.7 9.7-.700-3-2.5-4.6-4.3-5.2.300 1 .300 2 .100 2.9C16.4 7 14 5.7 12 2.8z",
           "#ffb52e", "none", 0},
          {"M6.3 13.7a5.2 5.2 0 1 0 10.4 0a5.2 5.2 0 1 0 -10.4 0z", "#6b45c4", "none", 0}}},
        {"Mail",
         {{"M5.5 4h13a4 4 0 0 1 4 4v8a4 4 0 0 1 -4 4h-13a4 4 0 0 1 -4 -4v-8a4 4 0 0 1 4 -4z", "#2f7de0",
           "none", 0},
          {"M4.5 8l7.5 5.5L19.5 8", "none", "#ffffff", 1.8}}},
        {"Code",
         {{"M7 2h10a5 5 0 0 1 5 5v10a5 5 0 0 1 -5 5h-10a5 5 0 0 1 -5 -5v-10a5 5 0 0 1 5 -5z", "#1f6f9f",
           "none", 0},
          {"M9 8l-4 4 4 4M15 8l4 4-4 4", "none", "#ffffff", 1.8}}},
        {"Music",
         {{"M7 2h10a5 5 0 0 1 5 5v10a5 5 0 0 1 -5 5h-10a5 5 0 0 1 -5 -5v-10a5 5 0 0 1 5 -5z", "#d63d62",
           "none", 0},
          {"M6.4 16a2.4 2.4 0 1 0 4.8 0a2.4 2.4 0 1 0 -4.8 0z", "#ffffff", "none", 0},
          {"M13.4 14.6a2.4 2.4 0 1 0 4.8 0a2.4 2.4 0 1 0 -4.8 0z", "#ffffff", "none", 0},
          {"M11 16V8l7-1.4v8", "none", "#ffffff", 1.7}}},
        {"Calendar",
         {{"M6 2.5h12a4 4 0 0 1 4 4v11.5a4 4 0 0 1 -4 4h-12a4 4 0 0 1 -4 -4v-11.5a4 4 0 0 1 4 -4z", "#ffffff",
           "none", 0},
          {"M2 6.5a4 4 0 0 1 4-4h12a4 4 0 0 1 4 4V9H2z", "#d8483c", "none", 0},
          {"M6.8 11.5h1.4a0.8 0.8 0 0 1 0.8 0.8v1.4a0.8 0.8 0 0 1 -0.8 0.8h-1.4a0.8 0.8 0 0 1 -0.8 "
           "-0.8v-1.4a0.8 0.8 0 0 1 0.8 -0.8z",
           "#5b626b", "none", 0},
          {"M11.3 11.5h1.4a0.8 0.8 0 0 1 0.8 0.8v1.4a0.8 0.8 0 0 1 -0.8 0.8h-1.4a0.8 0.8 0 0 1 -0.8 "
           "-0.8v-1.4a0.8 0.8 0 0 1 0.8 -0.8z",
           "#5b626b", "none", 0},
          {"M15.8 11.5h1.4a0.8 0.8 0 0 1 0.8 0.8v1.4a0.8 0.8 0 0 1 -0.8 0.8h-1.4a0.8 0.8 0 0 1 -0.8 "
           "-0.8v-1.4a0.8 0.8 0 0 1 0.8 -0.8z",
           "#5b626b", "none", 0},
          {"M6.8 16h1.4a0.8 0.8 0 0 1 0.8 0.8v1.4a0.8 0.8 0 0 1 -0.8 0.8h-1.4a0.8 0.8 0 0 1 -0.8 "
           "-0.8v-1.4a0.8 0.8 0 0 1 0.8 -0.8z",
           "#5b626b", "none", 0},
          {"M11.3 16h1.4a0.8 0.8 0 0 1 0.8 0.8v1.4a0.8 0.8 0 0 1 -0.8 0.8h-1.4a0.8 0.8 0 0 1 -0.8 "
           "-0.8v-1.4a0.8 0.8 0 0 1 0.8 -0.8z",
           "#d8483c", "none", 0},
          {"M6.05 2.75h11.9a3.8 3.8 0 0 1 3.8 3.8v11.4a3.8 3.8 0 0 1 -3.8 3.8h-11.9a3.8 3.8 0 0 1 -3.8 "
           "-3.8v-11.4a3.8 3.8 0 0 1 3.8 -3.8z",
           "none", "#22000000", .5}}},
        {"Notes",
         {{"M7 2h10a5 5 0 0 1 5 5v10a5 5 0 0 1 -5 5h-10a5 5 0 0 1 -5 -5v-10a5 5 0 0 1 5 -5z", "#f3c63f",
           "none", 0},
          {"M7 9h10M7 12.5h10M7 16h6", "none", "#6b5200", 1.6}}},
        {"Chat",
         {{"M6 3h12a4 4 0 0 1 4 4v7a4 4 0 0 1-4 4h-6l-5 4v-4H6a4 4 0 0 1-4-4V7a4 4 0 0 1 4-4z", "#2f9e6b",
           "none", 0},
          {"M6.6 10.5a1.4 1.4 0 1 0 2.8 0a1.4 1.4 0 1 0 -2.8 0z", "#ffffff", "none", 0},
          {"M10.6 10.5a1.4 1.4 0 1 0 2.8 0a1.4 1.4 0 1 0 -2.8 0z", "#ffffff", "none", 0},
          {"M14.6 10.5a1.4 1.4 0 1 0 2.8 0a1.4 1.4 0 1 0 -2.8 0z", "#ffffff", "none", 0}}},
        {"Documents",
         {{"M6.5 2h8L20 7.5v12a2.5 2.5 0 0 1-2.5 2.5h-11A2.5 2.5 0 0 1 4 19.5v-15A2.5 2.5 0 0 1 6.5 2z",
           "#8061c9", "none", 0},
          {"M14.5 2L20 7.5h-4a1.5 1.5 0 0 1-1.5-1.5z", "#c3b2ef", "none", 0},
          {"M8 12h8M8 15.5h8", "none", "#ffffff", 1.6}}},
        {"Meet",
         {{"M7 2h10a5 5 0 0 1 5 5v10a5 5 0 0 1 -5 5h-10a5 5 0 0 1 -5 -5v-10a5 5 0 0 1 5 -5z", "#158b86",
           "none", 0},
          {"M7 8h5a2 2 0 0 1 2 2v4a2 2 0 0 1 -2 2h-5a2 2 0 0 1 -2 -2v-4a2 2 0 0 1 2 -2z", "#ffffff", "none",
           0},
          {"M15 11l4-2.6v7.2L15 13z", "#ffffff", "none", 0}}},
        {"Drawing",
         {{"M7 2h10a5 5 0 0 1 5 5v10a5 5 0 0 1 -5 5h-10a5 5 0 0 1 -5 -5v-10a5 5 0 0 1 5 -5z", "#9a4fb8",
           "none", 0},
          {"M6.5 17.5c3 .500 4-1.5 3.5-3.5l6-7.5 1.5 1.5-7 6.3", "none", "#ffffff", 1.7}}},
        {"Monitor",
         {{"M7 2h10a5 5 0 0 1 5 5v10a5 5 0 0 1 -5 5h-10a5 5 0 0 1 -5 -5v-10a5 5 0 0 1 5 -5z", "#2e5b41",
           "none", 0},
          {"M5 14h3l2-6 3.5 9 2-5H19", "none", "#9be6b4", 1.6}}},
    };
    return all;
}

QColor color(const char* name) {
    return QString::fromLatin1(name) == QLatin1String("none") ? QColor(Qt::transparent) : QColor(name);
}

class Engine final : public PaintedIconEngine {
public:
    explicit Engine(const std::vector<Shape>& shapes) : m_shapes(shapes) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / grid, rect.height() / grid);
        for (const Shape& shape : m_shapes) {
            painter->setBrush(color(shape.fill));
            painter->setPen(shape.width > 0 ? QPen(color(shape.stroke), shape.width, Qt::SolidLine,
                                                   Qt::RoundCap, Qt::RoundJoin)
                                            : QPen(Qt::NoPen));
            painter->drawPath(svgPath(shape.path));
        }
        painter->restore();
    }

    [[nodiscard]] QIconEngine* clone() const override { return new Engine(m_shapes); }

private:
    const std::vector<Shape>& m_shapes;
};

} // namespace

QIcon StandInIcons::icon(const std::string& bundleID) {
    const auto found = drawings().find(bundleID.substr(bundleID.find_last_of('.') + 1));
    return found == drawings().end() ? QIcon() : QIcon(new Engine(found->second));
}

} // namespace vantrel::pictures
