import QtQuick
import Orvane as Orvane

/// The Dashboard's second page: the last seven days in numbers.
Orvane.PlannerView {
    content: "InsightsContent.qml"
}
