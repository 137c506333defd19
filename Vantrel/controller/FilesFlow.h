// Publishes what is the matter with the program's files, and tries again what could not be read.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/ControllerStores.h"

#include <expected>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace vantrel {

class FilesFlow {
public:
    // The stores keep their files in `directory`. All outlive it; without incidents there is nothing to tell.
    FilesFlow(ControllerContext& context, ControllerStores& stores, const StoreFiles& files,
              std::filesystem::path directory);
    ~FilesFlow();
    FilesFlow(const FilesFlow&) = delete;
    FilesFlow& operator=(const FilesFlow&) = delete;

    // Reads the stores whose files could not be read so far.
    void retry();

    // The same as StoreRepair's; the stores read the file anew.
    [[nodiscard]] std::expected<std::filesystem::path, std::string> putBack(const std::string& copyName);

    // Called when a store has its records back.
    std::function<void()> onPutBack = [] {};

private:
    void publish();

    ControllerContext& m_context;
    ControllerStores& m_stores;
    StoreFiles m_files;
    FileIncidents* m_incidents;
    std::filesystem::path m_directory;
    // Expires with the flow.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace vantrel
