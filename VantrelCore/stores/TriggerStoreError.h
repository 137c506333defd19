// Why a trigger store operation failed.
#pragma once

namespace vantrel {

enum class TriggerStoreError { capReached, notFound, writeFailed };

} // namespace vantrel
