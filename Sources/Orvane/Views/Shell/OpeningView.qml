import QtQuick
import Orvane as Orvane

/// Shown until the planner is open.
Item {
    id: root

    required property Orvane.Theme theme

    Column {
        anchors.centerIn: parent
        spacing: 16
        Orvane.LoadingRing {
            anchors.horizontalCenter: parent.horizontalCenter
            theme: root.theme
        }
        Orvane.Label {
            objectName: "openingPlanner"
            kind: Orvane.Type.body
            text: qsTr("Opening your planner…")
            color: root.theme.tones.second
        }
    }
}
