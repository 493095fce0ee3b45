import QtQuick
import Orvane as Orvane

/// The line of the focus card that names the chosen task and opens the list of all, or offers to add
/// the first one.
Orvane.BaseButton {
    id: root

    /// Empty without a choice.
    required property string title
    required property bool hasTasks
    /// Whether the list is open.
    required property bool held

    readonly property bool chosen: root.hasTasks && root.title !== ""
    readonly property bool lit: root.hovered || root.held

    implicitHeight: 48
    corner: 8
    text: !root.hasTasks ? qsTr("Add your first task") : root.chosen ? qsTr("Focus task: %1").arg(root.title) : qsTr("Choose a task")
    hint: words.truncated && !root.held ? root.title : ""

    background: Item {
        Rectangle {
            width: parent.width
            height: 1
            color: root.theme.tones.line
        }
        Rectangle {
            y: parent.height - 1
            width: parent.width
            height: 1
            color: root.theme.tones.line
        }
        Rectangle {
            x: -8
            y: 4
            width: parent.width + 16
            height: parent.height - 8
            radius: 10
            color: root.down ? root.theme.tones.press : root.lit ? root.theme.tones.hover : Qt.alpha(root.theme.tones.hover, 0)
            Behavior on color {
                ColorAnimation {
                    duration: root.theme.span(Orvane.Metrics.quick)
                    easing.type: Easing.OutQuad
                }
            }
        }
    }
    contentItem: Item {
        Orvane.Symbol {
            anchors.verticalCenter: parent.verticalCenter
            name: root.hasTasks ? "scope" : "plus"
            stroke: root.hasTasks ? 1.75 : 2
            color: root.theme.tones.sage
        }
        Orvane.Label {
            x: 26
            y: 6
            visible: root.chosen
            kind: Orvane.Type.small
            text: qsTr("Focus task:")
            color: root.theme.tones.third
            Accessible.ignored: true
        }
        Orvane.Label {
            id: words
            objectName: "chooserTitle"
            x: 26
            y: root.chosen ? 22 : 14
            width: parent.width - x - (root.hasTasks ? 26 : 0)
            kind: root.hasTasks ? Orvane.Type.bodyMedium : Orvane.Type.bodyBold
            text: root.chosen ? root.title : root.text
            color: root.hasTasks ? root.theme.tones.text : root.theme.tones.sage
            elide: Text.ElideRight
            maximumLineCount: 1
            Accessible.ignored: true
        }
        Orvane.Symbol {
            visible: root.hasTasks
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            name: "chevron.up.chevron.down"
            color: root.lit ? root.theme.tones.text : root.theme.tones.third
        }
    }
}
