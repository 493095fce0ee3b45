import QtQuick
import Orvane as Orvane

/// An outlined field for what the user looks for.
FocusScope {
    id: root

    required property Orvane.Theme theme
    required property string placeholder
    property alias text: entry.text

    /// Return was pressed.
    signal accepted

    implicitHeight: 32

    Rectangle {
        anchors.fill: parent
        radius: 10
        color: Orvane.Palette.clear
        border.width: entry.activeFocus ? 2 : 1
        border.color: entry.activeFocus ? root.theme.tones.lilac : root.theme.tones.control
    }
    Orvane.Symbol {
        x: 10
        anchors.verticalCenter: parent.verticalCenter
        name: "magnifyingglass"
        size: 14
        color: root.theme.tones.third
    }
    Orvane.TextEntry {
        id: entry
        objectName: "searchEntry"
        anchors.fill: parent
        anchors.leftMargin: 32
        anchors.rightMargin: 10
        focus: true
        theme: root.theme
        label: root.placeholder
        placeholder: root.placeholder
        onAccepted: root.accepted()
    }
}
