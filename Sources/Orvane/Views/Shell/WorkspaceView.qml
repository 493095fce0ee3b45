import QtQuick
import Orvane as Orvane

/// The workspace: opening, failed, or the headline with the cards and the footer. The panel shows it
/// in its compact form, the Dashboard in its large one.
Orvane.PlannerView {
    id: root

    /// Whether it stands in the panel.
    required property bool compact

    content: "OpenWorkspace.qml"
    contentProperties: ({
            compact: root.compact
        })
}
