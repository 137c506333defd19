#include "VantrelCore/ports/SessionLanguage.h"

namespace vantrel {

// There are no catalogues here: everything is in English.
void useSessionLanguage() {}

} // namespace vantrel
