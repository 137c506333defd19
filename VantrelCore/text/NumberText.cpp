#include "VantrelCore/text/NumberText.h"
#include "VantrelCore/text/Translation.h"

#include <cstdlib>
#include <fmt/format.h>

namespace vantrel::NumberText {

std::string grouped(std::int64_t number) {
    if (number > -1000 && number < 1000) {
        return std::to_string(number);
    }
    // translators: the digits before and after a separator of thousands
    return trf("{},{:03}", grouped(number / 1000), std::abs(number % 1000));
}

std::string oneDecimal(double number) {
    std::string digits = fmt::format("{:.1f}", number);
    const auto point = digits.find('.');
    if (point == std::string::npos) {
        return digits; // not a finite number
    }
    // translators: the digits before and after the decimal point
    return trf("{}.{}", digits.substr(0, point), digits.substr(point + 1));
}

} // namespace vantrel::NumberText
