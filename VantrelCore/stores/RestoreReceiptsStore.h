// "receipts.json": the restore receipts, without a version key.
#pragma once

#include "VantrelCore/model/RestoreReceipts.h"
#include "VantrelCore/stores/JsonStore.h"

namespace vantrel {

using RestoreReceiptsStore = JsonStore<RestoreReceipts>;

[[nodiscard]] inline std::expected<RestoreReceiptsStore, std::error_code>
openRestoreReceipts(const std::filesystem::path& directory, const StoreFiles& files) {
    return RestoreReceiptsStore::open(directory, "receipts.json", files);
}

} // namespace vantrel
