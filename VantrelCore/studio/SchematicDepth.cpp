#include "VantrelCore/studio/SchematicDepth.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

namespace vantrel::SchematicDepth {

namespace {

bool contains(const Rect& outer, const Rect& inner) {
    return inner.minX() >= outer.minX() && inner.maxX() <= outer.maxX() && inner.minY() >= outer.minY() &&
           inner.maxY() <= outer.maxY();
}

Rect between(double left, double top, double right, double bottom) {
    return {{left, top}, {right - left, bottom - top}};
}

// Prefers pieces that are large and, since a name stands below the icon, wider than high.
double roomOf(const Rect& piece) {
    constexpr double widthToHeight = 1.6;
    return std::min(piece.width(), piece.height() * widthToHeight) * std::sqrt(piece.area());
}

// What is still uncovered of one display: every largest rectangle in it. They overlap, and every uncovered
// rectangle lies in one of them.
class Uncovered {
public:
    Uncovered(const Rect& display, double smallest) : m_smallest(smallest), m_free{display} {}

    [[nodiscard]] std::optional<Rect> best(const Rect& body) const {
        std::optional<Rect> found;
        for (const Rect& free : m_free) {
            const Rect piece = intersection(free, body);
            if (isVisible(piece) && (!found || roomOf(piece) > roomOf(*found))) {
                found = piece;
            }
        }
        return found;
    }

    void cover(const Rect& window) {
        std::vector<Rect> pieces;
        std::erase_if(m_free, [&](const Rect& free) {
            if (intersection(free, window).isEmpty()) {
                return false;
            }
            const std::array around{between(free.minX(), free.minY(), window.minX(), free.maxY()),
                                    between(window.maxX(), free.minY(), free.maxX(), free.maxY()),
                                    between(free.minX(), free.minY(), free.maxX(), window.minY()),
                                    between(free.minX(), window.maxY(), free.maxX(), free.maxY())};
            std::ranges::copy_if(around, std::back_inserter(pieces),
                                 [this](const Rect& piece) { return isVisible(piece); });
            return true;
        });
        for (const Rect& piece : pieces) {
            add(piece);
        }
    }

private:
    [[nodiscard]] bool isVisible(const Rect& piece) const {
        return piece.width() >= m_smallest && piece.height() >= m_smallest;
    }

    void add(const Rect& piece) {
        if (std::ranges::any_of(m_free, [&](const Rect& free) { return contains(free, piece); })) {
            return;
        }
        std::erase_if(m_free, [&](const Rect& free) { return contains(piece, free); });
        m_free.push_back(piece);
    }

    double m_smallest;
    std::vector<Rect> m_free;
};

} // namespace

Result of(const std::vector<Box>& boxes, const std::vector<Rect>& displays, const Options& options) {
    Result result{.pieces = std::vector<std::optional<Rect>>(boxes.size()),
                  .hidden = std::vector<std::vector<std::size_t>>(displays.size())};
    std::vector<Uncovered> uncovered;
    for (const Rect& display : displays) {
        uncovered.emplace_back(display, options.smallest);
    }
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        const Box& box = boxes[i];
        const double strip = std::min(options.strip, box.frame.height());
        const Rect body{{box.frame.minX(), box.frame.minY() + strip},
                        {box.frame.width(), box.frame.height() - strip}};
        result.pieces[i] = uncovered[box.display].best(body);
        if (!result.pieces[i]) {
            result.hidden[box.display].push_back(i);
        }
        uncovered[box.display].cover(box.frame);
    }
    return result;
}

Label labelOn(const Rect& piece, const LabelOptions& options) {
    constexpr double widthShare = 0.5;
    constexpr double heightShare = 0.46;
    constexpr double distance = 2.5;
    constexpr double padding = 5;
    constexpr double margin = 2.5;
    const double wanted = std::clamp(std::min(piece.width() * widthShare, piece.height() * heightShare),
                                     options.smallestIcon, options.largestIcon);
    const double nameRoom = piece.width() - 2 * padding;
    const bool isNamed = piece.height() >= wanted + distance + options.nameHeight + 2 * margin &&
                         (options.nameWidth <= nameRoom || nameRoom > options.narrowestName);
    const double side =
        isNamed ? wanted : std::min({wanted, piece.width() - 2 * margin, piece.height() - 2 * margin});
    const double height = isNamed ? side + distance + options.nameHeight : side;
    const Point corner{piece.center().x - side / 2, piece.center().y - height / 2};
    Label label{.icon = {corner, {side, side}}};
    if (isNamed) {
        const double width = std::min(options.nameWidth, nameRoom);
        label.name =
            Rect{{piece.center().x - width / 2, corner.y + side + distance}, {width, options.nameHeight}};
    }
    return label;
}

} // namespace vantrel::SchematicDepth
