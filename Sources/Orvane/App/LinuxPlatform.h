#pragma once

#include "Platform/Linux/AutostartLoginItem.h"
#include "Platform/Linux/BuildInformation.h"
#include "Platform/Linux/DesktopEvents.h"
#include "Platform/Linux/DialogFilePanels.h"
#include "Platform/Linux/FreedesktopNotificationCenter.h"
#include "Platform/Linux/JournalLog.h"
#include "Platform/Linux/ScreenList.h"
#include "Platform/Linux/SettingsUserDefaults.h"
#include "Platform/Linux/SystemClock.h"
#include "Platform/Linux/UnaskedEventStore.h"
#include "Platform/Linux/WorkerExecutor.h"
#include "Platform/Linux/X11HotKeyRegistrar.h"
#include "Platform/Linux/XdgDataFolder.h"
#include "Platform/Platform.h"
#include "Windows/AlertWindow.h"

namespace orvane {

/// The running desktop, part by part. Lives as long as the program's event loop. Main thread.
struct LinuxPlatform {
    SystemClock clock;
    JournalLog log;
    XdgDataFolder dataFolder;
    SettingsUserDefaults defaults{log};
    BuildInformation information;
    FreedesktopNotificationCenter notifications{defaults};
    UnaskedEventStore events;
    AutostartLoginItem loginItem;
    X11HotKeyRegistrar hotKeys;
    ScreenList screens;
    DesktopEvents systemEvents;
    AlertWindow alerts;
    DialogFilePanels filePanels;
    /// Last, so that it ends first: the jobs still waiting in it find everything else in place.
    WorkerExecutor storeExecutor;

    /// What the application is given.
    Platform platform{clock,     storeExecutor, dataFolder, defaults,     information, notifications, events,
                      loginItem, hotKeys,       screens,    systemEvents, alerts,      filePanels,    log};
};

} // namespace orvane
