// One crash report's way to the vendor's server: the request, and what the answer means.
#pragma once

#include "VantrelCore/diagnostics/SystemDescription.h"
#include "VantrelCore/ports/HttpClient.h"

#include <string>
#include <string_view>

namespace vantrel::CrashUpload {

// `apiServer` without a slash at the end; `report` is the file's content, of which bytes that are no UTF-8
// are replaced.
[[nodiscard]] HttpRequest request(std::string_view apiServer, const SystemDescription& system,
                                  std::string_view fileName, std::string_view report);

enum class Outcome : std::uint8_t {
    // The server has the report: the file may go.
    uploaded,
    // The file stays for the next start.
    failed,
};

[[nodiscard]] Outcome outcome(const HttpResult& result);

// For the log.
[[nodiscard]] std::string_view message(Outcome outcome);

} // namespace vantrel::CrashUpload
