// What is known of the vendor's server by its address alone.
#pragma once

#include <string>
#include <string_view>

namespace vantrel::VendorServer {

// Whether it can exist at all: names below "example" are reserved and belong to nobody.
[[nodiscard]] bool isReal(std::string_view apiServer);

// Where a license is bought.
[[nodiscard]] std::string purchasePage(std::string_view apiServer);

} // namespace vantrel::VendorServer
