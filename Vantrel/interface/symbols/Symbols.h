// The interface's symbols, in any colour and at any size: the system's where it has them, else line drawings
// on a grid of 16 units.
#pragma once

#include "VantrelCore/ports/SystemSymbols.h"

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

// Whether there is a drawing.
[[nodiscard]] bool exists(std::string_view name);

// Our symbol for one that SceneIconography has chosen.
[[nodiscard]] std::string_view ofSystemSymbol(std::string_view name);

// Takes symbols from the system, which outlives their use; null for drawings only.
void useSystem(SystemSymbols* symbols);

} // namespace vantrel::Symbols
