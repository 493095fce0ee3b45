pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Orvane as Orvane

/// Two or more choices side by side with a line under the chosen one. One stop for the Tab key; the
/// arrow keys choose.
T.Control {
    id: root

    required property Orvane.Theme theme
    required property string label
    /// The texts of the choices.
    required property list<string> choices
    property int current: 0

    /// The user chose another one.
    signal chosen(int index)

    implicitHeight: 36
    focusPolicy: Qt.TabFocus
    Accessible.role: Accessible.PageTabList
    Accessible.name: root.label
    Keys.onLeftPressed: root.choose(root.current - 1)
    Keys.onRightPressed: root.choose(root.current + 1)

    function choose(index: int): void {
        if (index !== root.current && index >= 0 && index < root.choices.length)
            root.chosen(index);
    }

    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: root.theme.tones.line
    }
    Repeater {
        model: root.choices
        delegate: Orvane.BaseButton {
            id: tab
            required property int index
            required property string modelData
            readonly property bool isCurrent: tab.index === root.current

            theme: root.theme
            text: tab.modelData
            x: Math.round(root.width * tab.index / root.choices.length)
            width: Math.round(root.width * (tab.index + 1) / root.choices.length) - tab.x
            height: root.height
            focusPolicy: Qt.NoFocus
            ringInside: true
            ringAlways: tab.isCurrent && root.visualFocus
            corner: 8
            Accessible.role: Accessible.PageTab
            Accessible.selected: tab.isCurrent
            onClicked: root.choose(tab.index)

            contentItem: Item {
                Orvane.Label {
                    anchors.centerIn: parent
                    kind: Orvane.Type.bodyMedium
                    text: tab.text
                    color: tab.isCurrent || tab.hovered ? root.theme.tones.text : root.theme.tones.second
                    Accessible.ignored: true
                }
            }
        }
    }
    Rectangle {
        y: root.height - 2
        x: Math.round(root.width * root.current / root.choices.length)
        width: Math.round(root.width / root.choices.length)
        height: 2
        radius: 1
        color: root.theme.tones.sage
        Behavior on x {
            NumberAnimation {
                duration: root.theme.span(Orvane.Metrics.quick)
                easing.type: Easing.OutQuad
            }
        }
    }
}
