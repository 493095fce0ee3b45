import QtQuick
import Orvane as Orvane

/// How the workspace is opened.
Orvane.SettingsSection {
    id: root

    required property Orvane.SettingsModel settings

    title: qsTr("General")

    Orvane.SettingsRow {
        theme: root.theme
        label: qsTr("Open workspace on hover")
        ruled: false
        Orvane.Switch {
            objectName: "hoverSwitch"
            theme: root.theme
            label: qsTr("Open workspace on hover")
            on: root.settings.hoverEnabled
            onSwitched: on => root.settings.hoverEnabled = on
        }
    }
    Orvane.SettingsRow {
        theme: root.theme
        label: qsTr("Keyboard shortcut")
        Orvane.Label {
            id: keys
            objectName: "shortcut"
            kind: Orvane.Type.body
            text: qsTr("⌥ N · Option–N")
            color: root.theme.tones.second
            // The key as it is called here.
            Accessible.description: qsTr("Alt+N")
            HoverHandler {
                id: overKeys
            }
            Orvane.Tooltip {
                theme: root.theme
                text: keys.Accessible.description
                wanted: overKeys.hovered
            }
        }
    }
    Orvane.SettingsNote {
        theme: root.theme
        text: qsTr("Tasks left unfinished stay in your To do list. Focus pauses on sleep, quit and recovery.")
    }
}
