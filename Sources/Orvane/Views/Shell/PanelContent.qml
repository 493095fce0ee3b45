pragma ComponentBehavior: Bound

import QtQuick
import Orvane as Orvane

/// The expanded panel: its header and, below, the workspace.
FocusScope {
    id: root

    required property Orvane.Theme theme
    required property Orvane.AppModel model

    focus: true

    function focusFirstControl(): void {
        dashboardButton.forceActiveFocus(Qt.TabFocusReason);
    }

    Row {
        x: 24
        height: 48
        spacing: 12
        Orvane.BrandMark {
            anchors.verticalCenter: parent.verticalCenter
            size: 20
        }
        Item {
            anchors.verticalCenter: parent.verticalCenter
            width: line.x + line.width
            height: 16
            Accessible.role: Accessible.StaticText
            Accessible.name: qsTr("/  YOUR DAY, A LITTLE CLOSER")
            Orvane.Label {
                id: slash
                kind: Orvane.Type.label
                text: "/"
                color: root.theme.tones.sage
                Accessible.ignored: true
            }
            Orvane.Label {
                id: line
                x: 13
                kind: Orvane.Type.label
                text: qsTr("YOUR DAY, A LITTLE CLOSER")
                color: root.theme.tones.second
                Accessible.ignored: true
            }
        }
    }
    Row {
        anchors.right: parent.right
        anchors.rightMargin: 16
        y: 8
        Orvane.IconButton {
            id: dashboardButton
            objectName: "openDashboard"
            width: 32
            height: 32
            corner: 10
            theme: root.theme
            symbol: "arrow.up.left.and.arrow.down.right"
            label: qsTr("Open dashboard")
            onClicked: root.model.requestDashboard()
        }
        Orvane.IconButton {
            objectName: "openSettings"
            width: 32
            height: 32
            corner: 10
            theme: root.theme
            symbol: "slider.horizontal.3"
            label: qsTr("Settings")
            onClicked: root.model.requestSettings()
        }
        Orvane.IconButton {
            objectName: "closeWorkspace"
            width: 32
            height: 32
            corner: 10
            theme: root.theme
            symbol: "xmark"
            label: qsTr("Close workspace")
            onClicked: root.model.requestDismissal()
        }
    }
    Orvane.WorkspaceView {
        x: 16
        y: 48
        width: root.width - 32
        height: root.height - y
        focus: true
        theme: root.theme
        model: root.model
        compact: true
    }
}
