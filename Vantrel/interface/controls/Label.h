// A line or paragraph of text in one of the interface's few roles; it follows palette and font.
#pragma once

#include <QLabel>

#include <cstdint>

namespace vantrel {

class Label final : public QLabel {
public:
    enum class Role : std::uint8_t {
        title,
        heading,
        // Above a group.
        group,
        text,
        strong,
        // As large as text, in the second colour.
        quiet,
        // Smaller and in the second colour.
        second,
        problem,
        warning,
    };

    explicit Label(Role role, QWidget* parent = nullptr);

    // Elided with a tooltip when there is no room; else it wraps.
    void setElided(bool isElided);
    void show(const QString& text);
    using QLabel::show;

    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void align();
    void dress();
    void fit();

    Role m_role;
    QString m_full;
    bool m_isElided = false;
    bool m_isDressing = false;
};

} // namespace vantrel
