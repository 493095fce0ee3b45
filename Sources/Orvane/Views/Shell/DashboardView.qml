pragma ComponentBehavior: Bound

import QtQuick
import Orvane as Orvane

/// The content of the Dashboard's window: the pages' names at the left, the chosen page beside them.
FocusScope {
    id: root

    required property Orvane.AppModel model
    required property Orvane.NavigationModel navigation
    /// Whether the desktop asks for fewer animations.
    property bool reduceMotion: false
    /// Whether the desktop leaves the window without a title bar; the window says so.
    property bool undecorated: false

    /// Asked for in the window's own band: there is none while the desktop decorates the window.
    signal moved(real dx, real dy)
    signal minimizeRequested
    signal maximizeRequested
    signal closeRequested

    readonly property Orvane.Tones tones: root.model.settings.dark ? Orvane.Palette.darkDashboard : Orvane.Palette.lightDashboard
    /// The pages there are, in the sidebar's order.
    readonly property list<var> pages: [
        {
            page: Orvane.NavigationModel.DashboardPage.today,
            text: qsTr("Today"),
            symbol: "square.grid.2x2",
            view: "TodayPage.qml"
        },
        {
            page: Orvane.NavigationModel.DashboardPage.insights,
            text: qsTr("Insights"),
            symbol: "chart.bar.xaxis",
            view: "InsightsPage.qml"
        },
        {
            page: Orvane.NavigationModel.DashboardPage.history,
            text: qsTr("History"),
            symbol: "clock.arrow.circlepath",
            view: "HistoryPage.qml"
        },
        {
            page: Orvane.NavigationModel.DashboardPage.settings,
            text: qsTr("Settings"),
            symbol: "slider.horizontal.3",
            view: "SettingsPage.qml"
        }
    ]

    focus: true

    Rectangle {
        objectName: "page"
        anchors.fill: parent
        color: root.tones.page

        Orvane.Sidebar {
            id: sidebar
            objectName: "sidebar"
            width: 196
            height: parent.height
            theme: shared
            pages: root.pages
            current: root.navigation.page
            onChosen: page => root.navigation.page = page
        }
        Loader {
            anchors.left: sidebar.right
            anchors.right: parent.right
            height: parent.height
            focus: true

            readonly property string view: {
                for (const entry of root.pages)
                    if (entry.page === root.navigation.page)
                        return entry.view;
                return root.pages[0].view;
            }
            property bool complete: false

            onViewChanged: fill()
            Component.onCompleted: {
                complete = true;
                fill();
            }

            function fill(): void {
                if (!complete)
                    return;
                setSource(view, {
                    theme: shared,
                    model: root.model
                });
            }
        }
    }
    Orvane.WindowBand {
        objectName: "windowBand"
        width: parent.width
        visible: root.undecorated
        theme: shared
        onMoved: (dx, dy) => root.moved(dx, dy)
        onMinimizeRequested: root.minimizeRequested()
        onMaximizeRequested: root.maximizeRequested()
        onCloseRequested: root.closeRequested()
    }
    Orvane.PopoverLayer {
        id: layer
        objectName: "popovers"
        anchors.fill: parent
        theme: shared
    }
    Orvane.Theme {
        id: shared
        tones: root.tones
        layer: layer
        reduceMotion: root.reduceMotion
    }
}
