// The controller's ports. They outlive it and its background work.
#pragma once

#include "VantrelCore/ports/Background.h"
#include "VantrelCore/ports/CalendarReader.h"
#include "VantrelCore/ports/Clock.h"
#include "VantrelCore/ports/Desk.h"
#include "VantrelCore/ports/DesktopPictures.h"
#include "VantrelCore/ports/DisplayServices.h"
#include "VantrelCore/ports/FocusReader.h"
#include "VantrelCore/ports/HotKeys.h"
#include "VantrelCore/ports/LicenseGate.h"
#include "VantrelCore/ports/LocalZone.h"
#include "VantrelCore/ports/MainQueue.h"
#include "VantrelCore/ports/SystemEvents.h"
#include "VantrelCore/ports/UserDefaults.h"
#include "VantrelCore/ports/Workspace.h"

namespace vantrel {

struct ControllerPorts {
    Desk& desk;
    DisplayServices& displays;
    Workspace& workspace;
    SystemEvents& systemEvents;
    UserDefaults& defaults;
    Clock& clock;
    MainQueue& mainQueue;
    Background& background;
    LocalZone& localZone;
    CalendarReader& calendar;
    FocusReader& focus;
    DesktopPictures& pictures;
    HotKeys& hotKeys;
    LicenseGate& license;
};

} // namespace vantrel
