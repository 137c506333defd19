// Why the trigger store did not do what it was asked.
#pragma once

namespace vantrel {

enum class TriggerStoreError { capReached, notFound, writeFailed };

} // namespace vantrel
