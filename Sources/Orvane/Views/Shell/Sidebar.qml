pragma ComponentBehavior: Bound

import QtQuick
import Orvane as Orvane

/// The Dashboard's pages by name, and below them what the program is.
Rectangle {
    id: root

    required property Orvane.Theme theme
    /// Objects with `page`, `text` and `symbol`.
    required property list<var> pages
    required property int current

    signal chosen(int page)

    color: root.theme.tones.side

    Rectangle {
        anchors.right: parent.right
        width: 1
        height: parent.height
        color: root.theme.tones.line
    }
    Column {
        x: 12
        y: 56
        width: parent.width - 24
        spacing: 4
        Accessible.role: Accessible.PageTabList
        Accessible.name: qsTr("Pages")
        Repeater {
            model: root.pages
            delegate: Orvane.BaseTab {
                id: entry
                required property var modelData
                readonly property bool isCurrent: entry.modelData.page === root.current

                width: parent.width
                height: 36
                corner: 10
                theme: root.theme
                text: entry.modelData.text
                selected: entry.isCurrent
                onClicked: root.chosen(entry.modelData.page)

                background: Rectangle {
                    radius: 10
                    color: entry.isCurrent ? root.theme.tones.tint : entry.down ? root.theme.tones.press : entry.hovered ? root.theme.tones.hover : Orvane.Palette.clear
                }
                contentItem: Item {
                    Orvane.Symbol {
                        x: 12
                        anchors.verticalCenter: parent.verticalCenter
                        name: entry.modelData.symbol
                        size: 18
                        color: entry.isCurrent ? root.theme.tones.sage : root.theme.tones.second
                    }
                    Orvane.Label {
                        x: 42
                        anchors.verticalCenter: parent.verticalCenter
                        width: parent.width - 54
                        kind: Orvane.Type.bodyMedium
                        text: entry.text
                        color: entry.isCurrent ? root.theme.tones.text : root.theme.tones.second
                        elide: Text.ElideRight
                        Accessible.ignored: true
                    }
                }
            }
        }
    }
    Column {
        x: 24
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 20
        Orvane.BrandMark {
            size: 32
        }
        Item {
            width: 1
            height: 12
        }
        Orvane.Label {
            kind: Orvane.Type.label
            text: qsTr("A LITTLE SPACE\nFOR YOUR DAY.")
            color: root.theme.tones.second
        }
        Item {
            width: 1
            height: 8
        }
        Orvane.Label {
            kind: Orvane.Type.small
            text: qsTr("Less switching.\nMore doing.")
            color: root.theme.tones.third
        }
        Item {
            width: 1
            height: 20
        }
        Orvane.Label {
            objectName: "version"
            kind: Orvane.Type.badge
            text: qsTr("VERSION ") + Qt.application.version
            color: root.theme.tones.third
        }
    }
}
