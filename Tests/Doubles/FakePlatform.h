#pragma once

#include "Doubles/FakeAlerts.h"
#include "Doubles/FakeClock.h"
#include "Doubles/FakeDataFolder.h"
#include "Doubles/FakeEventStore.h"
#include "Doubles/FakeExecutor.h"
#include "Doubles/FakeFilePanels.h"
#include "Doubles/FakeHotKeyRegistrar.h"
#include "Doubles/FakeInformationDictionary.h"
#include "Doubles/FakeLog.h"
#include "Doubles/FakeLoginItem.h"
#include "Doubles/FakeNotificationCenter.h"
#include "Doubles/FakeScreens.h"
#include "Doubles/FakeSystemEvents.h"
#include "Doubles/FakeUserDefaults.h"
#include "Platform/Platform.h"

namespace orvane::test {

/// A whole desktop in memory. Only the data folder leads outside, to where the test points it.
struct FakePlatform {
    FakeClock clock;
    FakeExecutor storeExecutor;
    FakeDataFolder dataFolder;
    FakeUserDefaults defaults;
    FakeInformationDictionary information;
    FakeNotificationCenter notifications;
    FakeEventStore events;
    FakeLoginItem loginItem;
    FakeHotKeyRegistrar hotKeys;
    FakeScreens screens;
    FakeSystemEvents systemEvents;
    FakeAlerts alerts;
    FakeFilePanels filePanels;
    FakeLog log;

    /// What the application is given.
    Platform platform{clock,     storeExecutor, dataFolder, defaults,     information, notifications, events,
                      loginItem, hotKeys,       screens,    systemEvents, alerts,      filePanels,    log};

    /// Lets everything happen that can happen without time passing: jobs, answers, due delays.
    void settle() {
        do {
            clock.settle();
            notifications.answerAll();
        } while (storeExecutor.runOne());
    }
};

} // namespace orvane::test
