#include "Vantrel/controller/FilesFlow.h"

#include "VantrelCore/stores/StoreRepair.h"

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

using Kind = FileIncident::Kind;

bool holds(const std::vector<FileIncident>& incidents, Kind kind) {
    return std::ranges::find(incidents, kind, &FileIncident::kind) != incidents.end();
}

} // namespace

FilesFlow::FilesFlow(ControllerContext& context, ControllerStores& stores, const StoreFiles& files,
                     std::vector<std::filesystem::path> directories)
    : m_context(context), m_stores(stores), m_files(files), m_incidents(files.incidents()),
      m_directories(std::move(directories)) {
    if (m_incidents == nullptr) {
        return;
    }
    publish();
    // Deferred, because an incident can be reported in the middle of a flow.
    m_incidents->onChange = [this] {
        m_context.ports.mainQueue.post([this, alive = std::weak_ptr(m_alive)] {
            if (alive.lock()) {
                publish();
            }
        });
    };
}

FilesFlow::~FilesFlow() {
    if (m_incidents != nullptr) {
        m_incidents->onChange = {};
    }
}

void FilesFlow::publish() {
    const auto before = m_context.state().fileIncidents;
    const auto& now = m_incidents->all();
    m_context.publisher.publish<StatusTopic>([&](auto& status) { status.fileIncidents = now; });
    const auto isNew = [&](const FileIncident& incident) {
        return incident.kind == Kind::putBack && std::ranges::find(before, incident) == before.end();
    };
    if (std::ranges::any_of(now, isNew)) {
        onPutBack();
    }
}

std::expected<std::filesystem::path, std::string> FilesFlow::putBack(const std::string& copyName) {
    if (m_files.writer() != nullptr) {
        m_files.writer()->finishAll();
    }
    auto file = StoreRepair::putBack(m_files.files(), m_directories, copyName);
    m_context.log("files: " + (file ? copyName + " was put back on request" : file.error()));
    if (file && m_incidents != nullptr) {
        m_incidents->noteReplaced(*file);
        onPutBack();
    }
    return file;
}

void FilesFlow::retry() {
    if (m_incidents != nullptr &&
        (holds(m_incidents->all(), Kind::unreadable) || holds(m_incidents->all(), Kind::stuck))) {
        m_stores.readAll();
    }
}

} // namespace vantrel
