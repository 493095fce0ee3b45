pragma ComponentBehavior: Bound

import QtQuick
import Orvane as Orvane

/// A month of days to choose one from. Days are texts like "2026-03-07". One day has the keyboard: the
/// arrow keys go by days and weeks, PageUp and PageDown by months, Home and End to the ends of the week;
/// Return or Space chooses.
FocusScope {
    id: root

    required property Orvane.Theme theme
    /// The chosen day, today, and the first day that may be chosen; empty for none.
    required property string chosen
    required property string today
    property string least: ""
    /// 0 for Sunday to 6 for Saturday.
    required property int firstWeekday

    signal picked(string day)

    // Within, a day is its number since 1970.
    property bool filled: false
    property int cursor: root.number(root.chosen || root.today)
    readonly property int leastNumber: root.least === "" ? -719162 : root.number(root.least)
    readonly property var month: root.civil(root.cursor)
    readonly property int monthStart: root.cursor - root.month.day + 1
    readonly property int monthLength: root.lengthOf(root.month.year, root.month.month)
    readonly property int gridStart: root.monthStart - (root.weekday(root.monthStart) - root.firstWeekday + 7) % 7
    readonly property int weeks: Math.ceil((root.monthStart + root.monthLength - root.gridStart) / 7)

    implicitWidth: 236
    implicitHeight: 56 + 28 * root.weeks

    function number(day: string): int {
        return Date.parse(day + "T00:00:00Z") / 86400000;
    }

    function text(number: int): string {
        return new Date(number * 86400000).toISOString().substring(0, 10);
    }

    function civil(number: int): var {
        const date = new Date(number * 86400000);
        return {
            year: date.getUTCFullYear(),
            month: date.getUTCMonth(),
            day: date.getUTCDate()
        };
    }

    function weekday(number: int): int {
        return (((number + 4) % 7) + 7) % 7;
    }

    function lengthOf(year: int, month: int): int {
        return new Date(Date.UTC(year, month + 1, 0)).getUTCDate();
    }

    function fullName(number: int): string {
        const day = root.civil(number);
        return new Date(day.year, day.month, day.day, 12).toLocaleDateString(Qt.locale(), Locale.LongFormat);
    }

    /// Shows the chosen day's month, or today's, with the cursor on that day. The days are made when this is
    /// first called, which whoever opens it does.
    function reset(): void {
        root.filled = true;
        root.cursor = Math.max(root.leastNumber, root.number(root.chosen || root.today));
    }

    /// Puts the cursor on a day within the years that such texts can name.
    function show(number: int): void {
        root.cursor = Math.max(root.leastNumber, Math.min(number, 2932896));
    }

    /// Goes by keyboard, which is shown from then on.
    function moveTo(number: int): void {
        root.show(number);
        root.focusDay(Qt.TabFocusReason);
    }

    /// Goes by whole months to the same day, or the month's last one where it is shorter.
    function showMonth(by: int): void {
        const month = root.month.month + by;
        const start = Date.UTC(root.month.year, month, 1) / 86400000;
        root.show(start - 1 + Math.min(root.month.day, root.lengthOf(root.month.year, month)));
    }

    function focusDay(reason: int): void {
        days.itemAt(root.cursor - root.gridStart)?.forceActiveFocus(reason);
    }

    function pick(number: int): void {
        if (number >= root.leastNumber)
            root.picked(root.text(number));
    }

    /// What a key does to the day that has the keyboard; whether it does anything.
    function dayKey(key: int): bool {
        const column = (root.weekday(root.cursor) - root.firstWeekday + 7) % 7;
        if (key === Qt.Key_Left || key === Qt.Key_Right)
            root.moveTo(root.cursor + (key === Qt.Key_Left ? -1 : 1));
        else if (key === Qt.Key_Up || key === Qt.Key_Down)
            root.moveTo(root.cursor + (key === Qt.Key_Up ? -7 : 7));
        else if (key === Qt.Key_Home)
            root.moveTo(root.cursor - column);
        else if (key === Qt.Key_End)
            root.moveTo(root.cursor + 6 - column);
        else if (key === Qt.Key_PageUp || key === Qt.Key_PageDown) {
            root.showMonth(key === Qt.Key_PageUp ? -1 : 1);
            root.focusDay(Qt.TabFocusReason);
        } else if (key === Qt.Key_Tab)
            (previous.enabled ? previous : next).forceActiveFocus(Qt.TabFocusReason);
        else if (key === Qt.Key_Backtab)
            next.forceActiveFocus(Qt.BacktabFocusReason);
        else
            return false;
        return true;
    }

    Orvane.Label {
        objectName: "monthName"
        anchors.verticalCenter: previous.verticalCenter
        width: previous.x - 4
        kind: Orvane.Type.bodyBold
        text: qsTr("%1 %2").arg(Qt.locale().standaloneMonthName(root.month.month, Locale.LongFormat)).arg(root.month.year)
        color: root.theme.tones.text
        elide: Text.ElideRight
        Accessible.role: Accessible.Heading
    }
    Orvane.IconButton {
        id: previous
        objectName: "previousMonth"
        anchors.right: next.left
        theme: root.theme
        symbol: "chevron.left"
        symbolSize: 14
        label: qsTr("Previous month")
        enabled: root.monthStart > root.leastNumber
        Keys.onTabPressed: next.forceActiveFocus(Qt.TabFocusReason)
        Keys.onBacktabPressed: root.focusDay(Qt.BacktabFocusReason)
        onClicked: root.showMonth(-1)
    }
    Orvane.IconButton {
        id: next
        objectName: "nextMonth"
        x: root.width + 6 - width
        theme: root.theme
        symbol: "chevron.right"
        symbolSize: 14
        label: qsTr("Next month")
        Keys.onTabPressed: root.focusDay(Qt.TabFocusReason)
        Keys.onBacktabPressed: {
            if (previous.enabled)
                previous.forceActiveFocus(Qt.BacktabFocusReason);
            else
                root.focusDay(Qt.BacktabFocusReason);
        }
        onClicked: root.showMonth(1)
    }
    Repeater {
        model: 7
        delegate: Orvane.Label {
            required property int index
            readonly property int day: (root.firstWeekday + index) % 7

            x: grid.columnX(index)
            y: 34
            width: 32
            kind: Orvane.Type.weekday
            text: Qt.locale().standaloneDayName(day, Locale.NarrowFormat)
            color: root.theme.tones.third
            horizontalAlignment: Text.AlignHCenter
            Accessible.name: Qt.locale().standaloneDayName(day, Locale.LongFormat)
        }
    }
    FocusScope {
        id: grid
        objectName: "monthDays"
        y: 56
        width: root.width
        height: 28 * root.weeks
        focus: true
        Accessible.role: Accessible.List
        Accessible.name: qsTr("%1 %2").arg(Qt.locale().standaloneMonthName(root.month.month, Locale.LongFormat)).arg(root.month.year)

        function columnX(column: int): real {
            return Math.round(column * (root.width - 32) / 6);
        }

        Repeater {
            id: days
            // As many as any month needs: they stay while months change.
            model: root.filled ? 42 : 0
            delegate: Orvane.MonthDay {
                id: day
                required property int index
                readonly property int number: root.gridStart + day.index
                readonly property int ofMonth: day.number - root.monthStart + 1

                objectName: "day" + root.text(day.number)
                visible: day.index < 7 * root.weeks
                x: grid.columnX(day.index % 7)
                y: 28 * Math.floor(day.index / 7)
                theme: root.theme
                text: root.civil(day.number).day
                label: root.fullName(day.number)
                enabled: day.ofMonth >= 1 && day.ofMonth <= root.monthLength && day.number >= root.leastNumber
                chosen: day.number === root.number(root.chosen)
                today: day.number === root.number(root.today)
                focusPolicy: day.number === root.cursor || day.activeFocus ? Qt.TabFocus : Qt.NoFocus
                onClicked: root.pick(day.number)
                // Here and not further up, where the Tab key would already have left.
                Keys.onPressed: event => event.accepted = root.dayKey(event.key)
            }
        }
    }
}
