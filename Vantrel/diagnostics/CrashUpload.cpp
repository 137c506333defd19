#include "Vantrel/diagnostics/CrashUpload.h"

#include <nlohmann/json.hpp>

namespace vantrel::CrashUpload {

namespace {

constexpr double timeoutSeconds = 60.0;

} // namespace

HttpRequest request(std::string_view apiServer, const SystemDescription& system, std::string_view fileName,
                    std::string_view report) {
    const bool isException = fileName.find("-exception") != std::string_view::npos;
    const nlohmann::json body{
        {"version", system.version},
        // The server's key for the operating system, on every platform.
        {"macos", system.operatingSystem},
        {"hardware", system.hardware},
        {"kind", isException ? "exception" : "signal"},
        {"report", report},
    };
    return {.method = HttpMethod::post,
            .url = std::string(apiServer) + "/crash",
            .headers = {{"Content-Type", "application/json"}},
            .body = body.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace),
            .timeoutSeconds = timeoutSeconds};
}

Outcome outcome(const HttpResult& result) {
    return result && result->status >= 200 && result->status <= 299 ? Outcome::uploaded : Outcome::failed;
}

std::string_view message(Outcome outcome) {
    return outcome == Outcome::uploaded ? "crash report uploaded" : "crash report upload failed";
}

} // namespace vantrel::CrashUpload
