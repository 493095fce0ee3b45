import QtQuick
import Orvane as Orvane

/// Shown when the planner could not be opened.
FocusScope {
    id: root

    required property Orvane.Theme theme
    required property Orvane.AppModel model

    focus: true

    Column {
        anchors.centerIn: parent
        width: Math.min(440, parent.width - 2 * 24)
        spacing: 16
        Orvane.Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            name: "externaldrive.badge.exclamationmark"
            size: 40
            color: root.theme.tones.clay
        }
        Orvane.Label {
            objectName: "storageError"
            width: parent.width
            kind: Orvane.Type.lead
            text: root.model.error
            color: root.theme.tones.text
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
        }
        Orvane.FilledButton {
            objectName: "retryOpening"
            anchors.horizontalCenter: parent.horizontalCenter
            focus: true
            theme: root.theme
            symbol: "arrow.clockwise"
            text: qsTr("Retry opening planner")
            onClicked: root.model.load()
        }
    }
}
