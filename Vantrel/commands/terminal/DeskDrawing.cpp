#include "Vantrel/commands/terminal/DeskDrawing.h"

#include "Vantrel/commands/terminal/CellCanvas.h"
#include "Vantrel/commands/terminal/TextCells.h"
#include "VantrelCore/displays/DisplayLabels.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace vantrel::DeskDrawing {

namespace {

struct Style {
    BoxStyle display;
    BoxStyle window;
    std::string_view ellipsis;
    std::string_view times;
    std::string_view separator;
};

constexpr Style unicodeStyle{{"━", "┃", "┏", "┓", "┗", "┛"}, {"─", "│", "┌", "┐", "└", "┘"}, "…", "×", " · "};
constexpr Style asciiStyle{{"=", "#", "#", "#", "#", "#"}, {"-", "|", "+", "+", "+", "+"}, "..", "x", ", "};

// A terminal cell is about twice as tall as it is wide.
constexpr double cellHeight = 2;

constexpr int narrowestDisplay = 8;
constexpr int lowestDisplay = 3;

const Style& style(const Options& options) {
    return options.characters == Characters::ascii ? asciiStyle : unicodeStyle;
}

// A window may be anywhere; these bounds are far beyond every canvas.
int bounded(double cells) {
    return static_cast<int>(std::clamp(std::round(cells), -10'000.0, 10'000.0));
}

// Converts points to cells. One factor for the whole desk keeps the displays' relative positions.
class Scale {
public:
    Scale(const std::vector<DisplayInfo>& displays, const Options& options) {
        m_bounds = displays.front().frame;
        for (const auto& display : displays) {
            const auto left = std::min(m_bounds.minX(), display.frame.minX());
            const auto top = std::min(m_bounds.minY(), display.frame.minY());
            m_bounds.size = {std::max(m_bounds.maxX(), display.frame.maxX()) - left,
                             std::max(m_bounds.maxY(), display.frame.maxY()) - top};
            m_bounds.origin = {left, top};
        }
        m_cellsPerPoint = std::min(options.columns / std::max(m_bounds.width(), 1.0),
                                   options.rows * cellHeight / std::max(m_bounds.height(), 1.0));
    }

    [[nodiscard]] CellRect cells(const Rect& frame) const {
        return {column(frame.minX()), row(frame.minY()), column(frame.maxX()) - 1, row(frame.maxY()) - 1};
    }

private:
    [[nodiscard]] int column(double x) const { return bounded((x - m_bounds.minX()) * m_cellsPerPoint); }

    [[nodiscard]] int row(double y) const {
        return bounded((y - m_bounds.minY()) * m_cellsPerPoint / cellHeight);
    }

    Rect m_bounds;
    double m_cellsPerPoint = 0;
};

// The inside of a display's box represents the whole display, so that adjacent windows touch and a window
// that fills the display fills the box.
CellRect windowCells(const Rect& window, const Rect& display, const CellRect& box) {
    const auto column = [&](double x) {
        return box.left + 1 + bounded((x - display.minX()) / display.width() * (box.right - box.left - 1));
    };
    const auto row = [&](double y) {
        return box.top + 1 + bounded((y - display.minY()) / display.height() * (box.bottom - box.top - 1));
    };
    return {column(window.minX()), row(window.minY()), column(window.maxX()) - 1, row(window.maxY()) - 1};
}

std::string sizeText(Size size, const Options& options) {
    return fmt::format("{}{}{}", wholePoints(size.width), style(options).times, wholePoints(size.height));
}

void drawDisplay(CellCanvas& canvas, const CellRect& rect, const DisplayInfo& display,
                 const Options& options) {
    const auto& characters = style(options);
    canvas.box(rect, characters.display);
    const int room = rect.right - rect.left - 3;
    const auto full = fmt::format(" {} {} ", display.name, sizeText(display.frame.size, options));
    const auto name = fmt::format(" {} ", display.name);
    canvas.text(rect.left + 2, rect.top, TextCells::width(full) <= room ? full : name, room,
                characters.ellipsis);
}

void drawWindow(CellCanvas& canvas, CellRect rect, const std::string& label, const Options& options) {
    rect.right = std::max(rect.right, rect.left + 1);
    rect.bottom = std::max(rect.bottom, rect.top + 1);
    const auto& characters = style(options);
    canvas.box(rect, characters.window);
    const bool hasInside = rect.bottom - rect.top >= 2;
    canvas.text(rect.left + 1, hasInside ? rect.top + 1 : rect.top, label, rect.right - rect.left - 1,
                characters.ellipsis);
}

// Indices from front to back; equal depths keep their order.
std::vector<std::size_t> frontToBack(const std::vector<WindowRecord>& windows) {
    std::vector<std::size_t> order(windows.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        order[i] = i;
    }
    std::ranges::stable_sort(order, {}, [&](std::size_t i) { return windows[i].zOrder; });
    return order;
}

} // namespace

