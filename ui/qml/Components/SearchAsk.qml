import QtQuick 2.15

// Narrows a list of rooms by a number, and shows all of them again.
Column {
    id: ask

    property alias work: button.work
    property var search: null // search(roomNo), all for an empty text
    property string filter: ""

    width: Theme.px(220)
    spacing: Theme.gap

    AskButton {
        id: button
        objectName: "searchButton"
        width: parent.width
        text: "请输入房间号"
        take: number => {
            ask.filter = number
            ask.search(number)
        }
    }

    PushButton {
        objectName: "allButton"
        width: parent.width
        visible: ask.filter !== ""
        role: "plain"
        pixelSize: Theme.headSize
        text: "全部 (现: " + ask.filter + ")"
        action: () => button.work(() => {
            ask.filter = ""
            ask.search("")
        })
    }
}
