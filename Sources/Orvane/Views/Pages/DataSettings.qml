import QtQuick
import Orvane as Orvane

/// Where the planner is kept, and taking it out and in.
Orvane.SettingsSection {
    id: root

    required property Orvane.AppModel model

    readonly property bool usable: root.model.ready && !root.model.restoring

    title: qsTr("Your data")

    Orvane.SettingsNote {
        theme: root.theme
        above: 14
        below: 12
        text: qsTr("Your planner stays on this Mac. No account, analytics or cloud sync.")
    }
    Flow {
        width: parent.width
        spacing: 8
        Orvane.QuietButton {
            objectName: "exportBackup"
            theme: root.theme
            symbol: "square.and.arrow.up"
            text: qsTr("Export JSON backup…")
            enabled: root.usable
            onClicked: root.model.exportBackup()
        }
        Orvane.QuietButton {
            objectName: "importBackup"
            theme: root.theme
            symbol: "square.and.arrow.down"
            text: qsTr("Restore backup…")
            enabled: root.usable
            onClicked: root.model.importBackup()
        }
    }
    Orvane.SettingsNote {
        theme: root.theme
        text: qsTr("Restore validates the file and saves a copy of your current planner first.")
    }
}
