import QtQuick
import Orvane as Orvane

/// How the Dashboard and the clock look, and how long a new session lasts.
Orvane.SettingsSection {
    id: root

    required property Orvane.SettingsModel settings

    // The stored words, in the order of their texts. Any other appearance counts as light, any other clock
    // style as rounded.
    readonly property list<string> appearances: ["system", "light", "dark"]
    readonly property list<string> clockStyles: ["rounded", "monospaced"]

    title: qsTr("Appearance & focus")

    Orvane.SettingsRow {
        theme: root.theme
        label: qsTr("Dashboard appearance")
        ruled: false
        Orvane.Segmented {
            objectName: "appearance"
            theme: root.theme
            label: qsTr("Dashboard appearance")
            choices: [qsTr("System"), qsTr("Light"), qsTr("Dark")]
            current: {
                const index = root.appearances.indexOf(root.settings.appearance);
                return index < 0 ? 1 : index;
            }
            onChosen: index => root.settings.appearance = root.appearances[index]
        }
    }
    Orvane.SettingsRow {
        theme: root.theme
        label: qsTr("Clock style")
        Orvane.Segmented {
            objectName: "clockStyle"
            theme: root.theme
            label: qsTr("Clock style")
            choices: [qsTr("Rounded"), qsTr("Monospaced")]
            current: Math.max(0, root.clockStyles.indexOf(root.settings.clockStyle))
            onChosen: index => root.settings.clockStyle = root.clockStyles[index]
        }
    }
    Orvane.SettingsRow {
        id: minutes
        theme: root.theme
        label: qsTr("Default focus: %1 minutes").arg(root.settings.defaultMinutes)
        Orvane.Stepper {
            objectName: "defaultMinutes"
            theme: root.theme
            label: minutes.label
            from: 1
            to: 180
            value: root.settings.defaultMinutes
            onStepped: value => root.settings.defaultMinutes = value
        }
    }
    Orvane.SettingsNote {
        theme: root.theme
        text: qsTr("The notch stays dark. macOS Reduce Motion is respected.")
    }
}
