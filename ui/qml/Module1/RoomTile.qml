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
    // White reads badly on the light colours.
    readonly property color textColor: fill.r * 0.299 + fill.g * 0.587 + fill.b * 0.114 > 0.55 ? Theme.textOnLight : Theme.textOnColor
    readonly property bool isOverrun: tile.leftTime.charAt(0) === "超"
    readonly property real unit: height / 10

    // The lines share what is left between the number and the times; those that don't fit are left out whole.
    readonly property int lineCount: [payAmount, remark, groupRoom, cardList, staffList, finishStaff, lastSvrTime].filter(line => line !== "").length
    // With little room left the state is one line more, the first.
    readonly property bool isStateALine: lineCount >= 2 && statusVal !== ""
    readonly property int allLines: lineCount + (isStateALine ? 1 : 0)
    readonly property int bodyHeight: card.y + card.height - times.height - body.y
    readonly property int lineHeight: Math.max(14, Math.min(unit * 1.4, bodyHeight / Math.max(4, allLines)))
    readonly property int rowsEach: Math.max(1, Math.floor(bodyHeight / lineHeight / Math.max(1, statusVal !== "" && lineCount === 1 ? 2 : allLines)))

    // A state in words, in the middle of the tile.
    component StateText: PlainText {
        width: parent.width
        visible: text !== ""
        horizontalAlignment: Text.AlignHCenter
        fontSizeMode: Text.HorizontalFit
        leastSize: 11
        color: tile.textColor
    }

    // A time in the bottom row, in one half of it.
    component TimeText: PlainText {
        width: parent.width / 2
        height: parent.height
        leftPadding: 4
        rightPadding: 4
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        fontSizeMode: Text.HorizontalFit
        leastSize: 11
        font.pixelSize: height * 0.8
        color: tile.textColor
    }

    objectName: "room_" + roomNo
    label: roomNo
    color: "transparent"

    Rectangle {
        id: card
        anchors.fill: parent
        anchors.margins: 3
        radius: 6
        color: tile.isPressed ? Qt.darker(tile.fill, 1.35) : tile.fill
    }

    PlainText {
        id: number
        anchors.left: card.left
        anchors.leftMargin: 8
        anchors.top: card.top
        anchors.topMargin: 2
        text: tile.roomNo
        font.bold: true
        font.pixelSize: tile.unit * 1.9
        color: tile.textColor
    }

    PlainText {
        id: floor
        anchors.right: card.right
        anchors.rightMargin: 8
        anchors.baseline: number.baseline
        width: Math.min(implicitWidth, tile.width * 0.3)
        text: tile.roomFloor
        font.pixelSize: Math.max(12, tile.unit)
        color: tile.textColor
    }

    PlainText {
        anchors.left: number.right
        anchors.leftMargin: 6
        anchors.right: floor.left
        anchors.rightMargin: 6
        anchors.baseline: number.baseline
        visible: width > 0
        text: tile.roomName
        font.pixelSize: Math.max(12, tile.unit)
        color: tile.textColor
    }

    Item {
        id: body
        anchors.left: card.left
        anchors.right: card.right
        anchors.leftMargin: 8
        anchors.rightMargin: 8
        y: number.y + number.height * 0.88
        height: Math.floor(tile.bodyHeight / tile.lineHeight) * tile.lineHeight
        clip: lines.height > height

        Column {
            id: lines
            width: parent.width

            TileLine { tile: tile; text: tile.isStateALine ? tile.statusVal : ""; font.bold: true }
            TileLine { tile: tile; text: tile.payAmount; font.bold: true }

            Rectangle {
                width: parent.width
                height: note.height
                visible: tile.remark !== ""
                radius: 3
                color: Theme.note

                TileLine {
                    id: note
                    x: 4
                    width: parent.width - 8
                    text: tile.remark
                    tile: tile
                    color: Theme.textOnColor
                }
            }

            TileLine { tile: tile; text: tile.groupRoom }
            TileLine { tile: tile; text: tile.cardList }
            TileLine { tile: tile; text: tile.staffList }
            TileLine { tile: tile; text: tile.finishStaff }
            TileLine { tile: tile; text: tile.lastSvrTime }
        }
    }

    Column {
        id: state
        readonly property int room: tile.bodyHeight - lines.height

        anchors.left: body.left
        anchors.right: body.right
        y: body.y + lines.height + (room - height) / 2
        visible: !tile.isStateALine

        StateText {
            text: tile.statusVal
            font.pixelSize: Math.min(tile.unit * 1.9, state.room / (tile.roomCleaner === "" ? 1.3 : 2.4))
            font.bold: true
        }

        StateText {
            text: tile.roomCleaner
            font.pixelSize: Math.min(tile.unit * 1.3, state.room / 2.8)
        }
    }

    Item {
        id: times
        anchors.left: card.left
        anchors.right: card.right
        anchors.bottom: card.bottom
        height: tile.usedTime === "" && tile.leftTime === "" ? 0 : tile.unit * 2.1

        TimeText {
            anchors.left: parent.left
            text: tile.usedTime
        }

        Rectangle {
            anchors.right: parent.right
            width: parent.width / 2
            height: parent.height
            radius: 6
            visible: tile.leftTime !== ""
            color: tile.isOverrun ? Theme.overrun : Theme.inset
        }

        TimeText {
            anchors.right: parent.right
            text: tile.leftTime
            font.bold: true
            color: tile.isOverrun ? Theme.textOnColor : tile.textColor
        }
    }
}
