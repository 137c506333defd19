// The running program's names on the session bus.
#pragma once

namespace vantrel::ControlNames {

inline constexpr const char* service = "org.vantrel.Vantrel";
inline constexpr const char* path = "/org/vantrel/Vantrel";
inline constexpr const char* interface = "org.vantrel.Vantrel";
// The actions that the desktop offers its user; see Intents.h.
inline constexpr const char* actionsInterface = "org.vantrel.Vantrel.Actions";

// Error names of the methods; the message is a sentence for the user.
inline constexpr const char* refused = "org.vantrel.Error.Refused";
inline constexpr const char* nothingHappened = "org.vantrel.Error.NothingHappened";
inline constexpr const char* superseded = "org.vantrel.Error.Superseded";
inline constexpr const char* failed = "org.vantrel.Error.Failed";

} // namespace vantrel::ControlNames
