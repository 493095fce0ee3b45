import QtQuick
import Orvane as Orvane

/// The bar that marks where typed text goes; it blinks as the desktop's do.
Rectangle {
    id: root

    required property Orvane.Theme theme
    required property bool shown

    width: 2
    color: root.theme.tones.lilac
    visible: root.shown

    SequentialAnimation on opacity {
        running: root.shown && !root.theme.reduceMotion && Qt.styleHints.cursorFlashTime > 0
        loops: Animation.Infinite
        onRunningChanged: root.opacity = 1
        PropertyAction {
            value: 1
        }
        PauseAnimation {
            duration: Qt.styleHints.cursorFlashTime / 2
        }
        PropertyAction {
            value: 0
        }
        PauseAnimation {
            duration: Qt.styleHints.cursorFlashTime / 2
        }
    }
}
