// Publishes problems with the program's files, and retries files that could not be read.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/ControllerStores.h"

#include <expected>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vantrel {

class FilesFlow {
public:
    // The stores keep their files in `directories`. All arguments outlive this flow. Without incidents
    // nothing is published.
    FilesFlow(ControllerContext& context, ControllerStores& stores, const StoreFiles& files,
              std::vector<std::filesystem::path> directories);
    ~FilesFlow();
    FilesFlow(const FilesFlow&) = delete;
    FilesFlow& operator=(const FilesFlow&) = delete;

    // Retries the stores whose files could not be read.
    void retry();

    // Like StoreRepair's putBack(); the stores then read the file again.
    [[nodiscard]] std::expected<std::filesystem::path, std::string> putBack(const std::string& copyName);

    // Called when a store has recovered its records.
    std::function<void()> onPutBack = [] {};

private:
    void publish();

    ControllerContext& m_context;
    ControllerStores& m_stores;
    StoreFiles m_files;
    FileIncidents* m_incidents;
    std::vector<std::filesystem::path> m_directories;
    // Expires with the flow.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace vantrel
