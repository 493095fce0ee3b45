import QtQuick
import Orvane as Orvane

/// Shows `text` beside the parent once it has been `wanted` for a moment.
Item {
    id: root

    required property Orvane.Theme theme
    required property string text
    required property bool wanted

    readonly property bool due: root.wanted && root.text !== ""

    onDueChanged: {
        if (root.due)
            delay.restart();
        else
            root.withdraw();
    }
    onTextChanged: root.withdraw()
    Component.onDestruction: root.withdraw()

    function withdraw(): void {
        delay.stop();
        root.theme?.layer?.hideTip(root.parent);
    }

    Timer {
        id: delay
        interval: Orvane.Metrics.tooltipDelay
        onTriggered: root.theme.layer.showTip(root.parent, root.text)
    }
}
