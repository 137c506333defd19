// Uploads one crash report to the vendor's server: the request, and how to interpret the response.
#pragma once

#include "VantrelCore/diagnostics/SystemDescription.h"
#include "VantrelCore/ports/HttpClient.h"

#include <string>
#include <string_view>

namespace vantrel::CrashUpload {

// `apiServer` has no trailing slash. `report` is the file's content; invalid UTF-8 is replaced.
[[nodiscard]] HttpRequest request(std::string_view apiServer, const SystemDescription& system,
                                  std::string_view fileName, std::string_view report);

enum class Outcome : std::uint8_t {
    // The server has the report; the file can be deleted.
    uploaded,
    // The file is kept for the next start.
    failed,
};

[[nodiscard]] Outcome outcome(const HttpResult& result);

// For the log.
[[nodiscard]] std::string_view message(Outcome outcome);

} // namespace vantrel::CrashUpload
