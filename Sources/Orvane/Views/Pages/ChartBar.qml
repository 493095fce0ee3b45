import QtQuick
import QtQuick.Templates as T
import Orvane as Orvane

/// One day of a chart: its bar over its name, its number over the bar.
T.ItemDelegate {
    id: root

    required property Orvane.Theme theme
    required property string name
    required property string fullName
    required property string value
    required property bool today
    /// Pixels; 0 for a day with nothing.
    required property int barHeight

    /// Where the bar stands: above the name.
    readonly property int foot: root.height - 24
    readonly property string words: qsTr("%1: %2 min").arg(root.fullName).arg(root.value)

    hoverEnabled: true
    // A template's own role comes before the one given here, so the template has to be of that role.
    Accessible.role: Accessible.ListItem
    Accessible.name: root.words
    Accessible.focusable: true

    background: Item {
        Orvane.FocusRing {
            theme: root.theme
            shown: root.visualFocus
            corner: 10
            inside: true
        }
    }
    contentItem: Item {
        // The bar goes on below the edge that cuts it off, so that only its upper corners are round.
        Item {
            x: Math.round((parent.width - width) / 2)
            width: 48
            height: root.foot
            clip: true
            Rectangle {
                objectName: "bar"
                visible: root.barHeight > 0
                y: parent.height - root.barHeight
                width: parent.width
                height: root.barHeight + 8
                radius: 8
                color: root.today ? root.theme.tones.fill : root.theme.tones.barPast
            }
            Rectangle {
                objectName: "stub"
                visible: root.barHeight === 0
                y: parent.height - 2
                width: parent.width
                height: 2
                radius: 1
                color: root.theme.tones.control
            }
        }
        Orvane.Label {
            objectName: "barValue"
            y: root.foot - Math.max(2, root.barHeight) - 4 - 20
            width: parent.width
            kind: Orvane.Type.barValue
            text: root.value
            color: root.theme.tones.text
            horizontalAlignment: Text.AlignHCenter
            Accessible.ignored: true
        }
        Orvane.Label {
            y: root.foot + 8
            width: parent.width
            kind: root.today ? Orvane.Type.smallBold : Orvane.Type.small
            text: root.name
            color: root.today ? root.theme.tones.text : root.theme.tones.second
            horizontalAlignment: Text.AlignHCenter
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }

    Orvane.Tooltip {
        theme: root.theme
        text: root.words
        wanted: root.hovered || root.visualFocus
    }
}
