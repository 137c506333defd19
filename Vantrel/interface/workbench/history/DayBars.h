// A small bar chart: a bar per day, the last one today.
#pragma once

#include <QWidget>

#include <cstdint>
#include <vector>

namespace vantrel {

class DayBars final : public QWidget {
public:
    explicit DayBars(QWidget* parent = nullptr);

    // `text` says the same in words.
    void show(const std::vector<std::int64_t>& days, const QString& text);
    using QWidget::show;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    // The days' values, oldest first. Drawn from left to right in every language.
    [[nodiscard]] QRectF column(std::size_t day) const;

    std::vector<std::int64_t> m_days;
};

} // namespace vantrel
