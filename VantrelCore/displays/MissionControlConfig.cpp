#include "VantrelCore/displays/MissionControlConfig.h"

namespace vantrel {

MissionControlConfig::Classification MissionControlConfig::classification() const {
    if (autoRearrangeSpaces == true || separateSpaces == false) {
        return Classification::losing;
    }
    return separateSpaces && autoRearrangeSpaces ? Classification::winning : Classification::unknown;
}

} // namespace vantrel
