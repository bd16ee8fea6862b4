import QtQuick 2.15
import "../Components"

// One room. All sizes follow the tile's height; what is largest is read from farthest: number, state, time left.
Tappable {
    id: tile

    required property string roomId
    required property string roomNo
    required property string roomName
    required property string roomFloor
    required property string backColor
    required property string stateMark
    required property string spokenName
    required property string payAmount
    required property string statusVal
    required property string cardList
    required property string staffList
    required property string finishStaff
    required property string groupRoom
    required property string usedTime
    required property string leftTime
    required property string roomCleaner
    required property string remark
    required property string lastSvrTime

    readonly property color fill: backColor
    readonly property color textColor: Theme.textOn(fill)
    readonly property bool isTextLight: Qt.colorEqual(textColor, Theme.textOnColor)
    // What is set off from the ground is so away from the text's colour, so that it is read no worse.
    readonly property color inset: isTextLight ? Theme.insetDark : Theme.insetLight
    readonly property bool isOverrun: leftTime.charAt(0) === "超"
    readonly property real unit: height / 10
    readonly property int markSize: Math.max(Theme.leastSize, unit * 1.25)

    readonly property int headHeight: Math.max(20, unit * 2.15)
    readonly property int timesHeight: usedTime === "" && leftTime === "" ? 0 : Math.max(20, unit * 2.05)
    readonly property int bodyHeight: card.height - headHeight - timesHeight
    // About as many rows as the lines want: a row holds two cards and their label, or three technicians.
    readonly property int wantedRows: Math.ceil(cardList.length / 14) + Math.ceil(staffList.length / 14)
                                      + [payAmount, remark, groupRoom, finishStaff, lastSvrTime, statusVal].filter(line => line !== "").length
    readonly property int leastLine: Math.max(Theme.leastSize, unit * 0.97)
    readonly property int lineSize: Math.max(leastLine, Math.min(unit * 1.35, bodyHeight / Math.max(1, wantedRows) / 1.1))
    readonly property int lineHeight: lineSize * 1.1
    readonly property int stateHeight: statusVal === "" ? 0 : Math.max(leastLine * 1.3, lineHeight)
    readonly property int rows: (bodyHeight - stateHeight) / lineHeight

    // A state in words, in the middle of the tile.
    component StateText: PlainText {
        width: parent.width
        visible: text !== ""
        horizontalAlignment: Text.AlignHCenter
        fontSizeMode: Text.HorizontalFit
        leastSize: Theme.leastSize
        color: tile.textColor
    }

    // A time in the bottom row.
    component TimeText: PlainText {
        height: parent.height
        leftPadding: 3
        rightPadding: 3
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        fontSizeMode: Text.HorizontalFit
        leastSize: Theme.leastSize
        font.pixelSize: Math.max(Theme.leastSize, height * 0.8)
        color: tile.textColor
    }

    objectName: "room_" + roomNo
    label: spokenName
    color: "transparent"

    Rectangle {
        id: card
        anchors.fill: parent
        anchors.margins: 3
        radius: 6
        color: !tile.isPressed ? tile.fill : tile.isTextLight ? Qt.darker(tile.fill, 1.5) : Qt.lighter(tile.fill, 1.25)
        border.width: tile.isPressed ? 3 : 0
        border.color: tile.textColor
    }

    Item {
        id: head
        anchors.left: card.left
        anchors.right: card.right
        anchors.leftMargin: 5
        anchors.rightMargin: 5
        anchors.top: card.top
        height: tile.headHeight

        PlainText {
            id: number
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, parent.width - mark.width - Theme.leastSize - 6)
            fontSizeMode: Text.HorizontalFit
            leastSize: Theme.leastSize
            text: tile.roomNo
            font.bold: true
            font.pixelSize: Math.max(16, tile.unit * 1.8)
            color: tile.textColor
        }

        Rectangle {
            id: mark
            anchors.left: number.right
            anchors.leftMargin: 3
            anchors.verticalCenter: parent.verticalCenter
            width: tile.markSize + 3
            height: width
            radius: 4
            color: tile.inset

            PlainText {
                anchors.centerIn: parent
                text: tile.stateMark
                font.pixelSize: tile.markSize
                color: tile.textColor
            }
        }

        PlainText {
            anchors.left: mark.right
            anchors.leftMargin: 3
            anchors.right: parent.right
            anchors.baseline: number.baseline
            horizontalAlignment: Text.AlignRight
            text: tile.roomName === "" ? tile.roomFloor : tile.roomName + " " + tile.roomFloor
            font.pixelSize: Math.max(Theme.leastSize, tile.unit)
            color: tile.textColor
        }
    }

    // The lines take their rows by rank: cards, technicians, then the others in their order.
    Column {
        id: lines
        anchors.left: head.left
        anchors.right: head.right
        anchors.rightMargin: cut.width - 3
        anchors.top: head.bottom

        TileLine { id: amount; tile: tile; content: tile.payAmount; room: staff.rest; font.bold: true }

        Rectangle {
            width: cut.visible ? parent.width : head.width
            height: note.height
            visible: note.isShown
            radius: 3
            color: Theme.note

            TileLine {
                id: note
                x: 4
                width: lines.width - 8
                tile: tile
                content: tile.remark
                room: amount.rest
                most: room - (tile.groupRoom !== "") - (tile.finishStaff !== "") - (tile.lastSvrTime !== "")
                color: Theme.textOnColor
            }
        }

        TileLine { id: group; tile: tile; content: tile.groupRoom; room: note.rest }
        TileLine { id: cards; tile: tile; content: tile.cardList; room: tile.rows }
        TileLine { id: staff; tile: tile; content: tile.staffList; room: cards.rest }
        TileLine { id: finished; tile: tile; content: tile.finishStaff; room: group.rest }
        TileLine { id: service; tile: tile; content: tile.lastSvrTime; room: finished.rest }
    }

    // Something is left out whole.
    PlainText {
        id: cut
        anchors.right: head.right
        anchors.rightMargin: -3
        y: lines.y + lines.height - tile.lineHeight
        width: tile.lineSize
        visible: service.isLost || finished.isLost || group.isLost || note.isLost || amount.isLost || staff.isLost || cards.isLost
        text: "…"
        font.bold: true
        font.pixelSize: tile.lineSize
        lineHeightMode: Text.FixedHeight
        lineHeight: tile.lineHeight
        color: tile.textColor
    }

    Column {
        id: state
        readonly property int room: tile.bodyHeight - lines.height

        anchors.left: head.left
        anchors.right: head.right
        y: lines.y + Math.max(lines.height + (room - height) / 2, (tile.bodyHeight - height) / 2)
        visible: tile.statusVal !== ""

        StateText {
            text: tile.statusVal
            font.pixelSize: Math.max(Theme.leastSize, Math.min(tile.unit * 1.9, state.room / (tile.roomCleaner === "" ? 1.3 : 2.6)))
            font.bold: true
        }

        // Where there is no room for it the line above says who cleans.
        StateText {
            text: state.room < Theme.leastSize * 2.6 ? "" : tile.roomCleaner
            font.pixelSize: Math.max(Theme.leastSize, Math.min(tile.unit * 1.3, state.room / 2.8))
        }
    }

    Item {
        id: times
        anchors.left: card.left
        anchors.right: card.right
        anchors.bottom: card.bottom
        height: tile.timesHeight

        TimeText {
            anchors.left: parent.left
            anchors.right: left.left
            text: tile.usedTime
        }

        Rectangle {
            id: left
            anchors.right: parent.right
            width: Math.round(parent.width * (tile.isOverrun ? 0.6 : 0.5))
            height: parent.height
            radius: 6
            visible: tile.leftTime !== ""
            color: tile.isOverrun ? Theme.overrun : tile.inset

            TimeText {
                width: parent.width
                text: tile.leftTime
                font.bold: true
                color: tile.isOverrun ? Theme.textOn(Theme.overrun) : tile.textColor
            }
        }
    }
}
