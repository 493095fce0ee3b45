pragma ComponentBehavior: Bound

import QtQuick
import Orvane as Orvane

/// The workspace: opening, failed, or the headline with the cards and the footer. The panel shows it
/// in its compact form, the Dashboard in its large one.
FocusScope {
    id: root

    required property Orvane.Theme theme
    required property Orvane.AppModel model
    /// Whether it stands in the panel.
    required property bool compact

    focus: true

    // Restoring comes first, then a planner that is not open yet, then one that could not be opened.
    readonly property bool failed: root.model.storageFailed
    readonly property bool opening: root.model.restoring || (!root.model.ready && !root.failed)
    readonly property string view: root.opening ? "OpeningView.qml" : root.failed ? "FailedView.qml" : "OpenWorkspace.qml"

    Loader {
        id: content
        anchors.fill: parent
        focus: true

        property bool complete: false

        Component.onCompleted: {
            content.complete = true;
            content.fill();
        }

        function fill(): void {
            if (!content.complete)
                return;
            const wanted = {
                theme: root.theme
            };
            if (!root.opening)
                wanted.model = root.model;
            if (!root.opening && !root.failed)
                wanted.compact = root.compact;
            content.setSource(root.view, wanted);
        }
    }
    onViewChanged: content.fill()
}
