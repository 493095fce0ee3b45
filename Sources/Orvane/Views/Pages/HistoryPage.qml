import QtQuick
import Orvane as Orvane

/// The Dashboard's third page: what happened on a day.
Orvane.PlannerView {
    content: "HistoryContent.qml"
}
