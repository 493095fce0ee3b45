import QtQuick
import QtQuick.Shapes
import Orvane as Orvane

/// A ring of which a quarter is lit and goes round while something is awaited.
Item {
    id: root

    required property Orvane.Theme theme

    implicitWidth: 32
    implicitHeight: 32
    Accessible.ignored: true

    Rectangle {
        anchors.fill: parent
        radius: 16
        color: Orvane.Palette.clear
        border.width: 3
        border.color: root.theme.tones.tick
    }
    Shape {
        anchors.fill: parent
        ShapePath {
            strokeWidth: 3
            strokeColor: root.theme.tones.sage
            fillColor: Orvane.Palette.clear
            capStyle: ShapePath.RoundCap
            PathAngleArc {
                centerX: 16
                centerY: 16
                radiusX: 14.5
                radiusY: 14.5
                startAngle: -90
                sweepAngle: 90
            }
        }
        RotationAnimation on rotation {
            from: 0
            to: 360
            duration: 1000
            loops: Animation.Infinite
            running: root.visible && !root.theme.reduceMotion
        }
    }
}
