#include "VantrelCore/stores/FileIncident.h"
#include "VantrelCore/text/Translation.h"

#include <fmt/format.h>

namespace vantrel {

using Kind = FileIncident::Kind;

FileIncident::Topic FileIncident::topic() const {
    switch (kind) {
    case Kind::notWritten:
    case Kind::notFlushed:
        return Topic::writing;
    case Kind::newerKept:
    case Kind::expiredKept:
        return Topic::copy;
    case Kind::unreadable:
    case Kind::undecodable:
    case Kind::stuck:
    case Kind::putBack:
        break;
    }
    return Topic::content;
}

bool FileIncident::isTrouble() const {
    return kind != Kind::putBack && topic() != Topic::copy;
}

namespace FileIncidentText {

std::string name(Kind kind) {
    switch (kind) {
    case Kind::unreadable:
        return "unreadable";
    case Kind::undecodable:
        return "undecodable";
    case Kind::stuck:
        return "stuck";
    case Kind::putBack:
        return "putBack";
    case Kind::notWritten:
        return "notWritten";
    case Kind::notFlushed:
        return "notFlushed";
    case Kind::newerKept:
        return "newerKept";
    case Kind::expiredKept:
        return "expiredKept";
    }
    return "";
}

std::string headline(const FileIncident& incident) {
    const std::string file = incident.file.filename().string();
    switch (incident.topic()) {
    case FileIncident::Topic::writing:
        return trf("{} could not be saved", file);
    case FileIncident::Topic::copy:
        return trf("A copy of {} was kept", file);
    case FileIncident::Topic::content:
        break;
    }
    return incident.isTrouble() ? trf("{} could not be read", file) : trf("{} can be read again", file);
}

std::string sentence(const FileIncident& incident) {
    const std::string file = incident.file.filename().string();
    const std::string copy = incident.copy.filename().string();
    const std::string& reason = incident.reason;
    switch (incident.kind) {
    case Kind::unreadable:
        return trf("{} could not be read ({}). It was moved to {} and will be put back once it can be "
                   "read, unless something new is saved first.",
                   file, reason, copy);
    case Kind::undecodable:
        return trf("{} is damaged ({}). Its content was kept as {}.", file, reason, copy);
    case Kind::stuck:
        return trf("{} cannot be used ({}). It is left as it is, and nothing is saved to it until it "
                   "can be read or moved aside.",
                   file, reason);
    case Kind::putBack:
        return trf("{} can be read again and is back in use.", file);
    case Kind::notWritten:
        return trf("{} could not be written ({}). The last change was not saved.", file, reason);
    case Kind::notFlushed:
        return trf("{} was written, but the disk has not confirmed it. The last change may be lost if "
                   "the computer stops now.",
                   file);
    case Kind::newerKept:
        return trf("{} was written by a newer version of Vantrel. A copy was kept as {}.", file, copy);
    case Kind::expiredKept:
        return trf("More than half of {} was dropped because of its age. A copy was kept as {} "
                   "in case the clock was wrong.",
                   file, copy);
    }
    return "";
}

} // namespace FileIncidentText

} // namespace vantrel
