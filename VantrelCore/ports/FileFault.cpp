#include "VantrelCore/ports/FileFault.h"

#include <string>

namespace vantrel {

namespace {

class Category final : public std::error_category {
public:
    [[nodiscard]] const char* name() const noexcept override { return "vantrel.file"; }
    [[nodiscard]] std::string message(int /*fault*/) const override {
        return "the disk has not confirmed the write";
    }
};

} // namespace

std::error_code make_error_code(FileFault fault) {
    static const Category category;
    return {static_cast<int>(fault), category};
}

} // namespace vantrel
