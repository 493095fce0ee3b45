pragma ComponentBehavior: Bound

import QtQuick
import Orvane as Orvane

/// The cards that the user shows, side by side in the user's order; scrolls sideways when they need
/// more room than there is. A card of a new kind takes its place in `kinds`.
FocusScope {
    id: root

    required property Orvane.Theme theme
    required property Orvane.AppModel model
    /// Whether the cards stand on the Dashboard.
    required property bool large

    readonly property var kinds: ({
            tasks: "TasksCard.qml",
            focus: "FocusCard.qml",
            notes: "NotesCard.qml"
        })
    readonly property var names: root.model.settings.visibleCards

    Flickable {
        anchors.fill: parent
        contentWidth: cards.width
        contentHeight: height
        flickableDirection: Flickable.HorizontalFlick
        boundsBehavior: Flickable.StopAtBounds
        interactive: cards.width > width
        clip: interactive

        Row {
            id: cards
            spacing: Orvane.Metrics.cardGap
            Repeater {
                model: root.names
                delegate: Loader {
                    required property string modelData
                    width: root.model.settings.cardWidth
                    height: root.height
                    Component.onCompleted: setSource(root.kinds[modelData], {
                        theme: root.theme,
                        model: root.model,
                        large: root.large
                    })
                }
            }
        }
    }
    Column {
        objectName: "cleanSlate"
        anchors.centerIn: parent
        width: parent.width
        visible: root.names.length === 0
        spacing: 16
        Orvane.EmptyCard {
            objectName: "cleanSlateText"
            width: parent.width
            theme: root.theme
            symbol: "square.grid.2x2"
            title: qsTr("Your workspace is a clean slate.")
            description: ""
        }
        Orvane.FilledButton {
            objectName: "chooseCards"
            anchors.horizontalCenter: parent.horizontalCenter
            theme: root.theme
            text: qsTr("Choose your cards")
            onClicked: root.model.requestSettings()
        }
    }
}
