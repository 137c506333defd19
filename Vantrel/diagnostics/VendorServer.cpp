#include "Vantrel/diagnostics/VendorServer.h"

namespace vantrel::VendorServer {

bool isReal(std::string_view apiServer) {
    const auto host = apiServer.substr(0, apiServer.find_last_not_of("0123456789:") + 1);
    return !host.empty() && !host.ends_with(".example");
}

std::string purchasePage(std::string_view apiServer) {
    return std::string(apiServer) + "/buy/personal";
}

} // namespace vantrel::VendorServer
