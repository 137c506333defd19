// A push button with a symbol and a second text: beside the title in a wide one, below it in a high one. A
// filled one marks the main action; a surface has at most one.
#pragma once

#include <QPushButton>

#include <cstdint>
#include <string>

namespace vantrel {

class ActionButton final : public QPushButton {
public:
    enum class Form : std::uint8_t { wide, high, plain };

    ActionButton(std::string symbol, Form form, QWidget* parent = nullptr);

    void setTexts(const QString& title, const QString& detail);
    void setFilled(bool isFilled);
    void setSymbol(const std::string& symbol);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QFont titleFont() const;
    [[nodiscard]] QFont detailFont() const;
    void paintGround(QPainter& painter);
    void paintMenuSign(QPainter& painter);

    std::string m_symbol;
    Form m_form;
    QString m_title;
    QString m_detail;
    bool m_isFilled = false;
};

} // namespace vantrel
