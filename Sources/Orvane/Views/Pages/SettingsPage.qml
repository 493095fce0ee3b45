import QtQuick
import Orvane as Orvane

/// The Dashboard's page of preferences. Every control changes its preference at once.
FocusScope {
    id: root

    required property Orvane.Theme theme
    required property Orvane.AppModel model

    /// Beside the sidebar a window of 1000 leaves this much.
    readonly property bool stacked: root.width < 804

    focus: true
    Component.onCompleted: root.model.settings.refreshDisplays()

    Orvane.PageScroll {
        id: scroll
        objectName: "settingsScroll"
        y: 48
        width: root.width
        height: root.height - y
        contentHeight: content.height + 24
        focus: true
        theme: root.theme

        Column {
            id: content
            x: 32
            width: Math.min(900, root.width - 48) - 16
            Orvane.Label {
                kind: Orvane.Type.display
                text: qsTr("Your space, your way.")
                color: root.theme.tones.text
                Accessible.role: Accessible.Heading
            }
            Item {
                width: 1
                height: 20
            }
            Orvane.GeneralSettings {
                width: parent.width
                theme: root.theme
                stacked: root.stacked
                settings: root.model.settings
            }
            Orvane.WorkspaceSettings {
                width: parent.width
                theme: root.theme
                stacked: root.stacked
                settings: root.model.settings
                onRowMoved: if (scroll.focused) scroll.reveal(scroll.focused)
            }
            Orvane.AppearanceSettings {
                width: parent.width
                theme: root.theme
                stacked: root.stacked
                settings: root.model.settings
            }
            Orvane.DataSettings {
                width: parent.width
                theme: root.theme
                stacked: root.stacked
                model: root.model
            }
        }
    }
}
