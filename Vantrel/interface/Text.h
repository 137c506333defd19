// The one place that the interface's texts go through on their way to people, so that a translation is a
// file.
#pragma once

#include <QString>

#include <string>

namespace vantrel {

// The translation, or the text itself.
[[nodiscard]] std::string tr(const char* text);
[[nodiscard]] QString qtr(const char* text);

[[nodiscard]] inline QString qt(const std::string& text) {
    return QString::fromStdString(text);
}

} // namespace vantrel
