import QtQuick
import Orvane as Orvane

/// How rows of a list come, go and move.
NumberAnimation {
    duration: Orvane.Metrics.rowMove
    easing.type: Easing.InOutQuad
}
