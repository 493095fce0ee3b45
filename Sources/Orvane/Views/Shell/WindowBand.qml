import QtQuick
import Orvane as Orvane

/// The top of a window that nobody decorates: moves it, and holds what a title bar would.
Item {
    id: root

    required property Orvane.Theme theme

    /// The pointer dragged the window by this much.
    signal moved(real dx, real dy)
    signal minimizeRequested
    signal maximizeRequested
    signal closeRequested

    implicitHeight: 48

    MouseArea {
        id: grip
        property point pressed

        anchors.fill: parent
        onPressed: mouse => grip.pressed = Qt.point(mouse.x, mouse.y)
        onPositionChanged: mouse => root.moved(mouse.x - grip.pressed.x, mouse.y - grip.pressed.y)
        onDoubleClicked: root.maximizeRequested()
    }
    Row {
        anchors.right: parent.right
        anchors.rightMargin: 12
        y: 10
        Orvane.IconButton {
            objectName: "minimizeWindow"
            theme: root.theme
            symbol: "minus"
            symbolSize: 14
            label: qsTr("Minimize")
            onClicked: root.minimizeRequested()
        }
        Orvane.IconButton {
            objectName: "maximizeWindow"
            theme: root.theme
            symbol: "square"
            symbolSize: 14
            label: qsTr("Maximize")
            onClicked: root.maximizeRequested()
        }
        Orvane.IconButton {
            objectName: "closeWindow"
            theme: root.theme
            symbol: "xmark"
            symbolSize: 14
            label: qsTr("Close")
            onClicked: root.closeRequested()
        }
    }
}
