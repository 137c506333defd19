// The interface's symbols: line drawings on a grid of 16 units, in any colour and at any size.
#pragma once

#include <QColor>
#include <QIcon>
#include <QPalette>
#include <QRectF>

#include <string_view>

class QPainter;

namespace vantrel::Symbols {

void paint(QPainter& painter, std::string_view name, const QRectF& square, const QColor& color);

// In a colour of the application's palette, which it follows.
[[nodiscard]] QIcon icon(std::string_view name, QPalette::ColorRole role = QPalette::ButtonText);

[[nodiscard]] bool exists(std::string_view name);

// Our symbol for one that SceneIconography has chosen.
[[nodiscard]] std::string_view ofSystemSymbol(std::string_view name);

} // namespace vantrel::Symbols
