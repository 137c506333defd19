// A small button that shows only a symbol; its text is its tooltip and accessible name.
#pragma once

#include <QToolButton>

#include <string>

namespace vantrel {

class SymbolButton final : public QToolButton {
public:
    // `side` is for a font of 13 pixels.
    SymbolButton(const std::string& symbol, const QString& text, double side, QWidget* parent = nullptr);

    void setSymbol(const std::string& symbol);
    void setText(const QString& text);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::string m_symbol;
    double m_side;
};

} // namespace vantrel
