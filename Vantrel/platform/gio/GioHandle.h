// Owning handles for GLib objects.
#pragma once

#include <gio/gio.h>
#include <memory>

namespace vantrel {

struct GObjectDeleter {
    void operator()(gpointer object) const { g_object_unref(object); }
};

struct GLibDeleter {
    void operator()(GVariant* variant) const { g_variant_unref(variant); }

    void operator()(GMainContext* context) const { g_main_context_unref(context); }

    void operator()(GMainLoop* loop) const { g_main_loop_unref(loop); }

    void operator()(GSource* source) const { g_source_unref(source); }

    void operator()(GSettingsSchema* schema) const { g_settings_schema_unref(schema); }
};

template <typename T>
using GObjectHandle = std::unique_ptr<T, GObjectDeleter>;
template <typename T>
using GLibHandle = std::unique_ptr<T, GLibDeleter>;

} // namespace vantrel
