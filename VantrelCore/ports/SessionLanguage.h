// The language of the user's session. Each system defines this function.
#pragma once

namespace vantrel {

// From now on, texts are in that language, or in English if there is no translation into it. Called once, at
// the start.
void useSessionLanguage();

} // namespace vantrel
