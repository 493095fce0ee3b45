pragma ComponentBehavior: Bound

import QtQuick
import Orvane as Orvane

/// Which cards the workspace shows, in which order and how wide, and on which display.
Orvane.SettingsSection {
    id: root

    required property Orvane.SettingsModel settings

    /// The ids that the picker offers, 0 first.
    readonly property var displayIds: [0].concat(root.settings.displays.map(display => display.id))

    /// A card's row went to another place, and with it perhaps the keyboard.
    signal rowMoved

    title: qsTr("Workspace")

    Repeater {
        id: cards
        model: root.settings.cards
        delegate: Orvane.CardSettings {
            required property int index
            theme: root.theme
            settings: root.settings
            first: index === 0
            last: index === cards.count - 1
            onYChanged: root.rowMoved()
        }
    }
    Orvane.SettingsRow {
        theme: root.theme
        label: qsTr("Card width")
        Orvane.Slider {
            objectName: "widthSlider"
            anchors.verticalCenter: parent.verticalCenter
            theme: root.theme
            label: qsTr("Card width")
            from: 230
            to: 380
            stepSize: 10
            amount: root.settings.cardWidth
            onSlid: amount => root.settings.cardWidth = amount
            onPressedChanged: root.settings.adjusting = pressed
            Component.onDestruction: if (root.settings) root.settings.adjusting = false
        }
        Orvane.Label {
            objectName: "widthText"
            anchors.verticalCenter: parent.verticalCenter
            width: 32
            kind: Orvane.Type.figure
            text: Math.round(root.settings.cardWidth)
            color: root.theme.tones.text
            horizontalAlignment: Text.AlignRight
        }
    }
    Orvane.SettingsRow {
        objectName: "displayRow"
        theme: root.theme
        label: qsTr("Show notch on")
        note: root.settings.displayMissing ? qsTr("Preferred display disconnected (using fallback)") : ""
        Orvane.Picker {
            objectName: "displayPicker"
            theme: root.theme
            label: qsTr("Show notch on")
            choices: [qsTr("Built-in display, or first available")].concat(root.settings.displays.map(display => display.name))
            current: root.displayIds.indexOf(root.settings.displayID)
            // The display that is used while the chosen one is away.
            otherText: choices[0]
            onChosen: index => root.settings.displayID = root.displayIds[index]
        }
    }
    Item {
        width: 1
        height: 12
    }
    Orvane.QuietButton {
        objectName: "restoreLayout"
        theme: root.theme
        text: qsTr("Restore workspace layout")
        onClicked: root.settings.resetLayout()
    }
    Item {
        width: 1
        height: 4
    }
}
