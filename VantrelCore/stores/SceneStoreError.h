// Why the scene store did not do what it was asked.
#pragma once

namespace vantrel {

enum class SceneStoreError { capReached, invalidName, notFound, writeFailed, pinned };

} // namespace vantrel
