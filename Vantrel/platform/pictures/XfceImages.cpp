#include "Vantrel/platform/pictures/XfceImages.h"

#include "Vantrel/platform/gio/GioHandle.h"

#include <string_view>

namespace vantrel {

std::map<std::string, std::string> xfceImages(GVariant* reply) {
    std::map<std::string, std::string> result;
    if (g_variant_is_of_type(reply, G_VARIANT_TYPE("(a{sv})")) == FALSE) {
        return result;
    }
    GVariantIter* entries = nullptr;
    g_variant_get(reply, "(a{sv})", &entries);
    const char* key = nullptr;
    GVariant* value = nullptr;
    while (g_variant_iter_next(entries, "{&sv}", &key, &value) != FALSE) {
        const GLibHandle<GVariant> owned(value);
        if (std::string_view(key).ends_with(xfceImageKey) &&
            g_variant_is_of_type(value, G_VARIANT_TYPE_STRING) != FALSE) {
            result[key] = g_variant_get_string(value, nullptr);
        }
    }
    g_variant_iter_free(entries);
    return result;
}

} // namespace vantrel
