import QtQuick
import QtQuick.Templates as T
import Orvane as Orvane

/// What all tabs have in common: Space, Return and the accessibility press click, the keyboard's ring.
/// Whoever shows them says which one is selected.
T.TabButton {
    id: root

    required property Orvane.Theme theme
    required property bool selected
    property int corner: 12
    property bool ringInside: false

    checkable: false
    autoExclusive: false
    // A template's own role comes before the one given here, so the template has to be of that role.
    Accessible.role: Accessible.PageTab
    Accessible.name: root.text
    Accessible.selectable: true
    Accessible.selected: root.selected
    Accessible.onPressAction: root.clicked()
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    Orvane.FocusRing {
        theme: root.theme
        shown: root.visualFocus
        corner: root.corner
        inside: root.ringInside
        z: 1
    }
}
