// Why a scene store operation failed.
#pragma once

namespace vantrel {

enum class SceneStoreError { capReached, invalidName, notFound, writeFailed, pinned };

} // namespace vantrel
