import QtQuick
import Orvane as Orvane

/// Shows a day and opens a month to choose another one from. Days are texts like "2026-03-07".
Orvane.BaseButton {
    id: root

    required property string chosen
    required property string today
    property string least: ""
    required property int firstWeekday

    signal picked(string day)

    label: qsTr("Day: %1").arg(root.text)
    corner: 10
    implicitWidth: 12 + 16 + 8 + 8 + Math.ceil(words.implicitWidth) + 8 + 16 + 8
    implicitHeight: 32
    onClicked: {
        const byKeyboard = root.visualFocus;
        month.reset();
        popover.open(root, byKeyboard);
        month.focusDay(byKeyboard ? Qt.TabFocusReason : Qt.PopupFocusReason);
    }

    background: Rectangle {
        radius: root.corner
        color: root.down || popover.opened ? root.theme.tones.press : root.hovered ? root.theme.tones.hover : Qt.alpha(root.theme.tones.hover, 0)
        border.width: 1
        border.color: root.theme.tones.edge
        Behavior on color {
            ColorAnimation {
                duration: root.theme.span(Orvane.Metrics.quick)
                easing.type: Easing.OutQuad
            }
        }
    }
    contentItem: Item {
        Orvane.Symbol {
            x: 12
            anchors.verticalCenter: parent.verticalCenter
            name: "calendar"
            color: root.theme.tones.third
        }
        Orvane.Label {
            id: words
            x: 40
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width - x - 36
            kind: Orvane.Type.bodyMedium
            text: root.text
            color: root.theme.tones.text
            elide: Text.ElideRight
            Accessible.ignored: true
        }
        Orvane.Symbol {
            anchors.right: parent.right
            anchors.rightMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            name: "chevron.up.chevron.down"
            color: root.theme.tones.third
        }
    }

    Orvane.Popover {
        id: popover
        objectName: "monthPopover"
        parent: root.theme.layer
        theme: root.theme
        contentWidth: month.width
        contentHeight: month.height
        Accessible.role: Accessible.Dialog
        Accessible.name: qsTr("Choose a day")

        Orvane.MonthView {
            id: month
            objectName: "monthView"
            width: implicitWidth
            height: implicitHeight
            focus: true
            theme: root.theme
            chosen: root.chosen
            today: root.today
            least: root.least
            firstWeekday: root.firstWeekday
            onPicked: day => {
                popover.close();
                root.picked(day);
            }
        }
    }
}
