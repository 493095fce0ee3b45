import QtQuick
import QtQuick.Templates as T
import Orvane as Orvane

/// A thin bar that appears while the list moves or the pointer is over it.
T.ScrollBar {
    id: root

    required property Orvane.Theme theme
    /// Whether the pointer is over the list.
    property bool near: false

    readonly property bool wanted: (root.near || root.active) && root.size < 1

    implicitWidth: 9
    rightPadding: 1
    leftPadding: 4
    minimumSize: root.height > 0 ? 24 / root.height : 0
    visible: root.size < 1
    // Whoever cannot see the list has no use for it.
    Accessible.ignored: true
    onWantedChanged: {
        if (root.wanted) {
            linger.stop();
            bar.shown = true;
        } else {
            linger.restart();
        }
    }

    contentItem: Rectangle {
        id: bar
        property bool shown: false
        implicitWidth: 4
        radius: 2
        color: root.theme.tones.control
        opacity: bar.shown ? 1 : 0
        Behavior on opacity {
            NumberAnimation {
                duration: root.theme.span(Orvane.Metrics.quick)
            }
        }
    }

    Timer {
        id: linger
        interval: 800
        onTriggered: bar.shown = false
    }
}
