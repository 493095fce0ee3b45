import QtQuick
import QtQuick.Templates as T
import Orvane as Orvane

/// A completed task, which can be reopened, or a focus session of a day.
T.ItemDelegate {
    id: root

    required property Orvane.Theme theme
    required property string title
    required property bool task
    /// Whole minutes of a session on that day, and its status word.
    required property var minutes
    required property string status

    signal reopened

    readonly property string statusText: root.status === "running" ? qsTr("running") : root.status === "paused" ? qsTr("paused") : qsTr("finished")
    readonly property string minutesText: qsTr("%1 min").arg(root.minutes)

    implicitHeight: Math.max(44, 24 + words.height)
    hoverEnabled: true
    // A template's own role comes before the one given here, so the template has to be of that role.
    Accessible.role: Accessible.ListItem
    Accessible.name: root.task ? root.title : qsTr("%1, %2, %3").arg(root.title).arg(root.minutesText).arg(root.statusText)
    Accessible.focusable: true
    Accessible.onPressAction: root.press()
    Keys.onSpacePressed: root.press()
    Keys.onReturnPressed: root.press()
    Keys.onEnterPressed: root.press()

    function press(): void {
        if (root.task)
            root.reopened();
    }

    background: Item {
        Rectangle {
            x: 8
            y: parent.height - 1
            width: parent.width - 2 * x
            height: 1
            color: root.theme.tones.line
        }
        Orvane.FocusRing {
            theme: root.theme
            shown: root.visualFocus
            corner: 10
            inside: true
        }
    }

    contentItem: Item {
        Orvane.Symbol {
            x: 8
            anchors.verticalCenter: parent.verticalCenter
            name: root.task ? "checkmark.circle.fill" : "viewfinder"
            size: 18
            color: root.task ? root.theme.tones.sage : root.theme.tones.third
        }
        Orvane.Label {
            id: words
            objectName: "rowTitle"
            x: 36
            anchors.verticalCenter: parent.verticalCenter
            width: (root.task ? reopen.x : spent.x) - 10 - x
            kind: Orvane.Type.body
            text: root.title
            color: root.theme.tones.text
            wrapMode: Text.Wrap
            maximumLineCount: 2
            elide: Text.ElideRight
            Accessible.ignored: true
            Orvane.Tooltip {
                theme: root.theme
                text: root.title
                wanted: words.truncated && (over.hovered || root.visualFocus)
            }
            HoverHandler {
                id: over
            }
        }
        Orvane.QuietButton {
            id: reopen
            objectName: "reopenButton"
            anchors.right: parent.right
            anchors.rightMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            visible: root.task
            theme: root.theme
            size: Orvane.PillButton.Mini
            // The row has the keyboard and presses it.
            focusPolicy: Qt.NoFocus
            text: qsTr("Reopen")
            label: qsTr("Reopen %1").arg(root.title)
            onClicked: root.reopened()
        }
        Orvane.Label {
            id: spent
            objectName: "sessionMinutes"
            anchors.right: state.left
            anchors.rightMargin: 10
            anchors.verticalCenter: parent.verticalCenter
            width: Math.max(64, Math.ceil(implicitWidth))
            visible: !root.task
            kind: Orvane.Type.bodyMedium
            text: root.minutesText
            color: root.theme.tones.text
            horizontalAlignment: Text.AlignRight
            Accessible.ignored: true
        }
        Orvane.Label {
            id: state
            objectName: "sessionStatus"
            anchors.right: parent.right
            anchors.rightMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            width: Math.max(64, Math.ceil(implicitWidth))
            visible: !root.task
            kind: Orvane.Type.body
            text: root.statusText
            color: root.status === "running" ? root.theme.tones.sage : root.status === "paused" ? root.theme.tones.paper : root.theme.tones.third
            horizontalAlignment: Text.AlignRight
            Accessible.ignored: true
        }
    }
}
