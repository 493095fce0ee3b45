import QtQuick
import Orvane as Orvane

/// What needs an open planner, or why there is none yet: opening, failed, or `content`.
FocusScope {
    id: root

    required property Orvane.Theme theme
    required property Orvane.AppModel model
    /// The view of an open planner, a file; it is given theme, model and `contentProperties`.
    required property string content
    property var contentProperties: ({})

    focus: true

    // Restoring comes first, then a planner that is not open yet, then one that could not be opened.
    readonly property bool failed: root.model.storageFailed
    readonly property bool opening: root.model.restoring || (!root.model.ready && !root.failed)
    readonly property string view: root.opening ? "OpeningView.qml" : root.failed ? "FailedView.qml" : root.content

    Loader {
        id: shown
        anchors.fill: parent
        focus: true

        property bool complete: false

        Component.onCompleted: {
            shown.complete = true;
            shown.fill();
        }

        function fill(): void {
            if (!shown.complete)
                return;
            const wanted = {
                theme: root.theme
            };
            if (!root.opening)
                wanted.model = root.model;
            if (!root.opening && !root.failed)
                Object.assign(wanted, root.contentProperties);
            shown.setSource(root.view, wanted);
        }
    }
    onViewChanged: shown.fill()
}