std::string_view ellipsis(const Options& options) {
    return style(options).ellipsis;
}

std::string_view separator(const Options& options) {
    return style(options).separator;
}

std::string line(std::string_view text, const Options& options) {
    auto fitted = TextCells::fitted(text, options.columns, ellipsis(options));
    fitted.erase(fitted.find_last_not_of(' ') + 1);
    return fitted + '\n';
}

std::string drawing(const std::vector<DisplayInfo>& sameNamed, const std::vector<WindowRecord>& windows,
                    const Options& options) {
    const auto displays = DisplayLabels::labelled(sameNamed);
    if (displays.empty() || options.columns < narrowestDisplay || options.rows < lowestDisplay) {
        return {};
    }
    const Scale scale(displays, options);
    std::vector<CellRect> boxes;
    CellRect canvasRect;
    for (const auto& display : displays) {
        auto box = scale.cells(display.frame);
        box.right = std::max(box.right, box.left + narrowestDisplay - 1);
        box.bottom = std::max(box.bottom, box.top + lowestDisplay - 1);
        canvasRect.right = std::max(canvasRect.right, std::min(box.right, options.columns - 1));
        canvasRect.bottom = std::max(canvasRect.bottom, box.bottom);
        boxes.push_back(box);
    }
    CellCanvas canvas(canvasRect.right + 1, canvasRect.bottom + 1);
    for (std::size_t i = 0; i < displays.size(); ++i) {
        drawDisplay(canvas, boxes[i], displays[i], options);
    }
    const auto order = frontToBack(windows);
    for (std::size_t back = order.size(); back > 0; --back) {
        const auto& window = windows[order[back - 1]];
        const auto label = fmt::format("{} {}", back, window.appName);
        for (std::size_t i = 0; i < displays.size(); ++i) {
            if (intersection(window.frame, displays[i].frame).isEmpty()) {
                continue;
            }
            const auto& box = boxes[i];
            canvas.setClip({box.left + 1, box.top + 1, box.right - 1, box.bottom - 1});
            const auto rect = windowCells(window.frame, displays[i].frame, box);
            drawWindow(canvas, rect, label, options);
        }
    }
    return canvas.rows();
}

std::string windowList(const std::vector<DisplayInfo>& sameNamed, const std::vector<WindowRecord>& windows,
                       const Options& options) {
    const auto displays = DisplayLabels::labelled(sameNamed);
    constexpr int appColumns = 16;
    constexpr int displayColumns = 26;
    std::string result;
    int number = 0;
    for (const auto index : frontToBack(windows)) {
        const auto& window = windows[index];
        const auto display = std::ranges::find(displays, window.displayUUID, &DisplayInfo::uuid);
        auto place = trf("{} at {},{}", sizeText(window.frame.size, options),
                         wholePoints(window.frame.minX()), wholePoints(window.frame.minY()));
        if (displays.size() > 1 && display != displays.end()) {
            place = trf("{} on {}", place,
                        TextCells::fitted(display->name, displayColumns, style(options).ellipsis));
        }
        const auto head = fmt::format("{:>3} {} ", ++number,
                                      TextCells::padded(window.appName, appColumns, style(options).ellipsis));
        const int room = options.columns - TextCells::width(head) - TextCells::width(place) - 2;
        if (room < 1) {
            result += line(head + place, options);
            continue;
        }
        result += head + TextCells::padded(window.title, room, style(options).ellipsis) + "  " + place + '\n';
    }
    return result;
}

} // namespace vantrel::DeskDrawing
