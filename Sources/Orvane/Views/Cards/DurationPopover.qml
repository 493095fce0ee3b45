import QtQuick
import Orvane as Orvane

/// Asks for the length of a countdown in minutes.
Orvane.Popover {
    id: root

    required property int minutes

    /// The user wants this length.
    signal stepped(int minutes)
    signal settingsRequested

    objectName: "durationPopover"
    parent: root.theme.layer
    centred: true
    contentWidth: 212
    contentHeight: done.y + done.height
    Accessible.role: Accessible.Dialog
    Accessible.name: qsTr("Custom focus duration")

    Orvane.Label {
        kind: Orvane.Type.small
        text: qsTr("Custom focus duration")
        color: root.theme.tones.third
    }
    Orvane.Label {
        y: 20
        kind: Orvane.Type.title
        text: qsTr("Find your rhythm")
        color: root.theme.tones.text
        Accessible.role: Accessible.Heading
    }
    Orvane.Stepper {
        objectName: "durationStepper"
        y: 50
        width: root.contentWidth
        focus: true
        theme: root.theme
        label: qsTr("Custom focus duration")
        from: 1
        to: 180
        value: root.minutes
        onStepped: value => root.stepped(value)
    }
    Orvane.Label {
        y: 90
        kind: Orvane.Type.small
        text: qsTr("Choose between 1 and 180 minutes.")
        color: root.theme.tones.second
    }
    Orvane.LinkButton {
        objectName: "durationSettings"
        anchors.verticalCenter: done.verticalCenter
        theme: root.theme
        text: qsTr("Settings")
        onClicked: {
            root.close();
            root.settingsRequested();
        }
    }
    Orvane.FilledButton {
        id: done
        objectName: "durationDone"
        anchors.right: parent.right
        y: 116
        theme: root.theme
        size: Orvane.PillButton.Mini
        text: qsTr("Done")
        onClicked: root.close()
    }
}
