import QtQuick
import Orvane as Orvane

/// The workspace of an open planner: the headline, the cards and the footer.
FocusScope {
    id: root

    required property Orvane.Theme theme
    required property Orvane.AppModel model
    required property bool compact

    focus: true

    /// How far the texts stand in from the cards' edges.
    readonly property int textInset: 8

    Item {
        id: heading
        x: root.textInset
        width: parent.width - 2 * x
        height: root.compact ? 44 : 56
        Orvane.Label {
            anchors.verticalCenter: parent.verticalCenter
            kind: root.compact ? Orvane.Type.headline : Orvane.Type.display
            text: qsTr("Make room for today.")
            color: root.theme.tones.text
            Accessible.role: Accessible.Heading
        }
        Orvane.Symbol {
            anchors.right: privacy.left
            anchors.rightMargin: 6
            anchors.verticalCenter: parent.verticalCenter
            name: "lock.shield"
            color: root.theme.tones.sage
        }
        Orvane.Label {
            id: privacy
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            kind: Orvane.Type.small
            text: qsTr("Only on this Mac")
            color: root.theme.tones.second
        }
    }
    Orvane.CardRow {
        id: cards
        anchors.top: heading.bottom
        anchors.topMargin: root.compact ? 0 : 8
        anchors.bottom: footer.top
        width: parent.width
        focus: true
        theme: root.theme
        model: root.model
        large: !root.compact
    }
    Orvane.StatusFooter {
        id: footer
        objectName: "statusFooter"
        anchors.bottom: parent.bottom
        x: root.textInset
        width: parent.width - 2 * x
        height: root.compact ? 48 : 56
        theme: root.theme
        model: root.model
    }
}
