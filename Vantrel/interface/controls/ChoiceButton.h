// A radio button with a title and a sentence below it; the chosen one has a background.
#pragma once

#include <QRadioButton>

namespace vantrel {

class ChoiceButton final : public QRadioButton {
public:
    ChoiceButton(const QString& title, const QString& detail, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    [[nodiscard]] bool hitButton(const QPoint& position) const override;

private:
    // Distance from the leading edge to the texts.
    [[nodiscard]] int indent() const;
    [[nodiscard]] QFont titleFont() const;
    [[nodiscard]] QFont detailFont() const;
    // The height of the wrapped detail.
    [[nodiscard]] int detailHeight(int width) const;

    QString m_detail;
};

} // namespace vantrel
