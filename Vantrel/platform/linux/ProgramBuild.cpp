#include "Vantrel/platform/linux/ProgramBuild.h"

#include <cstring>
#include <elf.h>
#include <fmt/format.h>
#include <link.h>
#include <span>
#include <string_view>

namespace vantrel {

namespace {

constexpr std::size_t aligned(std::size_t size) {
    return (size + 3) / 4 * 4;
}

// Notes are a sequence of headers, each followed by the owner's name and the content.
std::string buildIn(std::string_view notes) {
    while (notes.size() >= sizeof(ElfW(Nhdr))) {
        ElfW(Nhdr) header{};
        std::memcpy(&header, notes.data(), sizeof(header));
        notes.remove_prefix(sizeof(header));
        const std::size_t nameSize = aligned(header.n_namesz);
        const std::size_t size = nameSize + aligned(header.n_descsz);
        if (size > notes.size()) {
            break;
        }
        if (header.n_type == NT_GNU_BUILD_ID && notes.starts_with("GNU")) {
            std::string text;
            for (const char byte : notes.substr(nameSize, header.n_descsz)) {
                text += fmt::format("{:02x}", static_cast<unsigned char>(byte));
            }
            return text;
        }
        notes.remove_prefix(size);
    }
    return {};
}

// The program itself comes first. A nonzero return value ends the iteration.
int readProgram(dl_phdr_info* object, std::size_t /*size*/, void* build) {
    for (const auto& segment : std::span(object->dlpi_phdr, object->dlpi_phnum)) {
        if (segment.p_type != PT_NOTE) {
            continue;
        }
        // The loader reports addresses as integers.
        const auto address = object->dlpi_addr + segment.p_vaddr;
        // NOLINTNEXTLINE(performance-no-int-to-ptr)
        const auto* const notes = reinterpret_cast<const char*>(address);
        auto found = buildIn({notes, segment.p_memsz});
        if (!found.empty()) {
            *static_cast<std::string*>(build) = std::move(found);
            break;
        }
    }
    return 1;
}

} // namespace

std::string programBuild() {
    std::string build;
    dl_iterate_phdr(readProgram, &build);
    return build.empty() ? "unknown" : build;
}

} // namespace vantrel
