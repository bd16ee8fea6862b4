import QtQuick 2.15
import "../Components"

// A date, a time or both, by wheels.
WindowFrame {
    id: dialog

    property string text: ""           // the title
    property string type: "DateTime"   // or "Date", "Time"
    property string defaultTime: Qt.formatDateTime(new Date(), "yyyy-MM-dd hh:mm:ss")

    readonly property bool hasDate: type !== "Time"
    readonly property bool hasTime: type !== "Date"

    function exec() {
        const start = parse(defaultTime)
        year.current = start.getFullYear()
        month.current = start.getMonth() + 1
        day.current = start.getDate()
        hour.current = start.getHours()
        minute.current = start.getMinutes()
        second.current = start.getSeconds()
        wait()
        return {dlgResult: dlgResult, date: value()}
    }

    function parse(moment) {
        const parts = moment.split(/[^0-9]+/).map(Number)
        const parsed = new Date(parts[0], parts[1] - 1, parts[2] || 1, parts[3] || 0, parts[4] || 0, parts[5] || 0)
        return isNaN(parsed.getTime()) ? new Date() : parsed
    }

    function value() {
        return new Date(year.getResult(), month.getResult() - 1, day.getResult(),
                        hour.getResult(), minute.getResult(), second.getResult())
    }

    function getText(format) {
        return Qt.formatDateTime(value(), format)
    }

    function daysOf(y, m) {
        if (m === 2)
            return y % 4 === 0 ? 29 : 28
        return [1, 3, 5, 7, 8, 10, 12].indexOf(m) >= 0 ? 31 : 30
    }

    // The wheel starts anew when its length changes; the day that was there is set again where it exists.
    function limitDays() {
        const kept = day.current
        const limit = daysOf(year.current, month.current)
        if (limit === day.max)
            return
        day.max = limit
        day.current = kept <= limit ? kept : limit
    }

    objectName: "dateTimeDlg"
    modality: Qt.WindowModal
    isPlaced: false
    x: root.x + (root.width - width) / 2
    y: root.y + (root.height - height) / 2
    width: 650
    height: 450
    color: Theme.wheelGround

    PlainText {
        id: title
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.top: parent.top
        anchors.topMargin: Theme.spacing
        text: dialog.text
        font.pixelSize: Theme.titleSize
        color: Theme.textOnColor
    }

    Row {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.top: title.bottom
        anchors.bottom: buttons.top
        anchors.margins: Theme.spacing

        Tumbler { id: year; objectName: "year"; visible: dialog.hasDate; height: parent.height; text: "年"; min: 2000; max: 2100; onCurrentChanged: dialog.limitDays() }
        Tumbler { id: month; objectName: "month"; visible: dialog.hasDate; height: parent.height; text: "月"; min: 1; max: 12; zero: 2; onCurrentChanged: dialog.limitDays() }
        Tumbler { id: day; objectName: "day"; visible: dialog.hasDate; height: parent.height; text: "日"; min: 1; max: 30; zero: 2 }
        Tumbler { id: hour; objectName: "hour"; visible: dialog.hasTime; height: parent.height; text: "时"; min: 0; max: 23; zero: 2 }
        Tumbler { id: minute; objectName: "minute"; visible: dialog.hasTime; height: parent.height; text: "分"; min: 0; max: 59; zero: 2 }
        Tumbler { id: second; objectName: "second"; visible: dialog.hasTime; height: parent.height; text: "秒"; min: 0; max: 59; zero: 2 }
    }

    Row {
        id: buttons
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.spacing
        spacing: Theme.spacing * 2

        PushButton {
            objectName: "cancelButton"
            width: 200
            role: "plain"
            text: "取  消"
            onClicked: dialog.finish(false)
        }

        PushButton {
            objectName: "confirmButton"
            width: 200
            text: "保  存"
            onClicked: dialog.finish(true)
        }
    }
}
