// Facts about the vendor's server that follow from its address alone.
#pragma once

#include <string>
#include <string_view>

namespace vantrel::VendorServer {

// Whether the server can exist: names below "example" are reserved.
[[nodiscard]] bool isReal(std::string_view apiServer);

// The page where a license can be bought.
[[nodiscard]] std::string purchasePage(std::string_view apiServer);

} // namespace vantrel::VendorServer
