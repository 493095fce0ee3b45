import QtQuick
import Orvane as Orvane

/// The Dashboard's first page: the workspace in its large form.
FocusScope {
    id: root

    required property Orvane.Theme theme
    required property Orvane.AppModel model

    focus: true

    Orvane.WorkspaceView {
        x: 24
        y: 48
        width: root.width - 48
        height: root.height - y - 16
        focus: true
        theme: root.theme
        model: root.model
        compact: false
    }
}
